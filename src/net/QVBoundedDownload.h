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

/// A GET request with a deadline, a size limit for the body, and a limit for redirects. It deletes itself
/// after it has completed.
///
/// Certificates are always verified, even if the host has switched that off for the process. An answer with
/// an HTTP error status is not an error.
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
        /// The transport error. Empty if the answer was read in full, whatever its HTTP status.
        std::optional<QVError> error;
    };
    using Completion = std::function<void(const Result &)>;

    /// Starts the deadline. \a completion is called exactly once, never before this call has returned, unless
    /// \a own is destroyed before. The request goes through \a host, the host's own manager, or through
    /// \a own if that is null. \a own owns the download in both cases.
    QVBoundedDownload(QVNetworkSession &own, QNetworkAccessManager *host, Limits limits,
                      Completion completion);
    ~QVBoundedDownload() override;

    /// Sends the request, once. Does nothing if the download was cancelled or took too long before. Only http
    /// and https addresses are fetched.
    void send(const QNetworkRequest &request);
    /// Ends the request early: the completion is called later, with QVNetworkError::cancelled. Does nothing
    /// once the request has ended.
    void cancel();

private:
    void ask();
    void takeAnswer();
    void follow(const QByteArray &location);
    void failLater(qint64 code);
    void complete();
    void endExchange();

    QVNetworkSession &m_own;
    QPointer<QNetworkAccessManager> m_host;
    const bool m_isHosts;
    QNetworkRequest m_request;
    Limits m_limits;
    Completion m_completion;
    QVTimer m_deadline;
    QVExchange *m_exchange = nullptr;
    Result m_result;
    int m_redirects = 0;
    bool m_isFinished = false;
};
