#pragma once

#include <QWidget>

class QPainter;

/// Whether \a widget has the focus and the user navigates by keyboard. A window that becomes active focuses
/// some widget, which only users of the keyboard need to see.
[[nodiscard]] bool qv_showsFocusRing(const QWidget &widget);
/// Draws a ring inside \a widget if qv_showsFocusRing(). It is white, with a line in the accent colour, so
/// that one of the two is visible on any background.
void qv_paintFocusRing(QPainter &painter, const QWidget &widget);

/// A focus ring for \a widget above all its children. It is repainted with the widget, which repaints itself
/// when its focus changes.
class QVFocusRing final : public QWidget
{
    Q_OBJECT

public:
    explicit QVFocusRing(QWidget *widget);

    /// For widgets in the accent colour: the line is dark.
    void setDark() { m_isDark = true; }
    /// Covers the widget anew, whose corners have the radius \a radius.
    void fit(qreal radius = 0);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    qreal m_radius = 0;
    bool m_isDark = false;
};
