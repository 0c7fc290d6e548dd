#pragma once

#include "sandbox/SandboxGeometry.h"
#include "sandbox/SandboxRandom.h"

#include <functional>

/// Invents the curves to draw: smooth, one stroke, clear of the controls that clients lay over a
/// picture, never so close to itself that a drawer could take the wrong branch.
class SandboxCurveMaker
{
public:
    using Wish = std::function<bool(const SandboxPath &)>;

    explicit SandboxCurveMaker(quint64 seed);

    /// A curve of densely spaced points; \a wish can turn down those that do not suit.
    [[nodiscard]] SandboxPath make(const Wish &wish = {});

    [[nodiscard]] static bool isDrawable(const SandboxPath &curve);

private:
    [[nodiscard]] SandboxPath attempt();

    SandboxRandom m_random;
};
