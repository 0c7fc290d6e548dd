#pragma once

#include "sandbox/SandboxGeometry.h"

#include <QString>

#include <optional>

/// A stroke as clients send it: first all x, then all y, then all times. Each number has three base-20
/// digits.
struct SandboxTrace
{
    /// In picture units on both axes, with an unknown vertical offset: clients measure y from the top of a
    /// view in which the picture is centred.
    SandboxPath points;
    /// The shortest duration, in milliseconds, that these times can have.
    qint64 duration = 0;

    /// Empty if \a text is not a trace of 10 to 80 points.
    [[nodiscard]] static std::optional<SandboxTrace> decode(const QString &text);
    /// Whether \a drawtime, which is sent with the trace, can be the duration of this stroke.
    [[nodiscard]] bool agreesWithDrawtime(const QString &drawtime) const;
};
