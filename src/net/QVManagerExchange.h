#pragma once

#include "net/QVExchange.h"

#include <QPointer>

class QNetworkAccessManager;

/// A GET through a manager of the host's, on the manager's thread. What the manager does with its
/// connections is its own; no more than the limit is read of an answer.
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
    /// Owned by its manager, and destroyed with it.
    QPointer<QNetworkReply> m_reply;
    qint64 m_bodyLimit;
    bool m_isFinished = false;
};
