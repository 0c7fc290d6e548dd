#include "sandbox/SandboxPictureStore.h"

#include "sandbox/SandboxPainter.h"

#include <QPromise>

namespace {

constexpr qsizetype maximumPictures = 64;
constexpr int threads = 2;

} // namespace

SandboxPictureStore::SandboxPictureStore()
{
    m_pool.setMaxThreadCount(threads);
}

void SandboxPictureStore::add(const QString &stem, const SandboxPuzzle &puzzle)
{
    keep(stem, {puzzle, drawn(puzzle, 2), std::nullopt});
}

void SandboxPictureStore::addBroken(const QString &stem)
{
    QPromise<QByteArray> garbage;
    garbage.start();
    garbage.addResult(QByteArrayLiteral("not a picture"));
    garbage.finish();
    keep(stem, {{}, garbage.future(), garbage.future()});
}

std::optional<QFuture<QByteArray>> SandboxPictureStore::file(const QString &path)
{
    const QLatin1String format(".jpg");
    const QLatin1String plainSize("@1x");
    if (!path.endsWith(format))
        return std::nullopt;
    QString stem = path.chopped(format.size());
    const bool isPlain = stem.endsWith(plainSize);
    if (isPlain)
        stem.chop(plainSize.size());
    const auto found = m_pictures.find(stem);
    if (found == m_pictures.end())
        return std::nullopt;
    if (!isPlain)
        return found->sharp;
    if (!found->plain)
        found->plain = drawn(found->puzzle, 1);
    return found->plain;
}

void SandboxPictureStore::keep(const QString &stem, const Picture &picture)
{
    m_pictures.insert(stem, picture);
    m_order.enqueue(stem);
    if (m_order.size() > maximumPictures)
        m_pictures.remove(m_order.dequeue());
}

QFuture<QByteArray> SandboxPictureStore::drawn(const SandboxPuzzle &puzzle, int scale)
{
    const auto promise = std::make_shared<QPromise<QByteArray>>();
    promise->start();
    m_pool.start([promise, puzzle, scale] {
        promise->addResult(SandboxPainter(puzzle, scale).jpeg());
        promise->finish();
    });
    return promise->future();
}
