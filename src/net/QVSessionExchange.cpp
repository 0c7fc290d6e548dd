#include "net/QVSessionExchange.h"

#include "net/QVHttpExchange.h"
#include "net/QVNetworkSession.h"

struct QVSessionExchange::Shared
{
    /// Null once the exchange was destroyed. Used on the user-interface thread only.
    QVSessionExchange *exchange;
    /// Used on the network thread only.
    std::unique_ptr<QVHttpExchange> http;
};

QVSessionExchange::QVSessionExchange(QVNetworkSession &session, const QNetworkRequest &request,
                                     qint64 bodyLimit, QObject *parent)
    : QVExchange(parent)
    , m_session(session)
    , m_request(request)
    , m_bodyLimit(bodyLimit)
    , m_shared(std::make_shared<Shared>(Shared{this, nullptr}))
{
}

QVSessionExchange::~QVSessionExchange()
{
    m_shared->exchange = nullptr;
    m_session.thread().post([shared = m_shared] { shared->http.reset(); });
}

void QVSessionExchange::start()
{
    m_session.thread().post(
        [&session = m_session, request = m_request, limit = m_bodyLimit, shared = m_shared] {
            const auto answer = [&session, shared](const Result &result) {
                session.thread().answer([shared, result] {
                    if (shared->exchange)
                        shared->exchange->finish(result);
                });
            };
            shared->http = std::make_unique<QVHttpExchange>(session.pool(), request, limit, answer);
            shared->http->start();
        });
}

void QVSessionExchange::finish(const Result &result)
{
    m_result = result;
    Q_EMIT finished();
}
