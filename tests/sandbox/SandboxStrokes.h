#pragma once

#include "flow/QVRenderTrace.h"
#include "sandbox/SandboxGeometry.h"
#include "sandbox/SandboxRandom.h"

/// Strokes as hands make them, and as the client records them.
namespace SandboxStrokes {

/// The curve followed loosely: displaced, stretched, trembling, begun and ended a little off.
[[nodiscard]] SandboxPath followed(const SandboxPath &curve, SandboxRandom &random);
/// A stroke that wanders about the picture at will.
[[nodiscard]] SandboxPath scribble(SandboxRandom &random);
[[nodiscard]] SandboxPath straight(QPointF from, QPointF to);

/// The client's record of a stroke, 20 ms a point, in a view as wide as the picture, which begins at \a top.
[[nodiscard]] QVRenderTrace recorded(const SandboxPath &points, double top = 0.0);
/// What the outage service gets of a record in a view of the picture's own size.
[[nodiscard]] QString cells(const QVRenderTrace &trace);

} // namespace SandboxStrokes
