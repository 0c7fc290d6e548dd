#pragma once

#include <QFont>
#include <QPixmap>
#include <QStringList>

class QPainter;

/// How a text is set.
struct QVTextStyle
{
    /// In logical pixels where the platform's text has its usual size. A text that does not fit shrinks
    /// before it is cut, but not below 12.
    int pixelSize = 15;
    int mostLines = 1;
    Qt::Alignment alignment = Qt::AlignHCenter;
    /// A soft one, for white text on coloured ground.
    bool hasShadow = false;
    bool isItalic = false;
};

/// A text, with an icon before it if it has one, in the application's font. It is painted once for each
/// size, pixel ratio and colour; after that, painting copies a picture. The text may come from the network:
/// it is never taken for markup.
class QVPaintedText final
{
public:
    explicit QVPaintedText(const QVTextStyle &style)
        : m_style(style)
    {
    }

    [[nodiscard]] const QString &text() const { return m_text; }
    void setText(const QString &text, const QPixmap &icon = {});

    /// The room it needs where it may be \a width wide.
    [[nodiscard]] QSize sizeFor(int width) const;
    /// How much of that height is there because one line does not hold it.
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
    [[nodiscard]] qreal iconSpace(const QFont &font) const;
    [[nodiscard]] QPixmap picture(const Key &key) const;
    void draw(QPainter &painter, QSize room) const;

    QVTextStyle m_style;
    QString m_text;
    QString m_line;
    QPixmap m_icon;
    QPixmap m_picture;
    Key m_key;
};
