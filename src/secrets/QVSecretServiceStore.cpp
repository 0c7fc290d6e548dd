#include "secrets/QVSecretServiceStore.h"

#include "secrets/QVPromptlessService.h"

#include <algorithm>
#include <libsecret/secret.h>

namespace {

using Table = std::unique_ptr<GHashTable, QVGlibRelease<g_hash_table_unref>>;
using PathList = std::unique_ptr<char *, QVGlibRelease<g_strfreev>>;
using Text = std::unique_ptr<char, QVGlibRelease<g_free>>;
using Value = std::unique_ptr<SecretValue, QVGlibRelease<secret_value_unref>>;

// Other programs can write to the store, too. Every real password is much smaller.
constexpr gsize maximumSize = gsize{64} * 1024;

constexpr const char *serviceName = "service";
constexpr const char *accountName = "account";
constexpr const char *accessGroupName = "accessGroup";
constexpr const char *accessibilityName = "accessibility";

const SecretSchema *schema()
{
    static const SecretSchema *const made = secret_schema_new(
        "com.quarvo.qvkeychain", SECRET_SCHEMA_NONE, serviceName, SECRET_SCHEMA_ATTRIBUTE_STRING, accountName,
        SECRET_SCHEMA_ATTRIBUTE_STRING, accessGroupName, SECRET_SCHEMA_ATTRIBUTE_STRING, accessibilityName,
        SECRET_SCHEMA_ATTRIBUTE_STRING, nullptr);
    return made;
}

/// The error of a GLib call, and the status of the secure store that it stands for.
class Error
{
public:
    Error() = default;
    Error(const Error &) = delete;
    Error &operator=(const Error &) = delete;
    ~Error() { g_clear_error(&m_error); }

    /// The argument for the call.
    [[nodiscard]] GError **place() { return &m_error; }
    [[nodiscard]] QVSecureStatus status() const;

private:
    GError *m_error = nullptr;
};

QVSecureStatus Error::status() const
{
    struct Meaning
    {
        GQuark domain;
        int code;
        QVSecureStatus status;
    };
    static const Meaning meanings[]{
        {SECRET_ERROR, SECRET_ERROR_IS_LOCKED, QVSecureStatus::InteractionNotAllowed},
        {SECRET_ERROR, SECRET_ERROR_NO_SUCH_OBJECT, QVSecureStatus::ItemNotFound},
        {SECRET_ERROR, SECRET_ERROR_ALREADY_EXISTS, QVSecureStatus::DuplicateItem},
        {G_DBUS_ERROR, G_DBUS_ERROR_ACCESS_DENIED, QVSecureStatus::AuthFailed},
        {G_DBUS_ERROR, G_DBUS_ERROR_AUTH_FAILED, QVSecureStatus::AuthFailed},
        {G_DBUS_ERROR, G_DBUS_ERROR_NO_MEMORY, QVSecureStatus::Allocate},
        {G_DBUS_ERROR, G_DBUS_ERROR_LIMITS_EXCEEDED, QVSecureStatus::Allocate},
        {G_DBUS_ERROR, G_DBUS_ERROR_INVALID_ARGS, QVSecureStatus::Param},
        {G_DBUS_ERROR, G_DBUS_ERROR_UNKNOWN_METHOD, QVSecureStatus::Unimplemented},
        {G_DBUS_ERROR, G_DBUS_ERROR_NOT_SUPPORTED, QVSecureStatus::Unimplemented},
    };
    if (!m_error)
        return QVSecureStatus::Success;
    const auto *const meaning = std::ranges::find_if(meanings, [this](const Meaning &candidate) {
        return g_error_matches(m_error, candidate.domain, candidate.code);
    });
    return meaning == std::end(meanings) ? QVSecureStatus::NotAvailable : meaning->status;
}

void insert(const Table &table, const char *name, const QString &value)
{
    if (!value.isNull())
        g_hash_table_insert(table.get(), g_strdup(name), g_strdup(value.toUtf8().constData()));
}

QString value(const Table &table, const char *name)
{
    return QString::fromUtf8(static_cast<const char *>(g_hash_table_lookup(table.get(), name)));
}

/// The attributes that an item is looked up by.
Table attributesOf(const auto &item)
{
    Table table(g_hash_table_new_full(g_str_hash, g_str_equal, g_free, g_free));
    insert(table, serviceName, item.service);
    insert(table, accountName, item.account);
    insert(table, accessGroupName, item.accessGroup);
    return table;
}

Value valueOf(const QByteArray &data)
{
    return Value(secret_value_new(data.constData(), data.size(), "text/plain"));
}

} // namespace

QVSecureStore *quarvoSecretStore(const QByteArray &busAddress)
{
    return std::make_unique<QVSecretServiceStore>(busAddress).release();
}

QVSecretServiceStore::QVSecretServiceStore(QByteArray busAddress)
    : m_busAddress(std::move(busAddress))
    , m_context(g_main_context_new())
    , m_cancellable(g_cancellable_new())
{
    // GLib's callbacks for this thread go to a separate context, which nobody runs, instead of the default
    // one, which the host's main thread may run.
    g_main_context_push_thread_default(m_context.get());
}

QVSecretServiceStore::~QVSecretServiceStore()
{
    if (m_connection)
        g_dbus_connection_close(m_connection.get(), nullptr, nullptr, nullptr);
    g_main_context_pop_thread_default(m_context.get());
}

