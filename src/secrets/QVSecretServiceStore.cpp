#include "secrets/QVSecretServiceStore.h"

#include "secrets/QVGlibError.h"
#include "secrets/QVPromptlessService.h"
#include "secrets/QVSecretStoreEntry.h"
#include "secrets/QVSessionBus.h"

#include <libsecret/secret.h>

namespace {

using Table = std::unique_ptr<GHashTable, QVGlibRelease<g_hash_table_unref>>;
using PathList = std::unique_ptr<char *, QVGlibRelease<g_strfreev>>;
using Text = std::unique_ptr<char, QVGlibRelease<g_free>>;
using Value = std::unique_ptr<SecretValue, QVGlibRelease<secret_value_unref>>;

// Other programs write to the store too; no password is anywhere near this size.
constexpr gsize maximumSize = gsize{64} * 1024;

constexpr const char *serviceName = "service";
constexpr const char *accountName = "account";
constexpr const char *accessGroupName = "accessGroup";
constexpr const char *accessibilityName = "accessibility";

void insert(const Table &table, const char *name, const QString &value)
{
    if (!value.isNull())
        g_hash_table_insert(table.get(), g_strdup(name), g_strdup(value.toUtf8().constData()));
}

void insertSchema(const Table &table)
{
    insert(table, "xdg:schema", QStringLiteral("com.quarvo.qvkeychain"));
}

QString value(const Table &table, const char *name)
{
    return QString::fromUtf8(static_cast<const char *>(g_hash_table_lookup(table.get(), name)));
}

/// By what the items of a query are found.
Table attributesOf(const QVSecureQuery &query)
{
    Table table(g_hash_table_new_full(g_str_hash, g_str_equal, g_free, g_free));
    insert(table, serviceName, query.service);
    insert(table, accountName, query.account);
    insert(table, accessGroupName, query.accessGroup);
    // Only where nothing else narrows the search: a keyring that has not been unlocked yet knows its
    // items' attributes, but not their schema.
    if (g_hash_table_size(table.get()) == 0)
        insertSchema(table);
    return table;
}

GVariant *attributesOf(const QVSecureItem &item)
{
    const Table table = attributesOf(QVSecureQuery{item.service, item.account, item.accessGroup});
    insertSchema(table);
    insert(table, accessibilityName, item.accessibility);
    GVariantBuilder builder;
    g_variant_builder_init(&builder, G_VARIANT_TYPE("a{ss}"));
    const auto append = [](gpointer name, gpointer text, gpointer to) {
        g_variant_builder_add(static_cast<GVariantBuilder *>(to), "{ss}", static_cast<const char *>(name),
                              static_cast<const char *>(text));
    };
    g_hash_table_foreach(table.get(), append, &builder);
    return g_variant_builder_end(&builder);
}

Table propertiesOf(const QVSecureItem &item)
{
    const auto release = [](gpointer variant) {
        g_variant_unref(static_cast<GVariant *>(variant));
    };
    Table table(g_hash_table_new_full(g_str_hash, g_str_equal, g_free, release));
    const auto insertVariant = [&](const char *name, GVariant *variant) {
        g_hash_table_insert(table.get(), g_strdup(name), g_variant_ref_sink(variant));
    };
    const QByteArray label = (item.label.isNull() ? item.service : item.label).toUtf8();
    insertVariant("org.freedesktop.Secret.Item.Label", g_variant_new_string(label.constData()));
    insertVariant("org.freedesktop.Secret.Item.Attributes", attributesOf(item));
    return table;
}

Value valueOf(const QByteArray &data)
{
    return Value(secret_value_new(data.constData(), data.size(), "text/plain"));
}

/// While it lives, what GLib does on this thread comes to a context of our own, and not to the one that
/// the host's thread runs.
class OwnContext
{
public:
    explicit OwnContext(GMainContext *context)
        : m_context(context)
    {
        g_main_context_push_thread_default(m_context);
    }
    OwnContext(const OwnContext &) = delete;
    OwnContext &operator=(const OwnContext &) = delete;
    ~OwnContext() { g_main_context_pop_thread_default(m_context); }

private:
    GMainContext *m_context;
};

} // namespace

