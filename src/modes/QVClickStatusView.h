#pragma once

#include "flow/QVClickStatus.h"
#include "layers/QVLayerHost.h"

#include <QWidget>

/// The strip at the left edge of the click button, with a logo or a ring that shows the status.
///
/// Each call of setClickStatus() creates the layers again, so setting the same status restarts its effect.
class QVClickStatusView : public QWidget
{
    Q_OBJECT

public:
    using RandomSource = std::function<quint32()>;

    explicit QVClickStatusView(QWidget *parent = nullptr);

    [[nodiscard]] static constexpr int defaultWidth() { return 40; }

    [[nodiscard]] QVClickStatus clickStatus() const { return m_clickStatus; }
    void setClickStatus(QVClickStatus status);
    /// Sets the radius of the two corners on the left.
    void setCornerRadius(qreal radius);
    /// The source of the random start of the spinning arc.
    void setRandomSource(RandomSource source) { m_random = std::move(source); }

    /// The root layer. Its sublayers are shown back to front.
    [[nodiscard]] const QVLayer &layers() const { return m_host.root(); }

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void clear();
    void showNormal();
    void showTouching();
    void showVerifying();
    void showDrawing();
    void showEnd(const QPainterPath &mark);

    QVLayer &statusCricleLayer();
    QVLayer &statusLoadingLayer();
    QVLayer &statusSmallCircleLayer();
    QVLayer &statusAnimationLayer();
    QVLayer &ensure(std::shared_ptr<QVLayer> &layer);

    void statusCircleLayerScaleAnimation();
    void statusLoadingLayerAnimation();
    void statusWaitingAnimation();
    void statusWaitingSecondStep();
    void successAnimation();
    void errorAnimation();

    [[nodiscard]] QPointF centre() const;
    [[nodiscard]] QPainterPath statusCirclePath() const;
    [[nodiscard]] QPainterPath statusSmallCirclePath() const;
    [[nodiscard]] QPainterPath statusSmallCircleAnimationPath() const;
    [[nodiscard]] QPainterPath successTickAnimationPath() const;
    [[nodiscard]] QPainterPath errorAnimationPath() const;

    QVClickStatus m_clickStatus = QVClickStatusNormal;
    RandomSource m_random;
    qreal m_cornerRadius = 0;
    QVLayerHost m_host{*this};
    QPointF m_builtCentre;
    std::shared_ptr<QVLayer> m_normalLogoIV;
    std::shared_ptr<QVLayer> m_statusCricleLayer;
    std::shared_ptr<QVLayer> m_statusLoadingLayer;
    std::shared_ptr<QVLayer> m_statusSmallCircleLayer;
    std::shared_ptr<QVLayer> m_statusAnimationLayer;
};
