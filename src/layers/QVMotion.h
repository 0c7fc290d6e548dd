#pragma once

/// Whether animations are wanted.
class QVMotion
{
public:
    /// True if the host has set it or the desktop's style does not animate. Animations then jump to their
    /// end, and endless ones do not move.
    [[nodiscard]] static bool isReduced();
};
