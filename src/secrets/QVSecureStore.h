#pragma once

#include "secrets/QVSecureItem.h"

#include <functional>

/// A store of the user's secrets. Calls are synchronous, except for post(), and never ask the user for
/// anything.
class QVSecureStore
{
public:
    /// What a lookup returns.
    enum class Return { Nothing, Data, Attributes };

    struct Answer
    {
        QVSecureStatus status = QVSecureStatus::Success;
        QList<QVSecureItem> items;
    };

    using Work = std::function<QVSecureStatus(QVSecureStore &)>;
    using Done = std::function<void(QVSecureStatus)>;

    virtual ~QVSecureStore() = default;

    /// Looks items up. Data returns one item with only its data, Attributes returns all items without their
    /// data.
    [[nodiscard]] virtual Answer copyMatching(const QVSecureQuery &query, Return what) = 0;
    [[nodiscard]] virtual QVSecureStatus add(const QVSecureItem &item) = 0;
    /// Replaces the data of the first match, and its accessibility unless \a accessibility is null.
    [[nodiscard]] virtual QVSecureStatus update(const QVSecureQuery &query, const QByteArray &data,
                                                const QString &accessibility) = 0;
    [[nodiscard]] virtual QVSecureStatus deleteMatching(const QVSecureQuery &query) = 0;
    /// Does \a work, which may be several calls. A store may do it on another thread, without a wait. Then it
    /// calls \a done on the caller's thread, later or before this call returns.
    virtual void post(const Work &work, const Done &done) { done(work(*this)); }
    /// Announces a lookup, so that the store can prepare for it.
    virtual void prepare() {}
    /// Makes the call under way fail soon, and each later call at once. May be called from any thread.
    virtual void cancel() {}
};

/// Makes a store on the session bus with the given address. The caller owns it. Its calls may block for any
/// time.
using QVOpenSecretStore = QVSecureStore *(*)(const QByteArray &busAddress);

/// The entry point of the store that uses libsecret. If that is a module, the function is found by its name.
extern "C" Q_DECL_EXPORT QVSecureStore *quarvoSecretStore(const QByteArray &busAddress);

/// The entry point above; null if there is none. The shared library loads it from a module; in other builds
/// it is linked in.
[[nodiscard]] QVOpenSecretStore qv_findSecretStore();
