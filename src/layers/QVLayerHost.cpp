#include "layers/QVLayerHost.h"

#include "layers/QVLayerPainter.h"

#include <QCoreApplication>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace {

/// The animations that have not ended in a tree.
struct Outlook
{
    bool running = false;
    std::optional<QVLayer::Time> nextEnd;

    void add(const QVLayer &layer)
    {
        const std::optional<QVLayer::Time> end = layer.animations().nextEnd();
        if (end)
            nextEnd = std::min(*end, nextEnd.value_or(*end));
        // An endless animation of a layer that draws nothing must not keep the ticker running.
        const bool endless = !end && layer.animations().isRunning();
        running = running || end || (endless && !layer.rectInRoot().isEmpty());
        for (const auto &sublayer : layer.sublayers())
            add(*sublayer);
    }
};

} // namespace

QVLayerHost::QVLayerHost(QWidget &widget)
    : m_widget(widget)
    , m_link(*this, widget)
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
    // Widgets of the host may outlive the application object; they are not shown any more then.
    if (rect.isEmpty() || !QCoreApplication::instance())
        return;
    // One pixel more than the shape covers, for antialiasing.
    m_widget.update(rect.toAlignedRect().adjusted(-1, -1, 1, 1));
    // An endless animation may have waited because its layer drew nothing.
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
