#pragma once

#include <QQuickPaintedItem>

/// A ring, a tick or a cross, or the part of it that is between two fractions of its length; or a box. Rings
/// and boxes may be filled.
class QVQuickMark : public QQuickPaintedItem
{
    Q_OBJECT
    QML_NAMED_ELEMENT(QuarvoMark)
    Q_PROPERTY(Kind kind MEMBER m_kind NOTIFY shapeChanged)
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY shapeChanged)
    Q_PROPERTY(double lineWidth MEMBER m_lineWidth NOTIFY shapeChanged)
    Q_PROPERTY(QColor fill MEMBER m_fill NOTIFY shapeChanged)
    /// Of a ring.
    Q_PROPERTY(double radius MEMBER m_radius NOTIFY shapeChanged)
    /// Where it is, from the middle of the item.
    Q_PROPERTY(QPointF offset MEMBER m_offset NOTIFY shapeChanged)
    /// How round the corners of a box are; those of the item around a ring cut off what is beyond.
    Q_PROPERTY(double cornerRadius MEMBER m_cornerRadius NOTIFY shapeChanged)
    /// A ring begins at its top and goes round clockwise.
    Q_PROPERTY(double strokeStart MEMBER m_strokeStart NOTIFY shapeChanged)
    Q_PROPERTY(double strokeEnd MEMBER m_strokeEnd NOTIFY shapeChanged)

public:
    enum Kind { Ring, Tick, Cross, Box };
    Q_ENUM(Kind)

    explicit QVQuickMark(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void shapeChanged();

private:
    void paintBox(QPainter &painter) const;
    void fillRing(QPainter &painter) const;

    Kind m_kind = Ring;
    QColor m_color = Qt::white;
    QColor m_fill = Qt::transparent;
    QPointF m_offset;
    double m_cornerRadius = 0;
    double m_lineWidth = 2;
    double m_radius = 10;
    double m_strokeStart = 0;
    double m_strokeEnd = 1;
};
