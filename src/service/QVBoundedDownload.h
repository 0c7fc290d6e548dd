#pragma once

#include "platform/QVError.h"
#include "platform/QVTimer.h"
#include "service/QVTransfer.h"

#include <QNetworkRequest>

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
    /// addresses are fetched. \a network owns the download.
    static QVBoundedDownload *start(QNetworkAccessManager &network, const QNetworkRequest &request,
                                    Limits limits, Completion completion);

    void cancel() override;
    [[nodiscard]] bool isFinished() const override { return m_isFinished; }

private:
    QVBoundedDownload(QNetworkAccessManager &network, Limits limits, Completion completion);

    void send(QNetworkAccessManager &network, QNetworkRequest request);
    void read();
    void finish();
    void failLater(qint64 code);
    void abandon();
    void complete();

    QNetworkReply *m_reply = nullptr;
    QVTimer m_deadline;
    Limits m_limits;
    Completion m_completion;
    Result m_result;
    bool m_isFinished = false;
};
