#include "secrets/QVDesktopStore.h"

#include "secrets/QVBoundedStore.h"

namespace {

QVSecureStore *replacement = nullptr;

} // namespace

std::unique_ptr<QVSecureStore> QVDesktopStore::create(std::chrono::milliseconds limit)
{
    return std::make_unique<QVBoundedStore>(&QVDesktopStore::open, limit);
}

QVSecureStore &QVDesktopStore::shared()
{
    if (replacement)
        return *replacement;
    static const std::unique_ptr<QVSecureStore> store = create();
    return *store;
}

void QVDesktopStore::setShared(QVSecureStore *store)
{
    replacement = store;
}
