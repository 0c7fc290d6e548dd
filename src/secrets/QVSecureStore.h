#pragma once

#include "secrets/QVSecureItem.h"

/// Where the user's secrets are kept, item by item. A call is done when it returns and never asks the
/// user for anything.
class QVSecureStore
{
public:
    /// What a lookup brings back.
    enum class Return { Nothing, Data, Attributes };

    struct Answer
    {
        QVSecureStatus status = QVSecureStatus::Success;
        QList<QVSecureItem> items;
    };

    virtual ~QVSecureStore() = default;

    /// Looks items up: Data brings one item with its data and nothing else, Attributes brings all of
    /// them with everything but their data.
    [[nodiscard]] virtual Answer copyMatching(const QVSecureQuery &query, Return what) = 0;
    [[nodiscard]] virtual QVSecureStatus add(const QVSecureItem &item) = 0;
    /// Replaces the data of the first match, and its accessibility unless that is absent.
    [[nodiscard]] virtual QVSecureStatus update(const QVSecureQuery &query, const QByteArray &data,
                                                const QString &accessibility) = 0;
    [[nodiscard]] virtual QVSecureStatus deleteMatching(const QVSecureQuery &query) = 0;
    /// Says that a lookup will follow, so that whatever only the first one needs can be done meanwhile.
    virtual void prepare() {}
    /// Makes the call under way end soon, and each later one at once. May be called from any thread.
    virtual void cancel() {}
};

/// Gives a store on the session bus with that address, whose calls take as long as the desktop likes. The
/// caller owns it.
using QVOpenSecretStore = QVSecureStore *(*)(const QByteArray &busAddress);

/// The one function by which the store over libsecret is reached, found by its name where it is a module.
extern "C" Q_DECL_EXPORT QVSecureStore *quarvoSecretStore(const QByteArray &busAddress);

/// That function; null where there is none. The shared library finds it in a module, others have it linked
/// in.
[[nodiscard]] QVOpenSecretStore qv_findSecretStore();
