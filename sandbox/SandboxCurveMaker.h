#pragma once

#include "sandbox/SandboxGeometry.h"
#include "sandbox/SandboxRandom.h"

#include <functional>

/// Makes the curves to draw. A curve is smooth and has one stroke. It stays clear of the controls that
/// clients show over a picture, and its branches are never so close that a user could follow the wrong one.
class SandboxCurveMaker
{
public:
    using Wish = std::function<bool(const SandboxPath &)>;

    explicit SandboxCurveMaker(quint64 seed);

    /// A curve of densely spaced points. \a wish can refuse curves that do not suit.
    [[nodiscard]] SandboxPath make(const Wish &wish = {});

    [[nodiscard]] static bool isDrawable(const SandboxPath &curve);

private:
    [[nodiscard]] SandboxPath attempt();

    SandboxRandom m_random;
};
