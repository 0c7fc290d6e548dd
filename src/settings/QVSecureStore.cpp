#include "settings/QVSecureStore.h"

#include "settings/QVDeferredStore.h"

namespace {

QVSecureStore *replacement = nullptr;

} // namespace

std::unique_ptr<QVSecureStore> QVSecureStore::create(std::chrono::milliseconds limit)
{
    return std::make_unique<QVDeferredStore>([limit] { return ofDesktop(limit); }, limit);
}

QVSecureStore &QVSecureStore::shared()
{
    if (replacement)
        return *replacement;
    static const std::unique_ptr<QVSecureStore> store = create();
    return *store;
}

void QVSecureStore::setShared(QVSecureStore *store)
{
    replacement = store;
}
