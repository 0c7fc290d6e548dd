#pragma once

#include "platform/QVFolderHandle.h"

#include <QString>

/// The folder of the downloaded pictures on disk, below the application's cache location. Each process has
/// its own, which only its user can read.
///
/// Each process has its own folder because two running copies of a host must not remove each other's files. A
/// folder that a process has left behind is removed when the same host runs next. Files that neither this
/// class nor QNetworkDiskCache has made are not touched.
class QVPictureCacheFolder
{
public:
    [[nodiscard]] static QVPictureCacheFolder &shared();

    /// The folder. The first call makes it and removes the abandoned folders beside it. Empty, with a warning
    /// in the log, if there is no place that only the user can read.
    [[nodiscard]] QString path();
    /// Removes the folders that earlier processes have left, some megabytes each.
    static void clear();
    /// Does the same on a new thread, once in a process. Only the end of the process waits for it.
    static void clearInBackground();

private:
    [[nodiscard]] bool make(const QString &cache);

    QVFolderHandle m_folder;
    QVDescriptor m_lock;
};
