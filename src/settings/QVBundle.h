#pragma once

#include "settings/QVStringsTable.h"

#include <QHash>

#include <memory>
#include <mutex>

/// A folder of resources: pictures, strings tables and folders of the same kind. Its tables are read
/// once, when they are first asked for.
class QVBundle
{
public:
    explicit QVBundle(QString path);

    /// Null where \a path is no folder.
    [[nodiscard]] static std::shared_ptr<const QVBundle> open(const QString &path);

    [[nodiscard]] QString path() const { return m_path; }
    /// The folder "name.type" inside, null where there is none.
    [[nodiscard]] std::shared_ptr<const QVBundle> bundle(const QString &name, const QString &type) const;
    /// The text for a key; \a value where the key is missing; the key itself where \a value is absent
    /// or empty.
    [[nodiscard]] QString localizedString(const QString &key, const QString &value,
                                          const QString &table) const;
    /// The text for a key; null where the key is missing.
    [[nodiscard]] QString text(const QString &key, const QString &table) const;

private:
    const QString m_path;
    mutable std::mutex m_mutex;
    mutable QHash<QString, QVStringsTable> m_tables;
};
