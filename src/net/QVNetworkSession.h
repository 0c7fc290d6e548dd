#pragma once

#include "platform/QVWorkerThread.h"

#include <memory>

class QVConnectionPool;

/// The component's own way to the network: a thread with the connections and everything that reads from
/// them. Used on the user-interface thread. It ends with the application object, and what it owns with it.
class QVNetworkSession : public QObject
{
    Q_OBJECT

public:
    QVNetworkSession();
    ~QVNetworkSession() override;

    [[nodiscard]] static QVNetworkSession &shared();

    [[nodiscard]] QVWorkerThread &thread() { return m_thread; }
    /// Used on the network's thread only.
    [[nodiscard]] QVConnectionPool &pool() { return *m_pool; }

private:
    std::unique_ptr<QVConnectionPool> m_pool;
    // Last: ends before what it works with.
    QVWorkerThread m_thread;
};
