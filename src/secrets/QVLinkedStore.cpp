#include "platform/QVScheduler.h"
#include "secrets/QVSecretStoreEntry.h"

std::unique_ptr<QVSecureStore> QVSecureStore::ofDesktop(std::chrono::milliseconds limit)
{
    return std::unique_ptr<QVSecureStore>(
        quarvoSecretStore(limit, [] { return QVScheduler::shared().now(); }));
}
