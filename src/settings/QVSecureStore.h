#pragma once

#include "settings/QVSecureItem.h"

#include <chrono>
#include <memory>

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

    /// What a user hardly notices, and hundreds of times what a lookup takes.
    static constexpr std::chrono::milliseconds usualLimit{1000};

    /// The store of this desktop, none of whose calls takes longer than \a limit. It costs nothing
    /// until it is used.
    [[nodiscard]] static std::unique_ptr<QVSecureStore> create(std::chrono::milliseconds limit = usualLimit);

    [[nodiscard]] static QVSecureStore &shared();
    /// Replaces the shared store, which must outlive its use; null brings back the desktop's.
    static void setShared(QVSecureStore *store);

private:
    /// Null where there is none. The shared library finds it in a module, others have it linked in.
    [[nodiscard]] static std::unique_ptr<QVSecureStore> ofDesktop(std::chrono::milliseconds limit);
};
