#pragma once

#include <QJsonObject>

/// Measures how long the main thread is busy between two waits for events, until it is paused. The time up to
/// the first wait does not count. To be called on the main thread.
void watchStalls();
void pauseStalls();
/// The longest of these times in milliseconds, and how many were longer than 4 ms.
[[nodiscard]] QJsonObject seenStalls();
