#include "net/QVManagerExchange.h"

#include "net/QVVerifyingTls.h"

#include <QNetworkAccessManager>

namespace {

// QNetworkReply reports an HTTP error status as an error, even if the answer is complete.
QNetworkReply::NetworkError errorOf(const QNetworkReply &reply)
{
    const QNetworkReply::NetworkError error = reply.error();
    const bool hasStatus = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).isValid();
    const bool isOfStatus =
        error == QNetworkReply::ProxyAuthenticationRequiredError ||
        (error > QNetworkReply::UnknownProxyError && error <= QNetworkReply::UnknownServerError &&
         error != QNetworkReply::ProtocolFailure);
    return hasStatus && isOfStatus ? QNetworkReply::NoError : error;
}

} // namespace

QVManagerExchange::QVManagerExchange(QNetworkAccessManager &manager, const QNetworkRequest &request,
                                     qint64 bodyLimit, QObject *parent)
    : QVExchange(parent)
    , m_manager(manager)
    , m_request(request)
    , m_bodyLimit(bodyLimit)
{
    m_request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    m_request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    m_request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    // The first TLS configuration of a process makes Qt load its TLS plugin, which http does not need.
    if (request.url().scheme() != QLatin1String("https"))
        return;
    m_request.setSslConfiguration(qv_verifyingTls());
    // Qt keeps connections by this name, too. Without it, Qt would use one that the host has made without
    // verification.
    m_request.setPeerVerifyName(request.url().host());
}

QVManagerExchange::~QVManagerExchange()
{
    // Deleted, not aborted: an HTTP error status that is still on its way to an aborted reply makes
    // Qt warn about a second error.
    delete m_reply;
}

void QVManagerExchange::start()
{
    m_reply = m_manager.get(m_request);
    // Limits the memory that an answer takes while the event loop is busy.
    m_reply->setReadBufferSize(m_bodyLimit + 1);
    // Read on arrival: slots of the host that are connected to the manager's finished() run before ours and
    // may read the reply.
    connect(m_reply, &QNetworkReply::readyRead, this, &QVManagerExchange::read);
    connect(m_reply, &QNetworkReply::finished, this, &QVManagerExchange::finish);
    connect(&m_manager, &QObject::destroyed, this,
            [this] { finishWith(QNetworkReply::RemoteHostClosedError); });
}

void QVManagerExchange::read()
{
    m_result.body += m_reply->read(m_bodyLimit + 1);
    if (m_result.body.size() > m_bodyLimit)
        finishWith(QNetworkReply::ProtocolFailure);
}

void QVManagerExchange::finish()
{
    // A reply that the host has aborted is closed.
    if (m_reply->isOpen())
        read();
    m_result.httpStatus = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    m_result.location = m_reply->rawHeader("Location");
    finishWith(errorOf(*m_reply));
}

void QVManagerExchange::finishWith(QNetworkReply::NetworkError error)
{
    if (std::exchange(m_isFinished, true))
        return;
    if (m_reply)
        m_reply->disconnect(this);
    m_result.error = error;
    Q_EMIT finished();
}
