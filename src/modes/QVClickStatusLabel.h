#pragma once

#include <QWidget>

/// The button's text. It paints itself, so that a host's style sheet for labels does not reach it.
class QVClickStatusLabel final : public QWidget
{
    Q_OBJECT

public:
    explicit QVClickStatusLabel(QWidget *parent);

    [[nodiscard]] QString text() const { return m_text; }
    void setText(const QString &text);
    /// What the text is painted on, by the button.
    void setGround(const QColor &ground);
    /// Whether the text does not fit, so that its end is not shown.
    [[nodiscard]] bool isElided() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    /// What is painted in \a font, a line each.
    [[nodiscard]] QStringList lines(const QFont &font) const;
    /// As large as the platform wants it, unless the text would not fit then.
    [[nodiscard]] QFont fittingFont() const;
    [[nodiscard]] bool fits(const QFont &font) const;

    QString m_text;
    QColor m_ground = Qt::transparent;
};
