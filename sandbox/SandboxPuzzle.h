#pragma once

#include "sandbox/SandboxGeometry.h"

#include <QString>

/// What a picture asks for, and the seed of everything else in it.
struct SandboxPuzzle
{
    /// The curve to draw in picture units; empty for characters.
    SandboxPath curve;
    QString characters;
    quint64 seed = 0;
};
