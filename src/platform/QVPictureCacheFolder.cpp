#include "platform/QVPictureCacheFolder.h"

#include <QDir>
#include <QStandardPaths>
#include <QThreadPool>
#include <QUuid>

namespace {

constexpr QFile::Permissions ownerOnly = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

QString rootPath()
{
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
    return cache.isEmpty() ? QString() : cache + QStringLiteral("/quarvo-pictures");
}

QString lockPath(const QString &folder)
{
    return folder + QStringLiteral(".lock");
}

bool makePrivateFolder(const QString &path)
{
    return QDir().mkpath(path) && QFile::setPermissions(path, ownerOnly);
}

void removeAbandonedFolders(const QString &root)
{
    const QDir dir(root);
    for (const QString &name : dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QString folder = dir.filePath(name);
        QLockFile lock(lockPath(folder));
        // Zero: a lock counts as abandoned only when its process is gone, however old it is.
        lock.setStaleLockTime(0);
        if (lock.tryLock(0))
            QDir(folder).removeRecursively();
    }
}

void startRemovingAbandonedFolders(const QString &root)
{
    QThreadPool::globalInstance()->start([root] { removeAbandonedFolders(root); });
}

} // namespace

QVPictureCacheFolder &QVPictureCacheFolder::shared()
{
    static QVPictureCacheFolder folder;
    return folder;
}

QString QVPictureCacheFolder::path()
{
    if (m_lock)
        return m_path;
    const QString root = rootPath();
    if (root.isEmpty() || !makePrivateFolder(root))
        return {};
    const QString folder = root + u'/' + QUuid::createUuid().toString(QUuid::Id128);
    auto lock = std::make_unique<QLockFile>(lockPath(folder));
    lock->setStaleLockTime(0);
    // Locked before it exists, so that no other process can take it for abandoned.
    if (!lock->tryLock(0) || !makePrivateFolder(folder))
        return {};
    m_path = folder;
    m_lock = std::move(lock);
    // A host may have named itself, and thereby another root, only since the first clearing.
    startRemovingAbandonedFolders(root);
    return m_path;
}

void QVPictureCacheFolder::clearInBackground()
{
    const QString root = rootPath();
    if (!root.isEmpty())
        startRemovingAbandonedFolders(root);
}
