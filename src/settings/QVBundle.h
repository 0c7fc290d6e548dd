#pragma once

#include "settings/QVStringsTable.h"

#include <QHash>

#include <memory>
#include <mutex>

/// A folder of resources: pictures, strings tables and folders of the same kind. Each table is read once,
/// when it is first used. Its functions may be called from any thread.
class QVBundle
{
public:
    explicit QVBundle(QString path);

    /// Null if \a path is not a folder.
    [[nodiscard]] static std::shared_ptr<const QVBundle> open(const QString &path);

    [[nodiscard]] QString path() const { return m_path; }
    /// The folder "name.type" inside; null if there is none.
    [[nodiscard]] std::shared_ptr<const QVBundle> bundle(const QString &name, const QString &type) const;
    /// The text for a key. If the key is missing, \a value; if that is null or empty, the key itself.
    [[nodiscard]] QString localizedString(const QString &key, const QString &value,
                                          const QString &table) const;
    /// The text for a key; null if the key is missing.
    [[nodiscard]] QString text(const QString &key, const QString &table) const;

private:
    const QString m_path;
    mutable std::mutex m_mutex;
    mutable QHash<QString, QVStringsTable> m_tables;
};
