#include "secrets/QVSecretAttributes.h"

namespace {

constexpr const char *schemaName = "xdg:schema";
constexpr const char *serviceName = "service";
constexpr const char *accountName = "account";
constexpr const char *accessGroupName = "accessGroup";
constexpr const char *accessibilityName = "accessibility";

QString schema()
{
    return QStringLiteral("com.quarvo.qvkeychain");
}

QVSecretAttributes::Table empty()
{
    return QVSecretAttributes::Table(g_hash_table_new_full(g_str_hash, g_str_equal, g_free, g_free));
}

void insert(GHashTable *table, const char *name, const QString &value)
{
    if (!value.isNull())
        g_hash_table_insert(table, g_strdup(name), g_strdup(value.toUtf8().constData()));
}

QString value(GHashTable *table, const char *name)
{
    return QString::fromUtf8(static_cast<const char *>(g_hash_table_lookup(table, name)));
}

} // namespace

QVSecretAttributes::Table QVSecretAttributes::ofQuery(const QVSecureQuery &query)
{
    Table table = empty();
    insert(table.get(), serviceName, query.service);
    insert(table.get(), accountName, query.account);
    insert(table.get(), accessGroupName, query.accessGroup);
    // Only where nothing else narrows the search: a keyring that has not been unlocked yet knows its
    // items' attributes, but not their schema.
    if (g_hash_table_size(table.get()) == 0)
        insert(table.get(), schemaName, schema());
    return table;
}

QVSecretAttributes::Table QVSecretAttributes::ofItem(const QVSecureItem &item)
{
    Table table = ofQuery({item.service, item.account, item.accessGroup});
    insert(table.get(), schemaName, schema());
    setAccessibility(table.get(), item.accessibility);
    return table;
}

void QVSecretAttributes::setAccessibility(GHashTable *table, const QString &accessibility)
{
    insert(table, accessibilityName, accessibility);
}

void QVSecretAttributes::read(GHashTable *table, QVSecureItem &item)
{
    item.service = value(table, serviceName);
    item.account = value(table, accountName);
    item.accessGroup = value(table, accessGroupName);
    item.accessibility = value(table, accessibilityName);
}
