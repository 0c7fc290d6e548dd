#include "platform/QVFolderHandle.h"

#include <QDir>
#include <QFile>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace {

constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;
constexpr int lockFlags = O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
constexpr mode_t othersPermissions = S_IRWXG | S_IRWXO;

bool isOwned(const struct stat &info)
{
    return info.st_uid == ::geteuid();
}

} // namespace

QVFolderHandle::QVFolderHandle(const QString &path)
    : m_descriptor(::open(QFile::encodeName(path).constData(), folderFlags))
{
}

bool QVFolderHandle::isPrivate() const
{
    struct stat info
    {
    };
    return ::fstat(m_descriptor.value(), &info) == 0 && (info.st_mode & othersPermissions) == 0;
}

QString QVFolderHandle::path() const
{
    return QStringLiteral("/proc/self/fd/%1").arg(m_descriptor.value());
}

QStringList QVFolderHandle::names() const
{
    return QDir(path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                                  QDir::Unsorted);
}

QVFolderHandle QVFolderHandle::subfolder(const QString &name) const
{
    QVDescriptor folder(
        ::openat(m_descriptor.value(), QFile::encodeName(name).constData(), folderFlags | O_NOFOLLOW));
    struct stat info
    {
    };
    if (::fstat(folder.value(), &info) != 0 || !isOwned(info))
        return {};
    return QVFolderHandle(std::move(folder));
}

bool QVFolderHandle::makeSubfolder(const QString &name) const
{
    return ::mkdirat(m_descriptor.value(), QFile::encodeName(name).constData(), S_IRWXU) == 0;
}

void QVFolderHandle::removeSubfolder(const QString &name) const
{
    ::unlinkat(m_descriptor.value(), QFile::encodeName(name).constData(), AT_REMOVEDIR);
}

void QVFolderHandle::removeFile(const QString &name) const
{
    const QByteArray file = QFile::encodeName(name);
    struct stat info
    {
    };
    if (::fstatat(m_descriptor.value(), file.constData(), &info, AT_SYMLINK_NOFOLLOW) == 0 &&
        S_ISREG(info.st_mode) && isOwned(info))
        ::unlinkat(m_descriptor.value(), file.constData(), 0);
}

QVDescriptor QVFolderHandle::makeLock(const QString &name) const
{
    // Locked before it gets its name, so that no other process can find it unlocked.
    const QByteArray file = QFile::encodeName(name);
    const QByteArray unnamed = file + ".new";
    QVDescriptor lock(
        ::openat(m_descriptor.value(), unnamed.constData(), lockFlags | O_CREAT | O_EXCL, S_IRUSR | S_IWUSR));
    if (::flock(lock.value(), LOCK_EX | LOCK_NB) != 0 ||
        ::renameat(m_descriptor.value(), unnamed.constData(), m_descriptor.value(), file.constData()) != 0)
        return {};
    return lock;
}

QVDescriptor QVFolderHandle::takeLock(const QString &name) const
{
    QVDescriptor lock(::openat(m_descriptor.value(), QFile::encodeName(name).constData(), lockFlags));
    return ::flock(lock.value(), LOCK_EX | LOCK_NB) == 0 ? std::move(lock) : QVDescriptor();
}
