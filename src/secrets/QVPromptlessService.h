#pragma once

#include <gio/gio.h>

/// The type of a SecretService that uses the given connection and never shows a prompt. Calls that need one
/// fail as locked: a captcha must not ask for the password of the keyring.
[[nodiscard]] GType qv_promptlessServiceType();
