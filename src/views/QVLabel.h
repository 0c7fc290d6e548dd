#pragma once

#include "paint/QVPaintedText.h"
#include "settings/QVColors.h"

#include <QAccessible>
#include <QWidget>

/// A text with an optional icon before it. It paints itself, so that a host's style sheet for labels has no
/// effect on it. All input goes to the widget below.
class QVLabel final : public QWidget
{
    Q_OBJECT

public:
    /// With a \a role other than QAccessible::NoRole, screen readers find the text.
    QVLabel(const QVTextStyle &style, QVColors::Source source, QAccessible::Role role, QWidget *parent);

    /// Paints a box behind the text. \a padding is how much wider and higher than the text it is.
    void setGround(const QColor &ground, QSize padding);

    [[nodiscard]] const QString &text() const { return m_text.text(); }
    void setText(const QString &text, const QPixmap &icon = {});
    [[nodiscard]] QColor color() const { return m_color(); }
    /// Whether the text does not fit, so that its end is not shown.
    [[nodiscard]] bool isElided() const { return m_text.isElided(size()); }
    /// The height, beyond that of one line, that the text needs at this \a width.
    [[nodiscard]] int extraHeightFor(int width) const { return m_text.extraHeightFor(width); }
    /// At most as wide as the parent, less a margin.
    [[nodiscard]] QSize sizeHint() const override;
    /// The size that the label needs if it may be at most \a width wide.
    [[nodiscard]] QSize sizeFor(int width) const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QVPaintedText m_text;
    QVColors::Source m_color;
    QColor m_ground;
    QSize m_padding{0, 0};
};
