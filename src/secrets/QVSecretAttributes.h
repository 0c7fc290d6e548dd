#pragma once

#include "secrets/QVGlibPointer.h"
#include "secrets/QVSecureItem.h"

/// What an item of ours is found by in the Secret Service: names and values in a table.
class QVSecretAttributes
{
public:
    using Table = std::unique_ptr<GHashTable, QVGlibRelease<g_hash_table_unref>>;

    QVSecretAttributes() = delete;

    [[nodiscard]] static Table ofQuery(const QVSecureQuery &query);
    [[nodiscard]] static Table ofItem(const QVSecureItem &item);

    static void setAccessibility(GHashTable *table, const QString &accessibility);
    /// Fills in what the table knows of an item.
    static void read(GHashTable *table, QVSecureItem &item);
};
