#include "net/QVBoundedDownload.h"

#include "net/QVManagerExchange.h"
#include "net/QVNetworkError.h"
#include "net/QVNetworkSession.h"
#include "net/QVSessionExchange.h"

namespace {

constexpr int maximumRedirects = 5;

std::optional<qint64> faultOf(const QUrl &address)
{
    if (!address.isValid() || address.isEmpty())
        return QVError::BadAddress;
    if (address.scheme() != QLatin1String("https") && address.scheme() != QLatin1String("http"))
        return QVError::UnsupportedAddress;
    if (address.host().isEmpty())
        return QVError::BadAddress;
    return std::nullopt;
}

bool isRedirect(const QVExchange::Result &answer)
{
    constexpr int statuses[] = {301, 302, 303, 307, 308};
    return std::ranges::find(statuses, answer.httpStatus) != std::end(statuses) && !answer.location.isEmpty();
}

// A redirect must not lead from https to http.
bool isLessSafe(const QUrl &from, const QUrl &to)
{
    return from.scheme() == QLatin1String("https") && to.scheme() != QLatin1String("https");
}

} // namespace

QVBoundedDownload::QVBoundedDownload(QVNetworkSession &own, QNetworkAccessManager *host, Limits limits,
                                     Completion completion)
    : QObject(&own)
    , m_own(own)
    , m_host(host)
    , m_isHosts(host != nullptr)
    , m_limits(limits)
    , m_completion(std::move(completion))
{
    m_deadline.start(m_limits.deadline, [this] { failLater(QVError::TimedOut); });
}

QVBoundedDownload::~QVBoundedDownload()
{
    // An object that the completion owns may call cancel() in its destructor.
    m_isFinished = true;
    m_completion = {};
    endExchange();
}

void QVBoundedDownload::send(const QNetworkRequest &request)
{
    if (m_isFinished || m_result.error)
        return;
    m_request = request;
    if (const std::optional<qint64> fault = faultOf(request.url()))
        return failLater(*fault);
    ask();
}

void QVBoundedDownload::cancel()
{
    failLater(QVNetworkError::cancelled);
}

void QVBoundedDownload::ask()
{
    // If the host's manager was destroyed, its proxy must not be bypassed.
    if (m_isHosts && !m_host)
        return failLater(QVError::OtherFailure);
    if (m_host)
        m_exchange = new QVManagerExchange(*m_host, m_request, m_limits.bytes, this);
    else
        m_exchange = new QVSessionExchange(m_own, m_request, m_limits.bytes, this);
    connect(m_exchange, &QVExchange::finished, this, &QVBoundedDownload::takeAnswer);
    m_exchange->start();
}

void QVBoundedDownload::takeAnswer()
{
    const QVExchange::Result answer = m_exchange->result();
    endExchange();
    if (answer.error == QNetworkReply::NoError && isRedirect(answer))
        return follow(answer.location);
    m_result = {answer.body, answer.httpStatus, qv_networkErrorOf(answer.error)};
    complete();
}

void QVBoundedDownload::follow(const QByteArray &location)
{
    const QUrl target = m_request.url().resolved(QUrl::fromEncoded(location));
    if (++m_redirects > maximumRedirects || faultOf(target) || isLessSafe(m_request.url(), target))
        return failLater(QVError::OtherFailure);
    m_request.setUrl(target);
    ask();
}

void QVBoundedDownload::failLater(qint64 code)
{
    if (m_isFinished || m_result.error)
        return;
    m_result.error = qv_networkError(code);
    m_deadline.stop();
    endExchange();
    QMetaObject::invokeMethod(this, &QVBoundedDownload::complete, Qt::QueuedConnection);
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

void QVBoundedDownload::endExchange()
{
    if (!m_exchange)
        return;
    m_exchange->disconnect(this);
    std::exchange(m_exchange, nullptr)->deleteLater();
}
