#pragma once

#include "platform/QVWorkerThread.h"

#include <memory>

class QUrl;
class QVConnectionPool;

/// The component's own access to the network: a thread with the connections and everything that reads from
/// them. Used on the user-interface thread. The shared session is destroyed with the application object. A
/// session owns its downloads.
class QVNetworkSession : public QObject
{
    Q_OBJECT

public:
    QVNetworkSession();
    ~QVNetworkSession() override;

    [[nodiscard]] static QVNetworkSession &shared();

    /// Loads what a request to \a address needs, so that the first one need not wait for it.
    void prepareFor(const QUrl &address);

    [[nodiscard]] QVWorkerThread &thread() { return m_thread; }
    /// Used on the network thread only.
    [[nodiscard]] QVConnectionPool &pool() { return *m_pool; }

private:
    std::unique_ptr<QVConnectionPool> m_pool;
    // Last, so that it is destroyed first: its tasks use the members above.
    QVWorkerThread m_thread;
};
