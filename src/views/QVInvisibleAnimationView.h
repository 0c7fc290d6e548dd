#pragma once

#include "layers/QVLayerHost.h"
#include "settings/QVText.h"

#include <QWidget>

/// The round badge of an invisible verification: a spinning ring while it is under way, a strip with "PASS"
/// and a halo once the user has passed. Takes no input.
///
/// Each layer is created and shown once; clearLayers() removes it for good. So the pass does not show the
/// layers of the ring again, and a second startLoadingAnimation() shows nothing.
class QVInvisibleAnimationView : public QWidget
{
    Q_OBJECT

public:
    using RandomSource = std::function<quint32()>;

    explicit QVInvisibleAnimationView(QWidget *parent = nullptr);

    /// The usual side of the badge's square, in logical pixels.
    [[nodiscard]] static constexpr int defaultWidth() { return 80; }

    /// The badge's square in the parent. The widget itself is larger, since the strip and the halo
    /// reach beyond it.
    [[nodiscard]] QRect frame() const;
    void setFrame(const QRect &frame);
    void setCenter(QPoint centre);

    [[nodiscard]] QPainterPath circlePath() const;
    void clearLayers();
    void startLoadingAnimation();
    /// Runs the pass sequence. \a completion is called one second after its start.
    void passAnimationComplete(std::function<void()> completion = {});

    /// The source of the random start of the arc.
    void setRandomSource(RandomSource source) { m_random = std::move(source); }

    /// The root layer. Its sublayers are shown back to front.
    [[nodiscard]] const QVLayer &layers() const { return m_host.root(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    std::shared_ptr<QVLayer> makeLayer();
    QVLayer &circleBackLayer();
    QVLayer &circleAnimationLayer();
    QVLayer &passView();
    QVLayer &passHalfCircleView();
    QVLayer &passShadow();
    QVLayer &passLabel();
    QVLayer &passCircleAnimationLayer();
    QVLayer &logoIV();

    void layOutRing();
    void fillRing();
    void openStrip();
    void startHalo();

    [[nodiscard]] QRectF bounds() const
    {
        return {0, 0, qreal(m_frameSize.width()), qreal(m_frameSize.height())};
    }
    [[nodiscard]] qreal labelWidth() const;
    [[nodiscard]] qreal openLength() const;
    [[nodiscard]] QMargins overflow() const;

    QVText m_name;
    RandomSource m_random;
    QVLayerHost m_host{*this};
    QSize m_frameSize;
    std::shared_ptr<QVLayer> m_circleBackLayer;
    std::shared_ptr<QVLayer> m_circleAnimationLayer;
    std::shared_ptr<QVLayer> m_passView;
    std::shared_ptr<QVLayer> m_passHalfCircleView;
    std::shared_ptr<QVLayer> m_passShadow;
    std::shared_ptr<QVLayer> m_passLabel;
    std::shared_ptr<QVLayer> m_passCircleAnimationLayer;
    std::shared_ptr<QVLayer> m_logoIV;
};
