#pragma once

#include <QWidget>

class QPainter;

/// Whether \a widget has the focus and the keyboard is in use: a window that becomes active gives the
/// focus to something, and only the keyboard's user needs to see it.
[[nodiscard]] bool qv_showsFocusRing(const QWidget &widget);
/// Draws a ring inside \a widget if that is so, in two tones, of which one is seen on any ground.
void qv_paintFocusRing(QPainter &painter, const QWidget &widget);

/// Such a ring above all children of a widget. The widget repaints itself when its focus changes, and what
/// lies on it with it.
class QVFocusRing final : public QWidget
{
    Q_OBJECT

public:
    explicit QVFocusRing(QWidget *widget);

protected:
    void paintEvent(QPaintEvent *event) override;
};
