#include "net/QVBoundedDownload.h"

#include "net/QVNetworkError.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>

namespace {

constexpr int maximumRedirects = 5;
constexpr qint64 readAtOnce = 1 << 14;

std::optional<qint64> faultOf(const QUrl &address)
{
    if (!address.isValid() || address.isEmpty())
        return QVNetworkError::badAddress;
    if (address.scheme() != QLatin1String("https") && address.scheme() != QLatin1String("http"))
        return QVNetworkError::unsupportedAddress;
    if (address.host().isEmpty())
        return QVNetworkError::badAddress;
    return std::nullopt;
}

} // namespace

QVBoundedDownload *QVBoundedDownload::start(QNetworkAccessManager &own, QNetworkAccessManager *host,
                                            const QNetworkRequest &request, Limits limits,
                                            Completion completion)
{
    auto *download = new QVBoundedDownload(own, limits, std::move(completion));
    QNetworkAccessManager &network = host ? *host : own;
    if (const std::optional<qint64> fault = faultOf(request.url()))
        download->failLater(*fault);
    else
        download->send(network, request);
    return download;
}

QVBoundedDownload::QVBoundedDownload(QNetworkAccessManager &own, Limits limits, Completion completion)
    : QVTransfer(&own)
    , m_limits(limits)
    , m_completion(std::move(completion))
{
}

QVBoundedDownload::~QVBoundedDownload()
{
    // What the completion holds may cancel this as it goes.
    m_isFinished = true;
    m_completion = {};
    if (m_reply)
        m_reply->deleteLater();
}

void QVBoundedDownload::cancel()
{
    failLater(QVNetworkError::cancelled);
}

void QVBoundedDownload::send(QNetworkAccessManager &network, QNetworkRequest request)
{
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(maximumRedirects);

    m_reply = network.get(request);
    // A busy event loop must not let the answer pile up unread.
    m_reply->setReadBufferSize(m_limits.bytes + 1);
    // A host may read what its manager says has finished, before this hears of it.
    const bool isHosts = &network != parent();
    connect(m_reply, &QNetworkReply::readyRead, this,
            isHosts ? &QVBoundedDownload::read : &QVBoundedDownload::readIfLarge);
    connect(m_reply, &QNetworkReply::finished, this, &QVBoundedDownload::finish);
    // Another's way to the network may go at any time.
    connect(&network, &QObject::destroyed, this, [this] { failLater(QVNetworkError::connectionLost); });
    m_deadline.start(m_limits.deadline, [this] { failLater(QVNetworkError::timedOut); });
}

void QVBoundedDownload::readIfLarge()
{
    // A usual answer is read once, at the end: each read wakes Qt's network thread to tell it of the room
    // made.
    const qint64 unread = m_reply->bytesAvailable();
    if (unread >= readAtOnce || m_result.body.size() + unread > m_limits.bytes)
        read();
}

void QVBoundedDownload::read()
{
    const qint64 room = m_limits.bytes - m_result.body.size();
    m_result.body += m_reply->read(room + 1);
    if (m_result.body.size() > m_limits.bytes)
        failLater(QVNetworkError::other);
}

void QVBoundedDownload::finish()
{
    // One that its host gave up is closed.
    if (m_reply->isOpen())
        read();
    if (m_result.error)
        return;
    m_result.httpStatus = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    m_result.error = qv_networkErrorOfReply(*m_reply);
    complete();
}

void QVBoundedDownload::failLater(qint64 code)
{
    if (m_isFinished || m_result.error)
        return;
    m_result.error = qv_networkError(code);
    m_deadline.stop();
    if (m_reply)
        m_reply->disconnect(this);
    QMetaObject::invokeMethod(this, &QVBoundedDownload::abandon, Qt::QueuedConnection);
}

void QVBoundedDownload::abandon()
{
    // Deleted, not aborted: an HTTP error status that is still on its way to an aborted reply makes
    // Qt warn about a second error.
    delete m_reply;
    complete();
}

void QVBoundedDownload::complete()
{
    m_isFinished = true;
    m_deadline.stop();
    deleteLater();
    const Result result = std::exchange(m_result, {});
    const Completion completion = std::exchange(m_completion, {});
    completion(result);
}
