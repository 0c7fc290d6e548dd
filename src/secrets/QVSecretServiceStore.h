#pragma once

#include "secrets/QVGlibPointer.h"
#include "secrets/QVSecureStore.h"

#include <gio/gio.h>

typedef struct _SecretService SecretService;
typedef struct _SecretItem SecretItem;

/// The secure store of a freedesktop.org desktop: its Secret Service. A call blocks until the service
/// answers. Used on the thread that created it, except for cancel().
///
/// It keeps a connection to the session bus from the first call on. The connection is a private one: GLib's
/// shared connection ends the process when the bus goes away.
class QVSecretServiceStore final : public QVSecureStore
{
public:
    explicit QVSecretServiceStore(QByteArray busAddress);
    ~QVSecretServiceStore() override;

    [[nodiscard]] Answer copyMatching(const QVSecureQuery &query, Return what) override;
    [[nodiscard]] QVSecureStatus add(const QVSecureItem &item) override;
    [[nodiscard]] QVSecureStatus update(const QVSecureQuery &query, const QByteArray &data,
                                        const QString &accessibility) override;
    [[nodiscard]] QVSecureStatus deleteMatching(const QVSecureQuery &query) override;
    /// Connects, and negotiates the key that later answers are encrypted with.
    void prepare() override;
    void cancel() override { g_cancellable_cancel(m_cancellable.get()); }

private:
    [[nodiscard]] QVSecureStatus connect();
    [[nodiscard]] QVSecureStatus search(const QVSecureQuery &query, QList<QByteArray> &paths);
    [[nodiscard]] QVSecureStatus readData(const QByteArray &path, QVSecureItem &item);
    [[nodiscard]] QVSecureStatus readAttributes(const QByteArray &path, QVSecureItem &item);
    [[nodiscard]] QVSecureStatus open(const QByteArray &path, QVGlibPointer<SecretItem> &item);

    const QByteArray m_busAddress;
    std::unique_ptr<GMainContext, QVGlibRelease<g_main_context_unref>> m_context;
    QVGlibPointer<GCancellable> m_cancellable;
    QVGlibPointer<GDBusConnection> m_connection;
    QVGlibPointer<SecretService> m_service;
};
