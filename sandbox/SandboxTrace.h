#pragma once

#include "sandbox/SandboxGeometry.h"

#include <QString>

#include <optional>

/// A stroke as clients send it: nine characters a point, first all x, then all y, then all times,
/// three base-20 digits each.
struct SandboxTrace
{
    /// In picture units on both axes, but for an unknown vertical offset: clients measure y from the
    /// top of a view in which the picture is centred.
    SandboxPath points;
    /// The shortest duration in milliseconds that gives these times.
    qint64 duration = 0;

    /// None where the text is no trace of 10 to 80 points.
    [[nodiscard]] static std::optional<SandboxTrace> decode(const QString &text);
    /// Whether the draw time sent beside it can be that of this stroke.
    [[nodiscard]] bool agreesWithDrawtime(const QString &drawtime) const;
};
