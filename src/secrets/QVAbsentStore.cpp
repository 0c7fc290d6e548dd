#include "secrets/QVSecureStore.h"

// A build without libsecret has no secure store. Nothing is stored in plain text instead.
QVOpenSecretStore qv_findSecretStore()
{
    return nullptr;
}
