#pragma once

#include <Quarvo/QuarvoExport.h>

#include <memory>
#include <type_traits>

/// Base of every delegate: lets the component hold it weakly, whatever else its class inherits.
///
/// A host derives from one of the concrete delegates and passes a plain pointer. The host keeps the ownership
/// and may destroy the delegate at any time; it is not called any more after that.
/// Delegates live on the user-interface thread.
class QUARVO_EXPORT QVDelegate
{
public:
    virtual ~QVDelegate();

protected:
    /// Weak pointers to this delegate become null when it is destroyed.
    QVDelegate();
    /// Weak pointers to \a other do not refer to the copy.
    QVDelegate(const QVDelegate &other);
    /// Weak pointers to both delegates stay as they are.
    QVDelegate &operator=(const QVDelegate &other);

private:
    template<class Delegate>
    friend class QVWeakDelegate;

    std::shared_ptr<const bool> m_life;
};

/// \cond
/// A pointer to a delegate that becomes null when the delegate is destroyed.
template<class Delegate>
class QVWeakDelegate
{
public:
    /// A null pointer.
    QVWeakDelegate() = default;

    /// Points to \a delegate, which may be null. Implicit, so that a plain pointer can be assigned to a field
    /// of this type.
    // NOLINTNEXTLINE(google-explicit-constructor)
    QVWeakDelegate(Delegate *delegate)
        : m_delegate(delegate)
    {
        static_assert(std::is_base_of_v<QVDelegate, Delegate>);
        if (delegate)
            m_life = static_cast<const QVDelegate *>(delegate)->m_life;
    }

    /// The delegate; null once it was destroyed.
    [[nodiscard]] Delegate *get() const { return m_life.expired() ? nullptr : m_delegate; }
    /// Whether get() is not null.
    [[nodiscard]] explicit operator bool() const { return get() != nullptr; }

private:
    Delegate *m_delegate = nullptr;
    std::weak_ptr<const bool> m_life;
};
/// \endcond
