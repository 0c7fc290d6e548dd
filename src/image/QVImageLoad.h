#pragma once

#include "net/QVBoundedDownload.h"
#include "platform/QVError.h"
#include "platform/QVTimer.h"

#include <QImage>
#include <QPointer>

#include <functional>
#include <optional>

class QVBackgroundWork;
class QVImageResources;

/// The load of one picture: from memory, or decoded from disk or from the network. Owned by its resources; it
/// deletes itself after it has completed.
class QVImageLoad final : public QObject
{
    Q_OBJECT

public:
    using Completion = std::function<void(QImage, std::optional<QVError>)>;

    static void start(QVImageResources &resources, const QString &address, Completion completion);

    ~QVImageLoad() override;

private:
    QVImageLoad(QVImageResources &resources, QString address, Completion completion);

    void begin();
    void download();
    void handleDownload(const QVBoundedDownload::Result &result);
    void readFromDisk();
    void decode(const QByteArray &bytes);
    void handleDecoded(const QImage &image);
    /// The deadline for the disk and the decoder. The download has its own.
    void startDeadline();
    void stopDecoding();
    void fail(qint64 code);
    void complete(const QImage &image, const std::optional<QVError> &error);

    QVImageResources &m_resources;
    QString m_address;
    Completion m_completion;
    QPointer<QVBoundedDownload> m_download;
    QPointer<QVBackgroundWork> m_decoding;
    const std::chrono::nanoseconds m_start = QVScheduler::shared().now();
    QVTimer m_deadline;
    QByteArray m_bytes;
    /// Whether the bytes are written to disk once they have been decoded.
    bool m_isForDisk = false;
};
