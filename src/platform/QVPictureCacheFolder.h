#pragma once

#include "platform/QVFolderHandle.h"

#include <QString>

/// Where downloaded pictures are kept on disk: a folder of this process alone, readable by its user
/// alone, below the application's cache location.
///
/// A folder for each process, because two running copies of a host must not clear away each other's
/// files. What a process left is removed when the same host runs next. Nothing else is: whatever lies
/// there that this class and QNetworkDiskCache did not make is left alone.
class QVPictureCacheFolder
{
public:
    [[nodiscard]] static QVPictureCacheFolder &shared();

    /// The folder, made on first use, which also clears what lies beside it. Empty, and logged, where
    /// there is no place for it that is its user's alone.
    [[nodiscard]] QString path();
    /// Removes what earlier processes left, some megabytes for each.
    static void clear();
    /// Does the same on a thread of its own, once in a process. Only the end of the process waits for it.
    static void clearInBackground();

private:
    [[nodiscard]] bool make(const QString &cache);

    QVFolderHandle m_folder;
    QVDescriptor m_lock;
};
