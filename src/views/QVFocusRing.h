#pragma once

class QColor;
class QPainter;
class QWidget;

/// Whether \a widget has the focus and the keyboard is in use: a window that becomes active gives the
/// focus to something, and only the keyboard's user needs to see it.
[[nodiscard]] bool qv_showsFocusRing(const QWidget &widget);
/// Draws a ring inside \a widget if that is so.
void qv_paintFocusRing(QPainter &painter, const QWidget &widget, const QColor &color);
