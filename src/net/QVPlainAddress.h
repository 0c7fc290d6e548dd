#pragma once

#include <QString>

/// Whether what is sent to an address can be read and changed on its way: it is plain HTTP, and not to this
/// machine.
[[nodiscard]] bool qv_isOpenOnTheWay(const QString &address);
