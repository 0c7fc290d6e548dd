#pragma once

#include "sandbox/SandboxGeometry.h"
#include "sandbox/SandboxRandom.h"

#include <QString>

/// Strokes as hands make them, and as clients put them on the wire.
namespace SandboxStrokes {

/// The curve followed loosely: displaced, stretched, trembling, begun and ended a little off.
[[nodiscard]] SandboxPath followed(const SandboxPath &curve, SandboxRandom &random);
/// A stroke that wanders about the picture at will.
[[nodiscard]] SandboxPath scribble(SandboxRandom &random);
[[nodiscard]] SandboxPath straight(QPointF from, QPointF to);

/// The main service's "v", for a view of the picture's own size whose picture begins at \a top.
[[nodiscard]] QString encoded(const SandboxPath &points, qint64 millisecondsBetween = 20, double top = 0.0);
/// The outage service's "v".
[[nodiscard]] QString encodedCells(const SandboxPath &points);

} // namespace SandboxStrokes
