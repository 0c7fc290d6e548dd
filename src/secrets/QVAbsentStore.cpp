#include "settings/QVSecureStore.h"

// A build without libsecret. There is no stand-in in plain text.
std::unique_ptr<QVSecureStore> QVSecureStore::ofDesktop(std::chrono::milliseconds)
{
    return nullptr;
}
