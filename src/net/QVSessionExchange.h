#pragma once

#include "net/QVExchange.h"

#include <QNetworkRequest>

#include <memory>

class QVNetworkSession;

/// The user-interface thread's side of an exchange that runs on the thread of a network session.
class QVSessionExchange final : public QVExchange
{
    Q_OBJECT

public:
    /// The session must outlive this.
    QVSessionExchange(QVNetworkSession &session, const QNetworkRequest &request, qint64 bodyLimit,
                      QObject *parent);
    ~QVSessionExchange() override;

    void start() override;

private:
    struct Shared;

    void finish(const Result &result);

    QVNetworkSession &m_session;
    QNetworkRequest m_request;
    qint64 m_bodyLimit;
    std::shared_ptr<Shared> m_shared;
};
