#include "image/QVImageLoader.h"

#include "image/QVImageDecoder.h"
#include "image/QVImageLoad.h"
#include "image/QVImageResources.h"
#include "platform/QVMainThread.h"

#include <QCoreApplication>

QVImageLoader &QVImageLoader::shared()
{
    // Never destroyed: a host's static application object may be destroyed after our statics.
    static auto *const loader = new QVImageLoader;
    return *loader;
}

QVImageLoader::QVImageLoader() = default;

void QVImageLoader::prepare()
{
    qv_assertMainThread();
    if (m_resources)
        return;
    resources().disk().prepare();
    resources().start([](const std::stop_token &) { (void)qv_decoderReads(QByteArrayLiteral("jpeg")); });
}

bool QVImageLoader::isWorking() const
{
    return m_resources && m_resources->isWorking();
}

void QVImageLoader::load(const QString &address, QSize pixels, Completion completion)
{
    qv_assertMainThread();
    QVImageLoad::start(resources(), address, pixels, std::move(completion));
}

QVImageResources &QVImageLoader::resources()
{
    if (!m_resources) {
        m_resources = std::make_unique<QVImageResources>();
        // Sockets and threads must be destroyed before the application object.
        qAddPostRoutine([] { shared().m_resources.reset(); });
    }
    return *m_resources;
}
