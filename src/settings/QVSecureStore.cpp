#include "settings/QVSecureStore.h"

namespace {

QVSecureStore *replacement = nullptr;

} // namespace

QVSecureStore::~QVSecureStore() = default;

QVSecureStore &QVSecureStore::shared()
{
    if (replacement)
        return *replacement;
    static const std::unique_ptr<QVSecureStore> ofDesktop = create();
    return *ofDesktop;
}

void QVSecureStore::setShared(QVSecureStore *store)
{
    replacement = store;
}
