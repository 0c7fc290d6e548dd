#pragma once

#include <QWidget>

class QPainter;

/// Whether \a widget has the focus and the user navigates by keyboard. A window that becomes active focuses
/// some widget, which only users of the keyboard need to see.
[[nodiscard]] bool qv_showsFocusRing(const QWidget &widget);
/// Draws a ring inside \a widget if qv_showsFocusRing(). It has two colours, so that one is visible on any
/// background.
void qv_paintFocusRing(QPainter &painter, const QWidget &widget);

/// A focus ring for \a widget above all its children. It is repainted with the widget, which repaints itself
/// when its focus changes.
class QVFocusRing final : public QWidget
{
    Q_OBJECT

public:
    explicit QVFocusRing(QWidget *widget);

protected:
    void paintEvent(QPaintEvent *event) override;
};
