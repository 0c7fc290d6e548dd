#pragma once

#include <QGraphicsEffect>
#include <QList>
#include <QPointer>

class QWidget;

/// Scales a widget vertically about its centre line, from nothing at 0 to its full height at 1. Set it on the
/// widget that it was created for.
class QVUnfoldEffect final : public QGraphicsEffect
{
    Q_OBJECT

public:
    explicit QVUnfoldEffect(QWidget *widget);
    ~QVUnfoldEffect() override;

    [[nodiscard]] qreal scale() const { return m_scale; }
    void setScale(qreal scale);

protected:
    void draw(QPainter *painter) override;

private:
    qreal m_scale = 0;
    QList<QPointer<QWidget>> m_opaque;
};
