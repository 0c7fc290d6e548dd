#pragma once

#include <QPixmap>
#include <QWidget>

/// One centred line: an icon, lowered a little onto the text's baseline, then plain text. What does
/// not fit is elided. The text may come from the network: it is never taken for markup.
class QVOverlayLabel final : public QWidget
{
    Q_OBJECT

public:
    explicit QVOverlayLabel(QWidget *parent = nullptr);

    [[nodiscard]] QPixmap image() const { return m_image; }
    /// What follows the icon, a leading space included.
    [[nodiscard]] QString text() const { return m_text; }
    void setContent(const QPixmap &image, const QString &text);
    [[nodiscard]] QColor textColor() const { return m_textColor; }
    void setTextColor(const QColor &color);
    /// What the line is painted on, by the bar.
    void setGround(const QColor &ground);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QPixmap m_image;
    QString m_text;
    QString m_line;
    QColor m_textColor;
    QColor m_ground = Qt::transparent;
};
