#pragma once

#include "platform/QuarvoCoreExport.h"

#include <QFont>
#include <QImage>
#include <QStringList>

class QPainter;

/// The style of a text.
struct QVTextStyle
{
    /// The size in logical pixels, if the platform's text has the usual size. A text that does not fit is
    /// made smaller, down to 12, before it is cut off.
    int pixelSize = 15;
    int mostLines = 1;
    Qt::Alignment alignment = Qt::AlignHCenter;
    /// A soft shadow, for white text on a coloured background.
    bool hasShadow = false;
    bool isItalic = false;
    /// Instead of the application's font at that size, where anything of it is set.
    QFont font{};
};

/// A text with an optional icon before it. It is rendered again only when its size, pixel ratio, colour or
/// font changes; otherwise painting copies a picture. The text may come from the network, and is always plain
/// text.
class QUARVO_CORE_EXPORT QVPaintedText final
{
public:
    explicit QVPaintedText(const QVTextStyle &style)
        : m_style(style)
    {
    }

    [[nodiscard]] const QString &text() const { return m_text; }
    void setText(const QString &text, const QImage &icon = {});

    /// The size that the text needs if it may be at most \a width wide.
    [[nodiscard]] QSize sizeFor(int width) const;
    /// The part of that height that the lines below the first one need.
    [[nodiscard]] int extraHeightFor(int width) const;
    [[nodiscard]] bool isElided(QSize room) const;
    /// Paints it centred vertically in \a room.
    void paint(QPainter &painter, const QRect &room, const QColor &color);

private:
    struct Lines
    {
        QFont font;
        QStringList texts;
        bool isElided = false;
    };
    struct Key
    {
        QSize size;
        qreal ratio = 0;
        QColor color;
        QFont platformFont;

        friend bool operator==(const Key &, const Key &) = default;
    };

    [[nodiscard]] Lines fitted(QSize room) const;
    [[nodiscard]] Lines broken(const QFont &font, QSize room) const;
    [[nodiscard]] Lines broken(const QFont &font, QSize room, double width) const;
    [[nodiscard]] qreal iconSpace(const QFont &font) const;
    [[nodiscard]] QImage picture(const Key &key) const;
    void draw(QPainter &painter, QSize room) const;

    QVTextStyle m_style;
    QString m_text;
    QString m_line;
    QImage m_icon;
    QImage m_picture;
    Key m_key;
};
