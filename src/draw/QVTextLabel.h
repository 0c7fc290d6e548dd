#pragma once

#include <QWidget>

/// One line of plain text in the system's font, on a coloured ground if need be. Where its parent is too
/// narrow for it, the text is smaller, and then elided. It paints itself, so that a host's style sheet for
/// labels does not reach it.
class QVTextLabel final : public QWidget
{
    Q_OBJECT

public:
    QVTextLabel(const QFont &font, const QColor &color, QWidget *parent);

    void setText(const QString &text);
    void setGround(const QColor &ground) { m_ground = ground; }
    /// How much larger than its text the label is.
    void setPadding(QSize padding) { m_padding = padding; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    [[nodiscard]] int roomForText() const;
    [[nodiscard]] QFont fittingFont() const;

    QFont m_font;
    QString m_text;
    QColor m_color;
    QColor m_ground = Qt::transparent;
    QSize m_padding{0, 0};
};
