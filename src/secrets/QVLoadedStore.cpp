#include "secrets/QVSecureStore.h"

#include <QLoggingCategory>

#include <dlfcn.h>

namespace {

Q_LOGGING_CATEGORY(secretsLog, "quarvo.secrets", QtInfoMsg)

} // namespace

// libsecret and its dependencies take milliseconds to load, so they are not loaded when the host starts.
// dlopen() instead of QLibrary, since it finds the module relative to the library that calls it. The module
// is never closed, since the types that it registers with GLib stay registered.
QVOpenSecretStore qv_findSecretStore()
{
    void *const module = dlopen(QUARVO_SECRETS_MODULE, RTLD_NOW | RTLD_LOCAL);
    void *const entry = module ? dlsym(module, "quarvoSecretStore") : nullptr;
    if (!entry)
        qCWarning(secretsLog, "No key chain: %s", dlerror());
    return reinterpret_cast<QVOpenSecretStore>(entry);
}
