#pragma once

#include <QNetworkRequest>
#include <QObject>
#include <QThread>

class QVConnectionPool;
class QVExchange;

/// The component's own way to the network: a thread with the connections and everything that reads from
/// them. Used on the user-interface thread. It ends with the application object, and what it owns with it.
class QVNetworkSession : public QObject
{
    Q_OBJECT

public:
    QVNetworkSession();
    ~QVNetworkSession() override;

    [[nodiscard]] static QVNetworkSession &shared();

    /// A GET that takes no more than \a bodyLimit bytes of body, still to be started. Owned by the caller.
    [[nodiscard]] QVExchange *newExchange(const QNetworkRequest &request, qint64 bodyLimit);

private:
    QThread m_thread;
    QVConnectionPool *m_pool;
};
