#pragma once

#include "sandbox/SandboxGeometry.h"

#include <QString>

/// What the user of a picture has to draw or type, and the seed of everything else in it.
struct SandboxPuzzle
{
    /// The curve to draw in picture units; empty for characters.
    SandboxPath curve;
    QString characters;
    quint64 seed = 0;
};
