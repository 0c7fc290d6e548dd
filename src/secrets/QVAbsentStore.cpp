#include "secrets/QVDesktopStore.h"

// A build without libsecret. There is no stand-in in plain text.
std::unique_ptr<QVSecureStore> QVDesktopStore::open()
{
    return nullptr;
}
