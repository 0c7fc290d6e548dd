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

/// One picture on its way: from memory, or from disk or the network by decoding. Owned by its resources.
class QVImageLoad final : public QVTransfer
{
    Q_OBJECT

public:
    using Completion = std::function<void(QImage, std::optional<QVError>)>;

    static QVImageLoad *start(QVImageResources &resources, const QString &address, Completion completion);

    ~QVImageLoad() override;
    void cancel() override;
    [[nodiscard]] bool isFinished() const override { return m_isFinished; }

private:
    QVImageLoad(QVImageResources &resources, QString address, Completion completion);

    void begin();
    void download();
    void handleDownload(const QVBoundedDownload::Result &result);
    void readFromDisk();
    void decode(const QByteArray &bytes);
    void handleDecoded(const QImage &image);
    /// For what is not bounded by itself: the disk and the decoder.
    void startDeadline();
    void stopDecoding();
    void fail(qint64 code);
    void complete();

    QVImageResources &m_resources;
    QString m_address;
    Completion m_completion;
    QPointer<QVBoundedDownload> m_download;
    QPointer<QVBackgroundWork> m_decoding;
    const std::chrono::nanoseconds m_start = QVScheduler::shared().now();
    QVTimer m_deadline;
    QImage m_image;
    std::optional<QVError> m_error;
    QByteArray m_bytes;
    /// Whether it is written to disk once it has turned out to be a picture.
    bool m_isForDisk = false;
    bool m_isFinished = false;
};
