#pragma once

#include <QString>

/// A text written in a test's source, of which tests are full.
[[nodiscard]] inline QString q(const char *text)
{
    return QString::fromUtf8(text);
}
