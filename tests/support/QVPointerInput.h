#pragma once

#include <QPoint>

#include <functional>
#include <vector>

class QPointingDevice;
class QWidget;

/// Real pointers for tests: their events enter at the window, as those of the platform do, and find
/// their own way to whatever widget is there. Positions are in the given widget's coordinates.
namespace QVPointerInput {

using Points = std::vector<QPoint>;
/// Called before each position but the first, for instance to move virtual time.
using Pause = std::function<void()>;

[[nodiscard]] QPointingDevice *touchScreen();

void press(QWidget &widget, QPoint point, Qt::MouseButton button = Qt::LeftButton);
void move(QWidget &widget, QPoint point);
void release(QWidget &widget, QPoint point, Qt::MouseButton button = Qt::LeftButton);
void click(QWidget &widget, QPoint point);

/// Presses at the first point, moves through all others and releases at the last.
void strokeWithMouse(QWidget &widget, const Points &points, const Pause &pause = {});
void strokeWithFinger(QWidget &widget, const Points &points, const Pause &pause = {});
void strokeWithPen(QWidget &widget, const Points &points, const Pause &pause = {});

/// \a count points on a gentle wave from \a start, \a step apart.
[[nodiscard]] Points wave(QPoint start, int count, int step = 6);

} // namespace QVPointerInput
