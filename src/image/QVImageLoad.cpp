#include "image/QVImageLoad.h"

#include "image/QVImageDecoder.h"
#include "image/QVImageResources.h"
#include "net/QVNetworkError.h"
#include "service/QVErrorClassification.h"
#include "settings/QVConfigurationManager.h"

using namespace std::chrono_literals;

namespace {

constexpr QVBoundedDownload::Limits limits{15s, 8 << 20};

} // namespace

QVImageLoad *QVImageLoad::start(QVImageResources &resources, const QString &address, Completion completion)
{
    auto *load = new QVImageLoad(resources, address, std::move(completion));
    load->begin();
    return load;
}

QVImageLoad::QVImageLoad(QVImageResources &resources, QString address, Completion completion)
    : QVTransfer(&resources.network())
    , m_resources(resources)
    , m_address(std::move(address))
    , m_completion(std::move(completion))
{
}

QVImageLoad::~QVImageLoad()
{
    stopDecoding();
    // What the completion holds may cancel this as it goes.
    m_isFinished = true;
    m_completion = {};
}

void QVImageLoad::cancel()
{
    if (m_download) {
        m_download->cancel();
        return;
    }
    if (m_error)
        return;
    const bool isCompleting = !m_image.isNull();
    m_image = {};
    m_error = QVErrorClassification::parseError(qv_networkError(QVNetworkError::cancelled));
    stopDecoding();
    if (!isCompleting)
        QMetaObject::invokeMethod(this, &QVImageLoad::complete, Qt::QueuedConnection);
}

void QVImageLoad::begin()
{
    m_image = m_resources.remembered(m_address);
    if (m_image.isNull())
        download();
    else
        QMetaObject::invokeMethod(this, &QVImageLoad::complete, Qt::QueuedConnection);
}

void QVImageLoad::download()
{
    QNetworkRequest request{QUrl(m_address)};
    m_writesToDisk = m_resources.tryOpenDisk();
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, m_writesToDisk);
    // A picture never changes under its address, so how long it stays fresh does not matter. What a
    // host's own way to the network keeps is the host's business.
    auto *const host = QVConfigurationManager::sharedManager().networkAccessManager();
    if (!host)
        request.setAttribute(QNetworkRequest::CacheLoadControlAttribute,
                             m_resources.isOnDisk(m_address) ? QNetworkRequest::AlwaysCache
                                                             : QNetworkRequest::AlwaysNetwork);
    // The load lives as long as the download: both go with the network, or one after the other.
    m_download = QVBoundedDownload::start(m_resources.network(), host, request, limits,
                                          [this](const QVBoundedDownload::Result &result) {
                                              m_download.clear();
                                              handleDownload(result);
                                          });
}

void QVImageLoad::handleDownload(const QVBoundedDownload::Result &result)
{
    if (result.error)
        fail(result.error->code());
    else if (result.httpStatus >= QVNetworkError::firstErrorStatus)
        fail(QVNetworkError::other);
    else
        decode(result.body);
}

void QVImageLoad::decode(const QByteArray &bytes)
{
    const auto image = std::make_shared<QImage>();
    m_decoding = m_resources.start(
        [image, bytes](const std::stop_token &stop) { *image = qv_decodedImage(bytes, stop); });
    connect(m_decoding, &QVBackgroundWork::finished, this, [this, image] { handleDecoded(*image); });
    m_deadline.start(m_start + limits.deadline - QVScheduler::shared().now(), [this] {
        stopDecoding();
        fail(QVNetworkError::timedOut);
    });
}

void QVImageLoad::handleDecoded(const QImage &image)
{
    m_deadline.stop();
    m_image = image;
    if (m_image.isNull())
        return fail(QVNetworkError::other);
    m_resources.remember(m_address, m_image);
    complete();
}

void QVImageLoad::stopDecoding()
{
    m_deadline.stop();
    if (!m_decoding)
        return;
    m_decoding->disconnect(this);
    m_decoding->stop();
}

void QVImageLoad::fail(qint64 code)
{
    if (m_writesToDisk)
        m_resources.forgetOnDisk(m_address);
    m_error = QVErrorClassification::parseError(qv_networkError(code));
    complete();
}

void QVImageLoad::complete()
{
    m_isFinished = true;
    if (std::exchange(m_writesToDisk, false))
        m_resources.closeDisk();
    deleteLater();
    const Completion completion = std::exchange(m_completion, {});
    if (completion)
        completion(m_image, m_error);
}