QVSecureStore *quarvoSecretStore()
{
    return std::make_unique<QVSecretServiceStore>().release();
}

QVSecretServiceStore::QVSecretServiceStore()
    : m_context(g_main_context_new())
    , m_cancellable(g_cancellable_new())
{
}

QVSecretServiceStore::~QVSecretServiceStore()
{
    disconnect();
}

QVSecureStore::Answer QVSecretServiceStore::copyMatching(const QVSecureQuery &query, Return what)
{
    Answer answer;
    answer.status = perform([&] {
        answer.items.clear();
        QList<QByteArray> paths;
        QVSecureStatus status = search(query, paths);
        if (status != QVSecureStatus::Success || what == Return::Nothing)
            return status;
        if (what == Return::Data)
            return readData(paths.constFirst(), answer.items.emplaceBack().data);
        for (auto path = paths.cbegin(); status == QVSecureStatus::Success && path != paths.cend(); ++path)
            status = readAttributes(*path, answer.items.emplaceBack());
        return status;
    });
    return answer;
}

QVSecureStatus QVSecretServiceStore::add(const QVSecureItem &item)
{
    return perform([&] {
        const Table properties = propertiesOf(item);
        QVGlibError error;
        // Replacing: another process of the same host may have stored the same since we looked.
        const Text path(secret_service_create_item_dbus_path_sync(
            m_service.get(), "/org/freedesktop/secrets/aliases/default", properties.get(),
            valueOf(item.data).get(), SECRET_ITEM_CREATE_REPLACE, m_cancellable.get(), error.place()));
        // What is missing is the collection to add to; making one would ask the user for a password.
        return error.status() == QVSecureStatus::ItemNotFound ? QVSecureStatus::NotAvailable : error.status();
    });
}

QVSecureStatus QVSecretServiceStore::update(const QVSecureQuery &query, const QByteArray &data,
                                            const QString &accessibility)
{
    return perform([&] {
        QList<QByteArray> paths;
        QVGlibPointer<SecretItem> item;
        QVSecureStatus status = search(query, paths);
        if (status == QVSecureStatus::Success)
            status = open(paths.constFirst(), item);
        if (status != QVSecureStatus::Success)
            return status;
        QVGlibError error;
        secret_item_set_secret_sync(item.get(), valueOf(data).get(), m_cancellable.get(), error.place());
        const bool isDone = error.status() != QVSecureStatus::Success || accessibility.isNull();
        return isDone ? error.status() : setAccessibility(item.get(), accessibility);
    });
}

QVSecureStatus QVSecretServiceStore::deleteMatching(const QVSecureQuery &query)
{
    return perform([&] {
        QList<QByteArray> paths;
        QVSecureStatus status = search(query, paths);
        for (auto path = paths.cbegin(); status == QVSecureStatus::Success && path != paths.cend(); ++path) {
            QVGlibError error;
            secret_service_delete_item_dbus_path_sync(m_service.get(), path->constData(), m_cancellable.get(),
                                                      error.place());
            status = error.status();
        }
        return status;
    });
}

void QVSecretServiceStore::prepare()
{
    (void)perform([&] {
        QVGlibError error;
        secret_service_ensure_session_sync(m_service.get(), m_cancellable.get(), error.place());
        return error.status();
    });
}

QVSecureStatus QVSecretServiceStore::perform(const Operation &operation)
{
    const OwnContext context(m_context.get());
    const bool isKept = m_service != nullptr;
    const QVSecureStatus status = attempt(operation);
    // A kept connection may be to a service that was started anew since.
    return status == QVSecureStatus::NotAvailable && isKept ? attempt(operation) : status;
}

QVSecureStatus QVSecretServiceStore::attempt(const Operation &operation)
{
    QVSecureStatus status = m_service ? QVSecureStatus::Success : connect();
    if (status == QVSecureStatus::Success)
        status = operation();
    if (status == QVSecureStatus::NotAvailable)
        disconnect();
    return status;
}

