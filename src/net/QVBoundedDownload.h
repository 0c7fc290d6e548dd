#pragma once

#include "platform/QVError.h"
#include "platform/QVTimer.h"

#include <QNetworkRequest>
#include <QPointer>

#include <functional>
#include <optional>

class QNetworkAccessManager;
class QVExchange;
class QVNetworkSession;

/// A GET that ends: within its deadline, taking no more than its limit, after a few redirects. It destroys
/// itself once it has completed.
///
/// Certificates are verified whatever the host has set for the process. An answer is one whatever its HTTP
/// status.
class QVBoundedDownload final : public QObject
{
    Q_OBJECT

public:
    struct Limits
    {
        std::chrono::milliseconds deadline;
        qint64 bytes;
    };
    struct Result
    {
        QByteArray body;
        int httpStatus = 0;
        /// An HTTP error status is none.
        std::optional<QVError> error;
    };
    using Completion = std::function<void(const Result &)>;

    /// Starts at once and completes exactly once, never before this call has returned. Only web
    /// addresses are fetched. They go through \a host, the host's own manager, if there is one, else
    /// through \a own, which owns the download in any case.
    static QVBoundedDownload *start(QVNetworkSession &own, QNetworkAccessManager *host,
                                    const QNetworkRequest &request, Limits limits, Completion completion);

    ~QVBoundedDownload() override;
    /// Ends the request early: it completes later, with code -999. Does nothing once it has ended.
    void cancel();

private:
    QVBoundedDownload(QVNetworkSession &own, QNetworkAccessManager *host, const QNetworkRequest &request,
                      Limits limits, Completion completion);

    void ask();
    void takeAnswer();
    void follow(const QByteArray &location);
    void failLater(qint64 code);
    void complete();
    void endExchange();

    QVNetworkSession &m_own;
    QPointer<QNetworkAccessManager> m_host;
    QNetworkRequest m_request;
    Limits m_limits;
    Completion m_completion;
    QVTimer m_deadline;
    QVExchange *m_exchange = nullptr;
    Result m_result;
    int m_redirects = 0;
    bool m_isFinished = false;
};
