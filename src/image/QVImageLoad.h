#pragma once

#include "image/QVImageLoader.h"
#include "net/QVBoundedDownload.h"
#include "platform/QVTimer.h"

#include <QPointer>

class QVBackgroundWork;
class QVImageResources;

/// One picture on its way: from memory, or by download and decoding.
class QVImageLoad final : public QVTransfer
{
    Q_OBJECT

public:
    using Completion = QVImageLoader::Completion;

    static QVImageLoad *start(QVImageResources &resources, const QString &address, Completion completion);

    ~QVImageLoad() override;
    void cancel() override;
    [[nodiscard]] bool isFinished() const override { return m_isFinished; }

private:
    QVImageLoad(QVImageResources &resources, QString address, Completion completion);

    void begin();
    void download();
    void handleDownload(const QVBoundedDownload::Result &result);
    void decode(const QByteArray &bytes);
    void handleDecoded(const QImage &image);
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
    bool m_writesToDisk = false;
    bool m_isFinished = false;
};
