#pragma once

#include "sandbox/SandboxGeometry.h"

#include <QChar>
#include <QString>

/// Letters and digits as pen strokes. The alphabet has no two characters that look alike.
namespace SandboxGlyphs {

[[nodiscard]] QString alphabet();
/// The strokes of a character in a box from (0, 0) to (1, 1). Empty if it is not in the alphabet.
[[nodiscard]] QList<SandboxPath> strokes(QChar character);

} // namespace SandboxGlyphs
