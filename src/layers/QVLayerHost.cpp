#include "layers/QVLayerHost.h"

#include "layers/QVLayerPainter.h"

#include <QCoreApplication>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace {

/// What is still to come in a tree.
struct Outlook
{
    bool running = false;
    std::optional<QVLayer::Time> nextEnd;

    void add(const QVLayer &layer)
    {
        const std::optional<QVLayer::Time> end = layer.animations().nextEnd();
        if (end)
            nextEnd = std::min(*end, nextEnd.value_or(*end));
        // An endless animation of a layer that draws nothing must not keep the ticker up.
        const bool endless = !end && layer.animations().isRunning();
        running = running || end || (endless && !layer.rectInRoot().isEmpty());
        for (const auto &sublayer : layer.sublayers())
            add(*sublayer);
    }
};

} // namespace

QVLayerHost::QVLayerHost(QWidget &widget)
    : m_widget(widget)
    , m_link(*this, &widget)
{
    m_root->setContext(this);
}

QVLayerHost::~QVLayerHost()
{
    m_root->setContext(nullptr);
}

void QVLayerHost::paint(QPainter &painter) const
{
    QVLayerPainter(painter).paint(*m_root);
}

void QVLayerHost::invalidate(const QRectF &rect)
{
    // A host may keep widgets beyond the application object; nothing is shown there any more.
    if (rect.isEmpty() || !QCoreApplication::instance())
        return;
    // One more pixel than the shape covers: its soft edge.
    m_widget.update(rect.toAlignedRect().adjusted(-1, -1, 1, 1));
    // A layer that drew nothing may have had an animation waiting.
    if (!m_link.isRunning())
        animationsChanged();
}

void QVLayerHost::animationsChanged()
{
    Outlook outlook;
    outlook.add(*m_root);
    if (outlook.running)
        m_link.run(outlook.nextEnd);
    else
        m_link.stop();
}

void QVLayerHost::tick(QVTickerClient::Time time)
{
    presentTree(*m_root, time);
    animationsChanged();
}

void QVLayerHost::appear(QVTickerClient::Time time)
{
    presentTree(*m_root, time);
}

void QVLayerHost::presentTree(QVLayer &layer, QVTickerClient::Time time)
{
    if (layer.animations().isRunning()) {
        const QRectF before = layer.rectInRoot();
        if (layer.present(time))
            invalidate(before | layer.rectInRoot());
    }
    for (const auto &sublayer : layer.sublayers())
        presentTree(*sublayer, time);
}
