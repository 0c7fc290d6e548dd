#pragma once

#include <QSslConfiguration>

/// The process's TLS configuration, with its authorities, in which certificates are verified whatever the
/// host has set.
[[nodiscard]] QSslConfiguration qv_verifyingTls();
