#pragma once

class QColor;
class QPainter;
class QWidget;

/// Draws a ring inside \a widget if it has the focus and the keyboard is in use: a window that becomes
/// active gives the focus to something, and only the keyboard's user needs to see it.
void qv_paintFocusRing(QPainter &painter, const QWidget &widget, const QColor &color);
