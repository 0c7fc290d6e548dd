#pragma once

#include <QLabel>

/// One line of plain text in the system's font, on a coloured ground if need be. Painted by itself, so
/// that a host's style sheet for its own labels leaves it alone.
class QVTextLabel final : public QLabel
{
public:
    QVTextLabel(const QFont &font, const QColor &color, QWidget *parent);

    void setGround(const QColor &ground) { m_ground = ground; }
    /// How much larger than its text the label is.
    void setPadding(QSize padding) { m_padding = padding; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QFont m_font;
    QColor m_color;
    QColor m_ground = Qt::transparent;
    QSize m_padding{0, 0};
};
