#include "secrets/QVSecureStore.h"

QVOpenSecretStore qv_findSecretStore()
{
    return quarvoSecretStore;
}
