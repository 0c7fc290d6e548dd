#pragma once

#include <QLockFile>
#include <QString>

#include <memory>

/// Where downloaded pictures are kept on disk: a folder of this process alone, readable by its user
/// alone, below the application's cache location.
///
/// A folder for each process, because two running copies of a host must not clear away each other's
/// files. What a process left is removed when the same host runs next.
class QVPictureCacheFolder
{
public:
    [[nodiscard]] static QVPictureCacheFolder &shared();

    /// The folder, made on first use, which also clears what lies beside it; empty where the disk does
    /// not let us make it.
    [[nodiscard]] QString path();
    /// Starts removing, on a background thread, what earlier processes left: some
    /// megabytes for each. Only the end of the application object waits for it.
    static void clearInBackground();

private:
    QString m_path;
    std::unique_ptr<QLockFile> m_lock;
};
