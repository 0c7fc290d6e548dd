#pragma once

#include "platform/QVDescriptor.h"

#include <QStringList>

/// A folder held open. What is done in it by name stays in it: no link is followed, not even one that
/// is put there meanwhile, and nothing that belongs to another user is opened or removed.
///
/// Windows has no such calls. A port to it keeps no pictures on disk until it has others.
class QVFolderHandle
{
public:
    /// Closed.
    QVFolderHandle() = default;
    /// Opens a folder by its path, in which links are followed. Closed where there is none.
    explicit QVFolderHandle(const QString &path);

    [[nodiscard]] bool isOpen() const { return m_descriptor.isOpen(); }
    /// Whether its owner alone can read it and write to it.
    [[nodiscard]] bool isPrivate() const;
    /// A path to this very folder while it is open, wherever it was moved and whatever has its place.
    [[nodiscard]] QString path() const;
    [[nodiscard]] QStringList names() const;

    /// A real folder of the user's own; closed where \a name is something else.
    [[nodiscard]] QVFolderHandle subfolder(const QString &name) const;
    /// Makes a private folder. False where \a name is taken.
    [[nodiscard]] bool makeSubfolder(const QString &name) const;
    /// Removes an empty folder.
    void removeSubfolder(const QString &name) const;
    /// Removes a regular file of the user's own.
    void removeFile(const QString &name) const;

    /// Makes a file that is locked while the result is open. Closed where it cannot be made.
    [[nodiscard]] QVDescriptor makeLock(const QString &name) const;
    /// Locks a file that makeLock() made. Closed where there is none, or it is still locked.
    [[nodiscard]] QVDescriptor takeLock(const QString &name) const;

private:
    explicit QVFolderHandle(QVDescriptor descriptor)
        : m_descriptor(std::move(descriptor))
    {
    }

    QVDescriptor m_descriptor;
};
