#pragma once

/// Whether the user wants things to move.
class QVMotion
{
public:
    /// True where the host says so or the desktop's style animates nothing: then effects jump to their end
    /// and endless ones stand still.
    [[nodiscard]] static bool isReduced();
};
