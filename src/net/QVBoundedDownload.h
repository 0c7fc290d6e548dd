#pragma once

#include "net/QVTransfer.h"
#include "platform/QVError.h"
#include "platform/QVTimer.h"

#include <QNetworkRequest>
#include <QPointer>

#include <functional>
#include <optional>

class QNetworkAccessManager;
class QNetworkReply;

/// A GET that ends: within its deadline, reading no more than its limit.
class QVBoundedDownload final : public QVTransfer
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
    static QVBoundedDownload *start(QNetworkAccessManager &own, QNetworkAccessManager *host,
                                    const QNetworkRequest &request, Limits limits, Completion completion);

    ~QVBoundedDownload() override;
    void cancel() override;
    [[nodiscard]] bool isFinished() const override { return m_isFinished; }

private:
    QVBoundedDownload(QNetworkAccessManager &own, Limits limits, Completion completion);

    void send(QNetworkAccessManager &network, QNetworkRequest request);
    void readIfLarge();
    void read();
    void finish();
    void failLater(qint64 code);
    void abandon();
    void complete();

    /// Its manager's, which may take it along.
    QPointer<QNetworkReply> m_reply;
    QVTimer m_deadline;
    Limits m_limits;
    Completion m_completion;
    Result m_result;
    bool m_isFinished = false;
};
