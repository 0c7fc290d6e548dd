#pragma once

#include "views/QVColors.h"
#include "views/QVPaintedText.h"

#include <QAccessible>
#include <QWidget>

/// A text that is only looked at, with an icon before it if it has one. It paints itself, so that a host's
/// style sheet for labels does not reach it, and leaves all input to what lies below.
class QVLabel final : public QWidget
{
    Q_OBJECT

public:
    /// With a \a role other than QAccessible::NoRole, screen readers find the text.
    QVLabel(const QVTextStyle &style, QVColors::Source source, QAccessible::Role role, QWidget *parent);

    /// Paints a box below the text, which reaches as far beyond it as \a padding says in all.
    void setGround(const QColor &ground, QSize padding);

    [[nodiscard]] const QString &text() const { return m_text.text(); }
    void setText(const QString &text, const QPixmap &icon = {});
    [[nodiscard]] QColor color() const { return m_color(); }
    /// Whether the text does not fit, so that its end is not shown.
    [[nodiscard]] bool isElided() const { return m_text.isElided(size()); }
    /// How much higher than for one line the label is to be where it is \a width wide.
    [[nodiscard]] int extraHeightFor(int width) const { return m_text.extraHeightFor(width); }
    /// At most as wide as the parent, but for a margin.
    [[nodiscard]] QSize sizeHint() const override;
    /// The size where the label may be \a width wide.
    [[nodiscard]] QSize sizeFor(int width) const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QVPaintedText m_text;
    QVColors::Source m_color;
    QColor m_ground;
    QSize m_padding{0, 0};
};
