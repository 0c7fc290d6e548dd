#pragma once

#include <QString>

/// Whether data sent to \a address can be read and changed on the way: it is plain HTTP to another machine.
[[nodiscard]] bool qv_isOpenOnTheWay(const QString &address);
