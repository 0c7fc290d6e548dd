#include "image/QVImageLoad.h"

#include "image/QVImageDecoder.h"
#include "image/QVImageResources.h"
#include "net/QVNetworkError.h"
#include "net/QVNetworkSession.h"
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
    : QVTransfer(&resources)
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
    delete m_download;
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
    if (!m_image.isNull())
        QMetaObject::invokeMethod(this, &QVImageLoad::complete, Qt::QueuedConnection);
    else if (m_resources.disk().holds(m_address))
        readFromDisk();
    else
        download();
}

void QVImageLoad::readFromDisk()
{
    connect(&m_resources.disk(), &QVPictureDisk::wasRead, this,
            [this](const QString &address, const QByteArray &bytes) {
                if (address != m_address || m_error)
                    return;
                m_resources.disk().disconnect(this);
                bytes.isEmpty() ? download() : decode(bytes);
            });
    m_resources.disk().read(m_address);
    startDeadline();
}

void QVImageLoad::download()
{
    auto *const host = QVConfigurationManager::sharedManager().networkAccessManager();
    // What a host's own manager keeps is the host's business.
    m_isForDisk = !host;
    m_download = QVBoundedDownload::start(QVNetworkSession::shared(), host, QNetworkRequest(QUrl(m_address)),
                                          limits, [this](const QVBoundedDownload::Result &result) {
                                              m_download.clear();
                                              handleDownload(result);
                                          });
}

void QVImageLoad::handleDownload(const QVBoundedDownload::Result &result)
{
    if (result.error)
        return fail(result.error->code());
    if (result.httpStatus >= QVNetworkError::firstErrorStatus)
        return fail(QVNetworkError::other);
    m_bytes = result.body;
    decode(m_bytes);
}

void QVImageLoad::decode(const QByteArray &bytes)
{
    const auto image = std::make_shared<QImage>();
    m_decoding = m_resources.start(
        [image, bytes](const std::stop_token &stop) { *image = qv_decodedImage(bytes, stop); });
    connect(m_decoding, &QVBackgroundWork::finished, this, [this, image] { handleDecoded(*image); });
    startDeadline();
}

void QVImageLoad::handleDecoded(const QImage &image)
{
    m_deadline.stop();
    m_image = image;
    if (m_image.isNull())
        return fail(QVNetworkError::other);
    m_resources.remember(m_address, m_image);
    if (m_isForDisk)
        m_resources.disk().write(m_address, m_bytes);
    complete();
}

void QVImageLoad::startDeadline()
{
    m_deadline.start(m_start + limits.deadline - QVScheduler::shared().now(), [this] {
        stopDecoding();
        fail(QVNetworkError::timedOut);
    });
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
    m_error = QVErrorClassification::parseError(qv_networkError(code));
    complete();
}

void QVImageLoad::complete()
{
    m_isFinished = true;
    deleteLater();
    const Completion completion = std::exchange(m_completion, {});
    if (completion)
        completion(m_image, m_error);
}
