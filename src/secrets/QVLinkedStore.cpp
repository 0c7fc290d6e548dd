#include "platform/QVScheduler.h"
#include "secrets/QVDesktopStore.h"
#include "secrets/QVSecretStoreEntry.h"

std::unique_ptr<QVSecureStore> QVDesktopStore::open(std::chrono::milliseconds limit)
{
    return std::unique_ptr<QVSecureStore>(
        quarvoSecretStore(limit, [] { return QVScheduler::shared().now(); }));
}
