#pragma once

#include "net/QVExchange.h"

#include <QPointer>

class QNetworkAccessManager;

/// A GET request through the host's own network access manager, on that manager's thread. The manager decides
/// about its connections. A body that exceeds the limit is an error.
class QVManagerExchange final : public QVExchange
{
    Q_OBJECT

public:
    QVManagerExchange(QNetworkAccessManager &manager, const QNetworkRequest &request, qint64 bodyLimit,
                      QObject *parent);
    ~QVManagerExchange() override;

    void start() override;

private:
    void read();
    void finish();
    void finishWith(QNetworkReply::NetworkError error);

    QNetworkAccessManager &m_manager;
    QNetworkRequest m_request;
    /// Owned by the manager and destroyed with it.
    QPointer<QNetworkReply> m_reply;
    qint64 m_bodyLimit;
    bool m_isFinished = false;
};