QVSecureStatus QVSecretServiceStore::connect()
{
    const QByteArray address = qv_sessionBusAddress();
    const auto flags = GDBusConnectionFlags(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                            G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    QVGlibError error;
    if (!address.isEmpty())
        m_connection.reset(g_dbus_connection_new_for_address_sync(address.constData(), flags, nullptr,
                                                                  m_cancellable.get(), error.place()));
    if (!m_connection)
        return QVSecureStatus::NotAvailable;
    m_service.reset(static_cast<SecretService *>(
        g_initable_new(qv_promptlessServiceType(), m_cancellable.get(), error.place(), "g-connection",
                       m_connection.get(), nullptr)));
    return error.status();
}

void QVSecretServiceStore::disconnect()
{
    m_service.reset();
    if (m_connection)
        g_dbus_connection_close(m_connection.get(), nullptr, nullptr, nullptr);
    m_connection.reset();
}

/// The items that can be read. Not allowed where all that match are locked.
QVSecureStatus QVSecretServiceStore::search(const QVSecureQuery &query, QList<QByteArray> &paths)
{
    char **unlocked = nullptr;
    char **locked = nullptr;
    QVGlibError error;
    secret_service_search_for_dbus_paths_sync(m_service.get(), nullptr, attributesOf(query).get(),
                                              m_cancellable.get(), &unlocked, &locked, error.place());
    const PathList ownUnlocked(unlocked);
    const PathList ownLocked(locked);
    for (char **path = unlocked; path && *path; ++path)
        paths.append(*path);
    if (error.status() != QVSecureStatus::Success || !paths.isEmpty())
        return error.status();
    return locked && *locked ? QVSecureStatus::InteractionNotAllowed : QVSecureStatus::ItemNotFound;
}

QVSecureStatus QVSecretServiceStore::readData(const QByteArray &path, QByteArray &data)
{
    QVGlibError error;
    const Value value(secret_service_get_secret_for_dbus_path_sync(m_service.get(), path.constData(),
                                                                   m_cancellable.get(), error.place()));
    if (!value)
        return error.status() == QVSecureStatus::Success ? QVSecureStatus::ItemNotFound : error.status();
    gsize size = 0;
    const char *const bytes = secret_value_get(value.get(), &size);
    if (size > maximumSize)
        return QVSecureStatus::Decode;
    data = QByteArray(bytes, qsizetype(size));
    return QVSecureStatus::Success;
}

QVSecureStatus QVSecretServiceStore::readAttributes(const QByteArray &path, QVSecureItem &item)
{
    QVGlibPointer<SecretItem> opened;
    const QVSecureStatus status = open(path, opened);
    if (status != QVSecureStatus::Success)
        return status;
    const Table attributes(secret_item_get_attributes(opened.get()));
    item.service = value(attributes, serviceName);
    item.account = value(attributes, accountName);
    item.accessGroup = value(attributes, accessGroupName);
    item.accessibility = value(attributes, accessibilityName);
    item.label = QString::fromUtf8(Text(secret_item_get_label(opened.get())).get());
    return QVSecureStatus::Success;
}

QVSecureStatus QVSecretServiceStore::open(const QByteArray &path, QVGlibPointer<SecretItem> &item)
{
    QVGlibError error;
    item.reset(secret_item_new_for_dbus_path_sync(m_service.get(), path.constData(), SECRET_ITEM_NONE,
                                                  m_cancellable.get(), error.place()));
    return error.status();
}

QVSecureStatus QVSecretServiceStore::setAccessibility(SecretItem *item, const QString &accessibility)
{
    const Table attributes(secret_item_get_attributes(item));
    insert(attributes, accessibilityName, accessibility);
    QVGlibError error;
    secret_item_set_attributes_sync(item, nullptr, attributes.get(), m_cancellable.get(), error.place());
    return error.status();
}
