#pragma once

#include "secrets/QVSecureItem.h"

#include <gio/gio.h>

/// Takes the error of a GLib call and tells what it means for the secure store.
class QVGlibError
{
public:
    QVGlibError() = default;
    QVGlibError(const QVGlibError &) = delete;
    QVGlibError &operator=(const QVGlibError &) = delete;
    ~QVGlibError() { g_clear_error(&m_error); }

    /// Where the call puts its error.
    [[nodiscard]] GError **place() { return &m_error; }
    [[nodiscard]] QVSecureStatus status() const;

private:
    GError *m_error = nullptr;
};
