#pragma once

class QString;

/// What a line on screen, or its spoken name, can take of a server's text: without breaks, and no
/// longer than would fit anywhere, since shaping a megabyte at each repaint would stall the host.
[[nodiscard]] QString qv_oneLine(const QString &text);
