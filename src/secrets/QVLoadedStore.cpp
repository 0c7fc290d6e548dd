#include "secrets/QVSecureStore.h"

#include <QLoggingCategory>

#include <dlfcn.h>

namespace {

Q_LOGGING_CATEGORY(secretsLog, "quarvo.secrets", QtInfoMsg)

} // namespace

// libsecret and what it needs take milliseconds to load, which no host's start has to wait for. Not by
// QLibrary: the loader looks below the folder of the library that calls it. Never closed, since what it
// registers with GLib stays.
QVOpenSecretStore qv_findSecretStore()
{
    void *const module = dlopen(QUARVO_SECRETS_MODULE, RTLD_NOW | RTLD_LOCAL);
    void *const entry = module ? dlsym(module, "quarvoSecretStore") : nullptr;
    if (!entry)
        qCWarning(secretsLog, "No key chain: %s", dlerror());
    return reinterpret_cast<QVOpenSecretStore>(entry);
}
