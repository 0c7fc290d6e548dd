#include "secrets/QVDesktopStore.h"
#include "secrets/QVSecretStoreEntry.h"

std::unique_ptr<QVSecureStore> QVDesktopStore::open()
{
    return std::unique_ptr<QVSecureStore>(quarvoSecretStore());
}