QVSecureStore::Answer QVSecretServiceStore::copyMatching(const QVSecureQuery &query, Return what)
{
    Answer answer;
    QList<QByteArray> paths;
    answer.status = search(query, paths);
    if (what == Return::Nothing)
        return answer;
    const auto read =
        what == Return::Data ? &QVSecretServiceStore::readData : &QVSecretServiceStore::readAttributes;
    if (what == Return::Data)
        paths.resize(std::min<qsizetype>(paths.size(), 1));
    for (auto path = paths.cbegin(); answer.status == QVSecureStatus::Success && path != paths.cend(); ++path)
        answer.status = (this->*read)(*path, answer.items.emplaceBack());
    return answer;
}

QVSecureStatus QVSecretServiceStore::add(const QVSecureItem &item)
{
    if (const QVSecureStatus status = connect(); status != QVSecureStatus::Success)
        return status;
    const Table attributes = attributesOf(item);
    insert(attributes, accessibilityName, item.accessibility);
    const QByteArray label = (item.label.isNull() ? item.service : item.label).toUtf8();
    // Replaces an existing item: another process of the same host may have stored one since the lookup.
    Error error;
    secret_service_store_sync(m_service.get(), schema(), attributes.get(), SECRET_COLLECTION_DEFAULT,
                              label.constData(), valueOf(item.data).get(), m_cancellable.get(),
                              error.place());
    return error.status();
}

QVSecureStatus QVSecretServiceStore::update(const QVSecureQuery &query, const QByteArray &data,
                                            const QString &accessibility)
{
    QList<QByteArray> paths;
    QVGlibPointer<SecretItem> item;
    QVSecureStatus status = search(query, paths);
    if (status == QVSecureStatus::Success)
        status = open(paths.constFirst(), item);
    if (status != QVSecureStatus::Success)
        return status;
    Error error;
    secret_item_set_secret_sync(item.get(), valueOf(data).get(), m_cancellable.get(), error.place());
    if (error.status() != QVSecureStatus::Success || accessibility.isNull())
        return error.status();
    const Table attributes(secret_item_get_attributes(item.get()));
    insert(attributes, accessibilityName, accessibility);
    secret_item_set_attributes_sync(item.get(), nullptr, attributes.get(), m_cancellable.get(),
                                    error.place());
    return error.status();
}

QVSecureStatus QVSecretServiceStore::deleteMatching(const QVSecureQuery &query)
{
    QList<QByteArray> paths;
    QVSecureStatus status = search(query, paths);
    for (auto path = paths.cbegin(); status == QVSecureStatus::Success && path != paths.cend(); ++path) {
        Error error;
        secret_service_delete_item_dbus_path_sync(m_service.get(), path->constData(), m_cancellable.get(),
                                                  error.place());
        status = error.status();
    }
    return status;
}

void QVSecretServiceStore::prepare()
{
    if (connect() == QVSecureStatus::Success)
        secret_service_ensure_session_sync(m_service.get(), m_cancellable.get(), nullptr);
}

QVSecureStatus QVSecretServiceStore::connect()
{
    if (m_service)
        return QVSecureStatus::Success;
    const auto flags = GDBusConnectionFlags(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                            G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    Error error;
    m_connection.reset(g_dbus_connection_new_for_address_sync(m_busAddress.constData(), flags, nullptr,
                                                              m_cancellable.get(), error.place()));
    if (!m_connection)
        return QVSecureStatus::NotAvailable;
    m_service.reset(static_cast<SecretService *>(
        g_initable_new(qv_promptlessServiceType(), m_cancellable.get(), error.place(), "g-connection",
                       m_connection.get(), nullptr)));
    return error.status();
}

/// Finds the items that can be read. InteractionNotAllowed if all matching items are locked.
QVSecureStatus QVSecretServiceStore::search(const QVSecureQuery &query, QList<QByteArray> &paths)
{
    if (const QVSecureStatus status = connect(); status != QVSecureStatus::Success)
        return status;
    const Table attributes = attributesOf(query);
    // The schema is used only if there are no attributes: a locked keyring knows the attributes of its items,
    // but not their schema.
    const bool isForAll = g_hash_table_size(attributes.get()) == 0;
    char **unlocked = nullptr;
    char **locked = nullptr;
    Error error;
    secret_service_search_for_dbus_paths_sync(m_service.get(), isForAll ? schema() : nullptr,
                                              attributes.get(), m_cancellable.get(), &unlocked, &locked,
                                              error.place());
    const PathList ownUnlocked(unlocked);
    const PathList ownLocked(locked);
    for (char **path = unlocked; path && *path; ++path)
        paths.append(*path);
    if (error.status() != QVSecureStatus::Success || !paths.isEmpty())
        return error.status();
    return locked && *locked ? QVSecureStatus::InteractionNotAllowed : QVSecureStatus::ItemNotFound;
}

QVSecureStatus QVSecretServiceStore::readData(const QByteArray &path, QVSecureItem &item)
{
    Error error;
    const Value value(secret_service_get_secret_for_dbus_path_sync(m_service.get(), path.constData(),
                                                                   m_cancellable.get(), error.place()));
    if (!value)
        return error.status() == QVSecureStatus::Success ? QVSecureStatus::ItemNotFound : error.status();
    gsize size = 0;
    const char *const bytes = secret_value_get(value.get(), &size);
    if (size > maximumSize)
        return QVSecureStatus::Decode;
    item.data = QByteArray(bytes, qsizetype(size));
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
    Error error;
    item.reset(secret_item_new_for_dbus_path_sync(m_service.get(), path.constData(), SECRET_ITEM_NONE,
                                                  m_cancellable.get(), error.place()));
    return error.status();
}
