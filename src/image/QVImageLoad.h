#pragma once

#include "image/QVPicture.h"
#include "net/QVBoundedDownload.h"
#include "platform/QVError.h"
#include "platform/QVTimer.h"

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
    using Completion = std::function<void(QVPicture, std::optional<QVError>)>;

    static void start(QVImageResources &resources, const QString &address, QSize pixels,
                      Completion completion);

    ~QVImageLoad() override;

private:
    QVImageLoad(QVImageResources &resources, QString address, QSize pixels, Completion completion);

    void begin();
    void download();
    void handleDownload(const QVBoundedDownload::Result &result);
    void readFromDisk();
    void decode(const QByteArray &bytes);
    void handleDecoded(const QVPicture &picture);
    /// The deadline for the disk and the decoder. The download has its own.
    void startDeadline();
    void stopDecoding();
    void fail(qint64 code);
    void complete(const QVPicture &picture, const std::optional<QVError> &error);

    QVImageResources &m_resources;
    QString m_address;
    QSize m_pixels;
    Completion m_completion;
    QPointer<QVBoundedDownload> m_download;
    QPointer<QVBackgroundWork> m_decoding;
    const std::chrono::nanoseconds m_start = QVScheduler::shared().now();
    QVTimer m_deadline;
    QByteArray m_bytes;
    /// Whether the bytes are written to disk once they have been decoded.
    bool m_isForDisk = false;
};
