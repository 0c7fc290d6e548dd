#pragma once

#include "secrets/QVGlibPointer.h"
#include "secrets/QVSecureStore.h"

#include <functional>

typedef struct _SecretService SecretService;
typedef struct _SecretItem SecretItem;

/// The store of a freedesktop.org desktop, its Secret Service. A call waits for the service, however long
/// that takes. Used on one thread, but for cancel().
///
/// The connection to the session bus is kept from one call to the next. It is our own and not the one
/// that a process shares: that one ends the process when the bus goes away.
class QVSecretServiceStore final : public QVSecureStore
{
public:
    QVSecretServiceStore();
    ~QVSecretServiceStore() override;

    [[nodiscard]] Answer copyMatching(const QVSecureQuery &query, Return what) override;
    [[nodiscard]] QVSecureStatus add(const QVSecureItem &item) override;
    [[nodiscard]] QVSecureStatus update(const QVSecureQuery &query, const QByteArray &data,
                                        const QString &accessibility) override;
    [[nodiscard]] QVSecureStatus deleteMatching(const QVSecureQuery &query) override;
    /// Connects, and agrees on a key for what is read later.
    void prepare() override;
    void cancel() override { g_cancellable_cancel(m_cancellable.get()); }

private:
    using Operation = std::function<QVSecureStatus()>;

    [[nodiscard]] QVSecureStatus perform(const Operation &operation);
    [[nodiscard]] QVSecureStatus attempt(const Operation &operation);
    [[nodiscard]] QVSecureStatus connect();
    void disconnect();

    [[nodiscard]] QVSecureStatus search(const QVSecureQuery &query, QList<QByteArray> &paths);
    [[nodiscard]] QVSecureStatus readData(const QByteArray &path, QByteArray &data);
    [[nodiscard]] QVSecureStatus readAttributes(const QByteArray &path, QVSecureItem &item);
    [[nodiscard]] QVSecureStatus open(const QByteArray &path, QVGlibPointer<SecretItem> &item);
    [[nodiscard]] QVSecureStatus setAccessibility(SecretItem *item, const QString &accessibility);

    std::unique_ptr<GMainContext, QVGlibRelease<g_main_context_unref>> m_context;
    QVGlibPointer<GCancellable> m_cancellable;
    QVGlibPointer<GDBusConnection> m_connection;
    QVGlibPointer<SecretService> m_service;
};
