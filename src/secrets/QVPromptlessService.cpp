#include "secrets/QVPromptlessService.h"

#include "secrets/QVGlibPointer.h"

#include <cstdint>
#include <libsecret/secret.h>
#include <string>

namespace {

constexpr const char *refusal = "The secure store wants to ask the user";

GVariant *refuse(SecretService *, SecretPrompt *, GCancellable *, const GVariantType *, GError **error)
{
    g_set_error_literal(error, SECRET_ERROR, SECRET_ERROR_IS_LOCKED, refusal);
    return nullptr;
}

void beginRefusal(SecretService *service, SecretPrompt *, const GVariantType *, GCancellable *cancellable,
                  GAsyncReadyCallback callback, gpointer data)
{
    const QVGlibPointer<GTask> task(g_task_new(service, cancellable, callback, data));
    g_task_return_new_error(task.get(), SECRET_ERROR, SECRET_ERROR_IS_LOCKED, "%s", refusal);
}

GVariant *finishRefusal(SecretService *, GAsyncResult *result, GError **error)
{
    return static_cast<GVariant *>(g_task_propagate_pointer(G_TASK(result), error));
}

// The constructor of the parent sets the shared bus, which conflicts with a connection of our own. Signals
// are not connected, since they would pile up in our main context, which is not run between calls.
GObject *construct(GType type, guint count, GObjectConstructParam *properties)
{
    const auto *parent = static_cast<GObjectClass *>(g_type_class_peek(SECRET_TYPE_SERVICE));
    GObject *service = parent->constructor(type, count, properties);
    g_object_set(service, "g-bus-type", G_BUS_TYPE_NONE, "g-flags",
                 G_DBUS_PROXY_FLAGS_DO_NOT_LOAD_PROPERTIES | G_DBUS_PROXY_FLAGS_DO_NOT_CONNECT_SIGNALS,
                 nullptr);
    return service;
}

void initializeClass(gpointer type, gpointer)
{
    G_OBJECT_CLASS(type)->constructor = construct;
    auto *service = static_cast<SecretServiceClass *>(type);
    service->prompt_sync = refuse;
    service->prompt_async = beginRefusal;
    service->prompt_finish = finishRefusal;
}

} // namespace

GType qv_promptlessServiceType()
{
    // A unique name: a process may contain this code twice, in a library and linked into a plugin.
    const std::string name =
        "QVPromptlessService-" + std::to_string(reinterpret_cast<std::uintptr_t>(&initializeClass));
    static const GType type =
        g_type_register_static_simple(SECRET_TYPE_SERVICE, name.c_str(), sizeof(SecretServiceClass),
                                      initializeClass, sizeof(SecretService), nullptr, GTypeFlags(0));
    return type;
}
