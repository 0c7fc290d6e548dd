#pragma once

#include <QQuickPaintedItem>

/// A ring, a tick or a cross, or the part of it that is between two fractions of its length.
class QVQuickMark : public QQuickPaintedItem
{
    Q_OBJECT
    QML_NAMED_ELEMENT(QuarvoMark)
    Q_PROPERTY(Kind kind MEMBER m_kind NOTIFY shapeChanged)
    Q_PROPERTY(QColor color MEMBER m_color NOTIFY shapeChanged)
    Q_PROPERTY(double lineWidth MEMBER m_lineWidth NOTIFY shapeChanged)
    /// Of a ring.
    Q_PROPERTY(double radius MEMBER m_radius NOTIFY shapeChanged)
    /// A ring begins at its top and goes round clockwise.
    Q_PROPERTY(double strokeStart MEMBER m_strokeStart NOTIFY shapeChanged)
    Q_PROPERTY(double strokeEnd MEMBER m_strokeEnd NOTIFY shapeChanged)

public:
    enum Kind { Ring, Tick, Cross };
    Q_ENUM(Kind)

    explicit QVQuickMark(QQuickItem *parent = nullptr);

    void paint(QPainter *painter) override;

Q_SIGNALS:
    void shapeChanged();

private:
    Kind m_kind = Ring;
    QColor m_color = Qt::white;
    double m_lineWidth = 2;
    double m_radius = 10;
    double m_strokeStart = 0;
    double m_strokeEnd = 1;
};
