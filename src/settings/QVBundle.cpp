#include "settings/QVBundle.h"

#include <QFileInfo>

#include <utility>

QVBundle::QVBundle(QString path)
    : m_path(std::move(path))
{
}

std::shared_ptr<const QVBundle> QVBundle::open(const QString &path)
{
    return QFileInfo(path).isDir() ? std::make_shared<const QVBundle>(path) : nullptr;
}

std::shared_ptr<const QVBundle> QVBundle::bundle(const QString &name, const QString &type) const
{
    return open(m_path + u'/' + name + u'.' + type);
}

QString QVBundle::localizedString(const QString &key, const QString &value, const QString &table) const
{
    const QString found = text(key, table);
    if (!found.isNull())
        return found;
    return value.isEmpty() ? key : value;
}

QString QVBundle::text(const QString &key, const QString &table) const
{
    const std::scoped_lock lock(m_mutex);
    auto entry = m_tables.constFind(table);
    if (entry == m_tables.constEnd())
        entry =
            m_tables.insert(table, QVStringsTable::read(m_path + u'/' + table + QLatin1String(".strings")));
    return entry->text(key);
}
