#pragma once

#include "secrets/QVSecureStore.h"

#include <chrono>
#include <memory>

/// The secure store of this desktop.
class QVDesktopStore
{
public:
    QVDesktopStore() = delete;

    /// What a user hardly notices, and a hundred times what a lookup takes.
    static constexpr std::chrono::milliseconds usualLimit{250};

    /// A store none of whose calls is waited for longer than \a limit. It costs nothing until it is used.
    [[nodiscard]] static std::unique_ptr<QVSecureStore> create(std::chrono::milliseconds limit = usualLimit);

    [[nodiscard]] static QVSecureStore &shared();
    /// Replaces the shared store, which must outlive its use; null brings back the desktop's.
    static void setShared(QVSecureStore *store);

private:
    /// A store whose calls take as long as the desktop likes; null where there is none. The shared library
    /// finds it in a module, others have it linked in.
    [[nodiscard]] static std::unique_ptr<QVSecureStore> open();
};
