#pragma once

#include <Quarvo/QuarvoExport.h>

#include <memory>
#include <type_traits>

/// Base of every delegate: lets the component hold it weakly, whatever else its class inherits.
///
/// A host derives from one of the concrete delegates and hands over a plain pointer; it keeps the
/// ownership and may destroy the delegate at any time, after which nothing is called any more.
/// Delegates live on the user-interface thread.
class QUARVO_EXPORT QVDelegate
{
public:
    virtual ~QVDelegate();

protected:
    /// Begins a life of its own, of which weak holders see the end.
    QVDelegate();
    /// A copy has a life of its own, too.
    QVDelegate(const QVDelegate &other);
    /// Who holds this one goes on holding it.
    QVDelegate &operator=(const QVDelegate &other);

private:
    template<class Delegate>
    friend class QVWeakDelegate;

    std::shared_ptr<const bool> m_life;
};

/// A pointer to a delegate that becomes null when the delegate is destroyed.
template<class Delegate>
class QVWeakDelegate
{
public:
    /// Holds none.
    QVWeakDelegate() = default;

    /// Holds \a delegate, which may be null. Implicit, so that a field of this type is assigned like the
    /// plain pointer it stands for.
    // NOLINTNEXTLINE(google-explicit-constructor)
    QVWeakDelegate(Delegate *delegate)
        : m_delegate(delegate)
    {
        static_assert(std::is_base_of_v<QVDelegate, Delegate>);
        if (delegate)
            m_life = static_cast<const QVDelegate *>(delegate)->m_life;
    }

    /// The delegate, null once it was destroyed.
    [[nodiscard]] Delegate *get() const { return m_life.expired() ? nullptr : m_delegate; }
    /// Whether get() gives one.
    [[nodiscard]] explicit operator bool() const { return get() != nullptr; }

private:
    Delegate *m_delegate = nullptr;
    std::weak_ptr<const bool> m_life;
};
