#pragma once

#include <QWidget>

/// One line of plain text in the system's font. Where its parent is too narrow for it, the text is smaller,
/// and then elided. It paints itself, so that a host's style sheet for labels does not reach it.
class QVTextLabel final : public QWidget
{
    Q_OBJECT

public:
    QVTextLabel(const QFont &font, const QColor &color, QWidget *parent);

    void setText(const QString &text);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    [[nodiscard]] QFont fittingFont() const;

    QFont m_font;
    QString m_text;
    QColor m_color;
};
