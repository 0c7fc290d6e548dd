#pragma once

#include <QSslConfiguration>

/// The process's TLS configuration, with its certificate authorities, but with verification always on.
[[nodiscard]] QSslConfiguration qv_verifyingTls();
