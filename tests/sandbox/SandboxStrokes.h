#pragma once

#include "flow/QVRenderTrace.h"
#include "sandbox/SandboxGeometry.h"
#include "sandbox/SandboxRandom.h"

/// Strokes like those of users, and the client's records of them.
namespace SandboxStrokes {

/// A stroke that follows the curve carelessly: displaced, stretched, trembling, with wrong ends.
[[nodiscard]] SandboxPath followed(const SandboxPath &curve, SandboxRandom &random);
/// A random stroke over the picture.
[[nodiscard]] SandboxPath scribble(SandboxRandom &random);
[[nodiscard]] SandboxPath straight(QPointF from, QPointF to);

/// The client's record of a stroke with 20 ms per point. The view is as wide as the picture, which begins at
/// \a top.
[[nodiscard]] QVRenderTrace recorded(const SandboxPath &points, double top = 0.0);
/// The cells that are sent to the outage service for a record in a view of the picture's size.
[[nodiscard]] QString cells(const QVRenderTrace &trace);

} // namespace SandboxStrokes
