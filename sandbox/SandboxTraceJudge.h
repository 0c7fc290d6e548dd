#pragma once

#include "sandbox/SandboxGeometry.h"

/// Scores how well a stroke follows a curve. A vertical offset and the direction of the stroke do not matter.
class SandboxTraceJudge
{
public:
    static constexpr int passLine = 60;

    explicit SandboxTraceJudge(const SandboxPath &curve);

    /// 0 to 100.
    [[nodiscard]] int score(const SandboxPath &stroke) const;
    /// The mean distance plus a part of the greatest one, in picture units.
    [[nodiscard]] double deviation(const SandboxPath &stroke) const;

private:
    SandboxPath m_curve;
    SandboxPath m_reversed;
};
