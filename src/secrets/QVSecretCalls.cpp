#include "secrets/QVSecretCalls.h"

#include "secrets/QVSecretAttributes.h"

namespace {

using PathList = std::unique_ptr<char *, QVGlibRelease<g_strfreev>>;
using Text = std::unique_ptr<char, QVGlibRelease<g_free>>;
using Value = std::unique_ptr<SecretValue, QVGlibRelease<secret_value_unref>>;

// Other programs write to the store too; no password is anywhere near this size.
constexpr gsize maximumSize = gsize{64} * 1024;

Value makeValue(const QByteArray &data)
{
    return Value(secret_value_new(data.constData(), data.size(), "text/plain"));
}

void insertVariant(GHashTable *table, const char *name, GVariant *variant)
{
    g_hash_table_insert(table, g_strdup(name), g_variant_ref_sink(variant));
}

GVariant *dictionary(GHashTable *attributes)
{
    GVariantBuilder builder;
    g_variant_builder_init(&builder, G_VARIANT_TYPE("a{ss}"));
    GHashTableIter entry;
    gpointer name = nullptr;
    gpointer value = nullptr;
    g_hash_table_iter_init(&entry, attributes);
    while (g_hash_table_iter_next(&entry, &name, &value))
        g_variant_builder_add(&builder, "{ss}", static_cast<char *>(name), static_cast<char *>(value));
    return g_variant_builder_end(&builder);
}

QVSecretAttributes::Table properties(const QVSecureItem &item)
{
    QVSecretAttributes::Table table(
        g_hash_table_new_full(g_str_hash, g_str_equal, g_free,
                              [](gpointer variant) { g_variant_unref(static_cast<GVariant *>(variant)); }));
    const QString label = item.label.isNull() ? item.service : item.label;
    insertVariant(table.get(), "org.freedesktop.Secret.Item.Label",
                  g_variant_new_string(label.toUtf8().constData()));
    insertVariant(table.get(), "org.freedesktop.Secret.Item.Attributes",
                  dictionary(QVSecretAttributes::ofItem(item).get()));
    return table;
}

} // namespace

QVSecretCalls::QVSecretCalls(QVGlibLoop &loop, SecretService *service)
    : m_loop(loop)
    , m_service(service)
{
}

QVSecureStatus QVSecretCalls::openSession()
{
    return m_loop.run([&](auto... wait) { secret_service_ensure_session(m_service, wait...); },
                      [&](GAsyncResult *result, GError **error) {
                          secret_service_ensure_session_finish(m_service, result, error);
                      });
}

QVSecureStatus QVSecretCalls::search(const QVSecureQuery &query, Paths &paths,
                                     const std::function<void()> &meanwhile)
{
    char **unlocked = nullptr;
    char **locked = nullptr;
    const auto attributes = QVSecretAttributes::ofQuery(query);
    auto pending = m_loop.begin([&](auto... wait) {
        secret_service_search_for_dbus_paths(m_service, nullptr, attributes.get(), wait...);
    });
    if (meanwhile)
        meanwhile();
    const auto status = pending.wait([&](GAsyncResult *result, GError **error) {
        secret_service_search_for_dbus_paths_finish(m_service, result, &unlocked, &locked, error);
    });
    const PathList ownUnlocked(unlocked);
    const PathList ownLocked(locked);
    if (status != QVSecureStatus::Success)
        return status;
    for (char **path = unlocked; path && *path; ++path)
        paths.emplace_back(*path);
    if (!paths.empty())
        return QVSecureStatus::Success;
    return locked && *locked ? QVSecureStatus::InteractionNotAllowed : QVSecureStatus::ItemNotFound;
}

QVSecretCalls::Reading QVSecretCalls::beginReading(const std::string &path)
{
    return m_loop.begin(
        [&](auto... wait) { secret_service_get_secret_for_dbus_path(m_service, path.c_str(), wait...); });
}

