#include "image/QVImageLoad.h"

#include "image/QVImageDecoder.h"
#include "image/QVImageResources.h"
#include "image/QVSmoothScaling.h"
#include "net/QVNetworkError.h"
#include "net/QVNetworkSession.h"
#include "service/QVErrorClassification.h"
#include "settings/QVConfigurationManager.h"

using namespace std::chrono_literals;

namespace {

constexpr QVBoundedDownload::Limits limits{15s, 8 << 20};

} // namespace

void QVImageLoad::start(QVImageResources &resources, const QString &address, QSize pixels,
                        Completion completion)
{
    (new QVImageLoad(resources, address, pixels, std::move(completion)))->begin();
}

QVImageLoad::QVImageLoad(QVImageResources &resources, QString address, QSize pixels, Completion completion)
    : QObject(&resources)
    , m_resources(resources)
    , m_address(std::move(address))
    , m_pixels(pixels)
    , m_completion(std::move(completion))
{
}

QVImageLoad::~QVImageLoad()
{
    stopDecoding();
    delete m_download;
}

void QVImageLoad::begin()
{
    const QImage image = m_resources.remembered(m_address);
    if (!image.isNull())
        QMetaObject::invokeMethod(
            this,
            [this, image] {
                complete({image, {}}, std::nullopt);
            },
            Qt::QueuedConnection);
    else if (m_resources.disk().holds(m_address))
        readFromDisk();
    else
        download();
}

void QVImageLoad::readFromDisk()
{
    connect(&m_resources.disk(), &QVPictureDisk::wasRead, this,
            [this](const QString &address, const QByteArray &bytes) {
                if (address != m_address)
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
    // A host's network manager has its own cache, or none on purpose.
    m_isForDisk = !host;
    m_download = new QVBoundedDownload(QVNetworkSession::shared(), host, limits,
                                       [this](const auto &result) { handleDownload(result); });
    m_download->send(QNetworkRequest(QUrl(m_address)));
}

void QVImageLoad::handleDownload(const QVBoundedDownload::Result &result)
{
    if (result.error)
        return fail(result.error->code());
    if (result.httpStatus >= QVNetworkError::firstErrorStatus)
        return fail(QVError::OtherFailure);
    m_bytes = result.body;
    decode(m_bytes);
}

void QVImageLoad::decode(const QByteArray &bytes)
{
    const auto picture = std::make_shared<QVPicture>();
    m_decoding = m_resources.start([picture, bytes, pixels = m_pixels](const std::stop_token &stop) {
        picture->image = qv_decodedImage(bytes, stop);
        if (!picture->image.isNull() && !pixels.isEmpty())
            picture->scaled = qv_smoothlyScaled(picture->image, pixels);
    });
    connect(m_decoding, &QVBackgroundWork::finished, this, [this, picture] { handleDecoded(*picture); });
    startDeadline();
}

void QVImageLoad::handleDecoded(const QVPicture &picture)
{
    if (picture.image.isNull())
        return fail(QVError::OtherFailure);
    m_resources.remember(m_address, picture.image);
    if (m_isForDisk)
        m_resources.disk().write(m_address, m_bytes);
    complete(picture, std::nullopt);
}

void QVImageLoad::startDeadline()
{
    m_deadline.start(m_start + limits.deadline - QVScheduler::shared().now(),
                     [this] { fail(QVError::TimedOut); });
}

void QVImageLoad::stopDecoding()
{
    if (!m_decoding)
        return;
    m_decoding->disconnect(this);
    m_decoding->stop();
}

void QVImageLoad::fail(qint64 code)
{
    complete({}, QVErrorClassification::parseError(qv_networkError(code)));
}

void QVImageLoad::complete(const QVPicture &picture, const std::optional<QVError> &error)
{
    stopDecoding();
    m_resources.disk().disconnect(this);
    deleteLater();
    const Completion completion = std::exchange(m_completion, {});
    if (completion)
        completion(picture, error);
}
