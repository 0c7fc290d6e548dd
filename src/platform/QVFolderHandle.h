#pragma once

#include "platform/QVDescriptor.h"

#include <QStringList>

/// An open folder. Operations by name stay inside it: no link is followed, not even one that is put there
/// meanwhile, and nothing that belongs to another user is opened or removed.
///
/// Windows has no such calls, so a port to it needs other means to keep pictures on disk.
class QVFolderHandle
{
public:
    /// A closed handle.
    QVFolderHandle() = default;
    /// Opens a folder by its path. Links in the path are followed. Closed if there is no such folder.
    explicit QVFolderHandle(const QString &path);

    [[nodiscard]] bool isOpen() const { return m_descriptor.isOpen(); }
    /// Whether only its owner can read it and write to it.
    [[nodiscard]] bool isPrivate() const;
    /// A path that leads to this folder while it is open, even if it was moved or replaced.
    [[nodiscard]] QString path() const;
    [[nodiscard]] QStringList names() const;

    /// Opens a folder that belongs to the user. Closed if \a name is anything else, such as a link.
    [[nodiscard]] QVFolderHandle subfolder(const QString &name) const;
    /// Makes a private folder. Returns false if \a name exists, or it cannot be made.
    [[nodiscard]] bool makeSubfolder(const QString &name) const;
    /// Removes an empty folder.
    void removeSubfolder(const QString &name) const;
    /// Removes a regular file that belongs to the user.
    void removeFile(const QString &name) const;

    /// Makes a file that is locked while the result is open. The result is closed if it cannot be made.
    [[nodiscard]] QVDescriptor makeLock(const QString &name) const;
    /// Locks a file that makeLock() has made. The result is closed if there is no such file, or it is locked.
    [[nodiscard]] QVDescriptor takeLock(const QString &name) const;

private:
    explicit QVFolderHandle(QVDescriptor descriptor)
        : m_descriptor(std::move(descriptor))
    {
    }

    QVDescriptor m_descriptor;
};
