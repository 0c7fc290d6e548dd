#pragma once

#include <QPoint>

#include <vector>

class QPointingDevice;
class QWidget;

/// Real pointers for tests: their events enter at the window, as those of the platform do, and find
/// their own way to whatever widget is there. Positions are in the given widget's coordinates.
namespace QVPointerInput {

[[nodiscard]] QPointingDevice *touchScreen();

void press(QWidget &widget, QPoint point, Qt::MouseButton button = Qt::LeftButton);
void move(QWidget &widget, QPoint point);
void release(QWidget &widget, QPoint point, Qt::MouseButton button = Qt::LeftButton);
void click(QWidget &widget, QPoint point);

/// The same by a finger.
void tap(QWidget &widget, QPoint point);
void strokeWithPen(QWidget &widget, const std::vector<QPoint> &points);

} // namespace QVPointerInput
