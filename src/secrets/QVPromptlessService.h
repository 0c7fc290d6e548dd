#pragma once

#include <gio/gio.h>

/// The type of a SecretService that lives on the connection it is given and never shows a prompt: what
/// would need one fails as locked. Asking for a keyring's password is not for a captcha to do.
[[nodiscard]] GType qv_promptlessServiceType();
