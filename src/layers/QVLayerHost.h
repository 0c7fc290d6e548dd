#pragma once

#include "layers/QVFrameLink.h"
#include "layers/QVLayer.h"

class QPainter;

/// Shows a tree of layers in a widget. The widget owns the host and calls paint() in its paint event.
class QVLayerHost final : private QVLayerContext, private QVTickerClient
{
public:
    explicit QVLayerHost(QWidget &widget);
    ~QVLayerHost() override;

    [[nodiscard]] QVLayer &root() const { return *m_root; }
    void paint(QPainter &painter) const;

private:
    void invalidate(const QRectF &rect) override;
    void animationsChanged() override;
    void tick(QVTickerClient::Time time) override;
    void appear(QVTickerClient::Time time) override;
    void presentTree(QVLayer &layer, QVTickerClient::Time time);

    QWidget &m_widget;
    std::shared_ptr<QVLayer> m_root = std::make_shared<QVLayer>();
    QVFrameLink m_link;
};