QVSecureStatus QVSecretCalls::finishReading(Reading &reading, QByteArray &data)
{
    Value value;
    const auto status = reading.wait([&](GAsyncResult *result, GError **error) {
        value.reset(secret_service_get_secret_for_dbus_path_finish(m_service, result, error));
    });
    if (status != QVSecureStatus::Success)
        return status;
    if (!value)
        return QVSecureStatus::ItemNotFound;
    gsize size = 0;
    const char *bytes = secret_value_get(value.get(), &size);
    if (size > maximumSize)
        return QVSecureStatus::Decode;
    data = QByteArray(bytes, static_cast<qsizetype>(size));
    return QVSecureStatus::Success;
}

QVSecureStatus QVSecretCalls::readAttributes(const std::string &path, QVSecureItem &item)
{
    QVGlibPointer<SecretItem> opened;
    const auto status = open(path, opened);
    if (status != QVSecureStatus::Success)
        return status;
    const QVSecretAttributes::Table attributes(secret_item_get_attributes(opened.get()));
    QVSecretAttributes::read(attributes.get(), item);
    item.label = QString::fromUtf8(Text(secret_item_get_label(opened.get())).get());
    return QVSecureStatus::Success;
}

QVSecureStatus QVSecretCalls::create(const QVSecureItem &item)
{
    const auto fields = properties(item);
    const Value value = makeValue(item.data);
    return m_loop.run(
        [&](auto... wait) {
            // Replacing: another process of the same host may have stored the same since we looked.
            secret_service_create_item_dbus_path(m_service, "/org/freedesktop/secrets/aliases/default",
                                                 fields.get(), value.get(), SECRET_ITEM_CREATE_REPLACE,
                                                 wait...);
        },
        [&](GAsyncResult *result, GError **error) {
            const Text path(secret_service_create_item_dbus_path_finish(m_service, result, error));
        });
}

QVSecureStatus QVSecretCalls::replace(const std::string &path, const QByteArray &data,
                                      const QString &accessibility)
{
    QVGlibPointer<SecretItem> item;
    auto status = open(path, item);
    if (status == QVSecureStatus::Success)
        status = setData(item.get(), data);
    if (status == QVSecureStatus::Success && !accessibility.isNull())
        status = setAccessibility(item.get(), accessibility);
    return status;
}

QVSecureStatus QVSecretCalls::remove(const std::string &path)
{
    return m_loop.run(
        [&](auto... wait) { secret_service_delete_item_dbus_path(m_service, path.c_str(), wait...); },
        [&](GAsyncResult *result, GError **error) {
            secret_service_delete_item_dbus_path_finish(m_service, result, error);
        });
}

QVSecureStatus QVSecretCalls::open(const std::string &path, QVGlibPointer<SecretItem> &item)
{
    return m_loop.run(
        [&](auto... wait) {
            secret_item_new_for_dbus_path(m_service, path.c_str(), SECRET_ITEM_NONE, wait...);
        },
        [&](GAsyncResult *result, GError **error) {
            item.reset(secret_item_new_for_dbus_path_finish(result, error));
        });
}

QVSecureStatus QVSecretCalls::setData(SecretItem *item, const QByteArray &data)
{
    const Value value = makeValue(data);
    return m_loop.run(
        [&](auto... wait) { secret_item_set_secret(item, value.get(), wait...); },
        [&](GAsyncResult *result, GError **error) { secret_item_set_secret_finish(item, result, error); });
}

QVSecureStatus QVSecretCalls::setAccessibility(SecretItem *item, const QString &accessibility)
{
    const QVSecretAttributes::Table attributes(secret_item_get_attributes(item));
    QVSecretAttributes::setAccessibility(attributes.get(), accessibility);
    return m_loop.run(
        [&](auto... wait) { secret_item_set_attributes(item, nullptr, attributes.get(), wait...); },
        [&](GAsyncResult *result, GError **error) {
            secret_item_set_attributes_finish(item, result, error);
        });
}
