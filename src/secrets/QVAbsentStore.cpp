#include "secrets/QVSecureStore.h"

// A build without libsecret. There is no stand-in in plain text.
QVOpenSecretStore qv_findSecretStore()
{
    return nullptr;
}
