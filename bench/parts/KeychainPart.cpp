#include "parts/PartTools.h"
#include "settings/QVConfigurationManager.h"

#include <csignal>
#include <libsecret/secret.h>

namespace {

constexpr const char *serviceName = "org.freedesktop.secrets";

/// The calls as GLib alone makes them, on a connection of its own.
class BareService
{
public:
    BareService()
        : m_bus(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr))
    {
        GVariant *opened = call("/org/freedesktop/secrets", "org.freedesktop.Secret.Service", "OpenSession",
                                g_variant_new("(sv)", "plain", g_variant_new_string("")));
        g_variant_get(opened, "(vo)", nullptr, &m_session);
        g_variant_unref(opened);
    }
    BareService(const BareService &) = delete;
    BareService &operator=(const BareService &) = delete;
    ~BareService()
    {
        g_free(m_session);
        g_object_unref(m_bus);
    }

    /// The path of our item.
    [[nodiscard]] std::string search()
    {
        GVariantBuilder attributes;
        g_variant_builder_init(&attributes, G_VARIANT_TYPE("a{ss}"));
        g_variant_builder_add(&attributes, "{ss}", "service", "com.quarvo.qv");
        GVariant *found = call("/org/freedesktop/secrets", "org.freedesktop.Secret.Service", "SearchItems",
                               g_variant_new("(a{ss})", &attributes));
        char **unlocked = nullptr;
        g_variant_get(found, "(^aoao)", &unlocked, nullptr);
        const std::string path = unlocked && *unlocked ? *unlocked : "";
        g_strfreev(unlocked);
        g_variant_unref(found);
        return path;
    }

    void getSecret(const std::string &path)
    {
        g_variant_unref(
            call(path.c_str(), "org.freedesktop.Secret.Item", "GetSecret", g_variant_new("(o)", m_session)));
    }

private:
    GVariant *call(const char *path, const char *interface, const char *method, GVariant *arguments)
    {
        GError *error = nullptr;
        GVariant *answer = g_dbus_connection_call_sync(m_bus, serviceName, path, interface, method, arguments,
                                                       nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr, &error);
        if (!answer)
            qFatal("%s: %s", method, error->message);
        return answer;
    }

    GDBusConnection *m_bus;
    char *m_session = nullptr;
};

double lookUp()
{
    const double start = benchNow();
    if (QVConfigurationManager::sharedManager().deviceId().isEmpty())
        qFatal("no identifier");
    return benchNow() - start;
}

void tellHanging(const PartOptions &options)
{
    constexpr double bound = 300;
    kill(pid_t(options.keyring), SIGSTOP);
    const double first = lookUp();
    const double second = lookUp();
    kill(pid_t(options.keyring), SIGCONT);
    tellRow({QStringLiteral("key chain that hangs: the lookup that meets it"), QStringLiteral("ms"),
             first / nanosecondsPerMillisecond, -1, BenchRow::Target::AtMost, bound});
    tellRow({QStringLiteral("key chain that hangs: the lookup after that"), QStringLiteral("ms"),
             second / nanosecondsPerMillisecond, -1, BenchRow::Target::AtMost, 1});
}

} // namespace

void runKeychainPart(const PartOptions &options)
{
    const double first = lookUp();
    BareService bare;
    const std::string path = bare.search();
    const int rounds = options.rounds(400, 10);
    const auto timed = [](const auto &call) {
        const double start = benchNow();
        call();
        return benchNow() - start;
    };
    const BenchPair single =
        benchInTurn(rounds, lookUp, [&] { return timed([&] { bare.getSecret(path); }); });
    tellRow({QStringLiteral("key chain lookup, beside one call (GetSecret)"), QStringLiteral("us"),
             single.ours / nanosecondsPerMicrosecond, single.limit / nanosecondsPerMicrosecond,
             BenchRow::Target::Times, 1.1});
    const BenchPair both =
        benchInTurn(rounds, lookUp, [&] { return timed([&] { bare.getSecret(bare.search()); }); });
    tellRow({QStringLiteral("key chain lookup, beside SearchItems and GetSecret"), QStringLiteral("us"),
             both.ours / nanosecondsPerMicrosecond, both.limit / nanosecondsPerMicrosecond});
    tellRow({QStringLiteral("key chain: first lookup of a process, with connecting"), QStringLiteral("ms"),
             first / nanosecondsPerMillisecond});
    tellHanging(options);
}
