#include "platform/QVPictureCacheFolder.h"

#include <QDir>
#include <QLoggingCategory>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QUuid>

#include <span>
#include <system_error>
#include <thread>

namespace {

Q_LOGGING_CATEGORY(platformLog, "quarvo.platform", QtInfoMsg)

QString rootName()
{
    return QStringLiteral("quarvo-pictures");
}

QString lockName()
{
    return QStringLiteral("quarvo.lock");
}

QString cachePath()
{
    return QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
}

bool isNamed(const QString &name, const QString &pattern)
{
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(name).hasMatch();
}

/// Closed if the folder is missing, is a link, belongs to another user, or is open to others.
QVFolderHandle openRoot(const QString &cache)
{
    QVFolderHandle root = QVFolderHandle(cache).subfolder(rootName());
    return root.isPrivate() ? std::move(root) : QVFolderHandle();
}

/// Removes the files that QNetworkDiskCache makes, and its folders that are empty after that. \a folderNames
/// has a pattern for the names of each level.
void removeCacheFiles(const QVFolderHandle &folder, std::span<const QString> folderNames)
{
    for (const QString &name : folder.names()) {
        if (isNamed(name, QStringLiteral("[-0-9A-Za-z]{1,8}\\.d"))) {
            folder.removeFile(name);
        } else if (!folderNames.empty() && isNamed(name, folderNames.front())) {
            removeCacheFiles(folder.subfolder(name), folderNames.subspan(1));
            folder.removeSubfolder(name);
        }
    }
}

void removeAbandonedFolders(const QString &cache)
{
    const std::array cacheFolders{QStringLiteral("data[0-9]+|prepared"), QStringLiteral("[0-9a-f]")};
    const QVFolderHandle root = openRoot(cache);
    for (const QString &name : root.names()) {
        if (!isNamed(name, QStringLiteral("[0-9a-f]{32}")))
            continue;
        const QVFolderHandle folder = root.subfolder(name);
        const QVDescriptor lock = folder.takeLock(lockName());
        if (!lock.isOpen())
            continue;
        removeCacheFiles(folder, cacheFolders);
        folder.removeFile(lockName());
        root.removeSubfolder(name);
    }
}

} // namespace

QVPictureCacheFolder &QVPictureCacheFolder::shared()
{
    static QVPictureCacheFolder folder;
    return folder;
}

QString QVPictureCacheFolder::path()
{
    if (m_lock.isOpen())
        return m_folder.path();
    const QString cache = cachePath();
    if (!make(cache)) {
        qCWarning(platformLog,
                  "No pictures are kept on disk: there is no cache folder that only its user can read");
        return {};
    }
    // The cache location depends on the application's name, which the host may have set since the first
    // clearing.
    removeAbandonedFolders(cache);
    return m_folder.path();
}

bool QVPictureCacheFolder::make(const QString &cache)
{
    if (cache.isEmpty() || !QDir().mkpath(cache))
        return false;
    // If the folder exists already, openRoot() checks it.
    (void)QVFolderHandle(cache).makeSubfolder(rootName());
    const QVFolderHandle root = openRoot(cache);
    const QString name = QUuid::createUuid().toString(QUuid::Id128);
    if (!root.makeSubfolder(name))
        return false;
    m_folder = root.subfolder(name);
    m_lock = m_folder.makeLock(lockName());
    return m_lock.isOpen();
}

void QVPictureCacheFolder::clear()
{
    removeAbandonedFolders(cachePath());
}

void QVPictureCacheFolder::clearInBackground()
{
    try {
        static const std::jthread clearing([cache = cachePath()] { removeAbandonedFolders(cache); });
    } catch (const std::system_error &) {
        qCWarning(platformLog, "Pictures of earlier runs stay on disk: no thread can be started");
    }
}
