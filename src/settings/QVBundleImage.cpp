#include "settings/QVBundleImage.h"

#include "settings/QVBundle.h"
#include "settings/QVInternalConsistencyError.h"
#include "settings/QVMainBundle.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>
#include <QPixmapCache>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr int largestScale = 3;
// A host may ship its own pictures: these limit the cost of decoding one.
constexpr qint64 maximumPictureSize = 1 << 20;
constexpr int maximumSide = 2048;

std::shared_ptr<const QVBundle> resourceBundle()
{
    return QVMainBundle::shared().bundle(QStringLiteral("QVResource"));
}

QString scaledPath(const QString &folder, const QString &name, int scale)
{
    const QFileInfo info(name);
    const QString suffix = info.suffix().isEmpty() ? QStringLiteral("png") : info.suffix();
    const QString mark = scale == 1 ? QString() : QStringLiteral("@%1x").arg(scale);
    return folder + u'/' + info.completeBaseName() + mark + u'.' + suffix;
}

QImage readBounded(const QString &path)
{
    if (QFileInfo(path).size() > maximumPictureSize)
        return {};
    QImageReader reader(path);
    const QSize size = reader.size();
    if (size.isEmpty() || size.width() > maximumSide || size.height() > maximumSide)
        return {};
    return reader.read();
}

// First the wanted scale, then larger ones, which lose no detail, then smaller ones, the largest first.
std::array<int, largestScale> scalesByPreference(qreal devicePixelRatio)
{
    const int wanted = std::clamp(static_cast<int>(std::ceil(devicePixelRatio)), 1, largestScale);
    std::array<int, largestScale> scales{1, 2, 3};
    std::ranges::sort(scales, {},
                      [wanted](int scale) { return scale >= wanted ? scale : 2 * largestScale - scale; });
    return scales;
}

QPixmap readPicture(const QString &folder, const QString &name, qreal devicePixelRatio)
{
    for (const int scale : scalesByPreference(devicePixelRatio)) {
        // The reader takes the ratio from the name of the file.
        const QPixmap picture = QPixmap::fromImage(readBounded(scaledPath(folder, name, scale)));
        if (!picture.isNull())
            return picture;
    }
    return {};
}

QPixmap keptPicture(const QString &folder, const QString &name, qreal devicePixelRatio)
{
    const QString cacheKey = folder + u'/' + name + u'@' + QString::number(devicePixelRatio);
    QPixmap picture;
    if (QPixmapCache::find(cacheKey, &picture))
        return picture;
    picture = readPicture(folder, name, devicePixelRatio);
    if (!picture.isNull())
        QPixmapCache::insert(cacheKey, picture);
    return picture;
}

} // namespace

std::shared_ptr<const QVBundle> qv_bundle()
{
    auto bundle = resourceBundle();
    if (!bundle)
        throw QVInternalConsistencyError("QVResource.bundle 在项目中不存在！！！！");
    return bundle;
}

QPixmap qv_imageFromBundleWithName(const QString &name)
{
    return qv_imageFromBundleWithName(name, qGuiApp->devicePixelRatio());
}

QPixmap qv_imageFromBundleWithName(const QString &name, qreal devicePixelRatio)
{
    QPixmap picture;
    for (const auto &bundle : {QVMainBundle::shared().hostBundle(), resourceBundle()}) {
        if (bundle && picture.isNull())
            picture = keptPicture(bundle->path(), name, devicePixelRatio);
    }
    return picture;
}

QCursor qv_penCursor()
{
    // The position of the pen's tip in the picture.
    constexpr QPoint tip(2, 22);
    return QCursor(qv_imageFromBundleWithName(QStringLiteral("qv_draw_pen")), tip.x(), tip.y());
}
