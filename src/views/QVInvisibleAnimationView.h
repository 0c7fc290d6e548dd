#pragma once

#include "layers/QVLayerHost.h"
#include "settings/QVText.h"

#include <QWidget>

/// The round badge of an invisible verification: a spinning ring while it is under way, a strip with
/// "PASS" and a halo once the user has passed. Takes no touches.
///
/// Its elements are shown only until they are first cleared: one that was made for the ring is not
/// shown again by the pass, and a second start shows nothing.
class QVInvisibleAnimationView : public QWidget
{
    Q_OBJECT

public:
    using RandomSource = std::function<quint32()>;

    explicit QVInvisibleAnimationView(QWidget *parent = nullptr);

    /// The side of the square that the owner gives the badge.
    [[nodiscard]] static constexpr int defaultWidth() { return 80; }

    /// The badge's square in the parent. The widget itself is larger, since the strip and the halo
    /// reach beyond it.
    [[nodiscard]] QRect frame() const;
    void setFrame(const QRect &frame);
    void setCenter(QPoint centre);

    [[nodiscard]] QPainterPath circlePath() const;
    void clearLayers();
    void startLoadingAnimation();
    /// Runs the pass sequence and, a second after its start, \a completion.
    void passAnimationComplete(std::function<void()> completion = {});

    /// Where the arc's start comes from.
    void setRandomSource(RandomSource source) { m_random = std::move(source); }

    /// What is shown now, back to front.
    [[nodiscard]] const QVLayer &layers() const { return m_host.root(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    std::shared_ptr<QVLayer> makeLayer();
    QVLayer &circleBackLayer();
    QVLayer &circleAnimationLayer();
    QVLayer &passView();
    QVLayer &passHalfCircleView();
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
    std::shared_ptr<QVLayer> m_passLabel;
    std::shared_ptr<QVLayer> m_passCircleAnimationLayer;
    std::shared_ptr<QVLayer> m_logoIV;
};
