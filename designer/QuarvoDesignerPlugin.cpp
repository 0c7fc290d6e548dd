#include "designer/QuarvoDesignerPlugin.h"

#include "designer/QuarvoDesignerWidget.h"

#include <Quarvo/QVClickButton.h>
#include <Quarvo/QVEmbedPanel.h>

namespace {

template<class Widget>
QWidget *make(QWidget *parent)
{
    return new Widget(parent);
}

} // namespace

QuarvoDesignerPlugin::QuarvoDesignerPlugin(QObject *parent)
    : QObject(parent)
    , m_widgets{
          new QuarvoDesignerWidget(QStringLiteral("QVClickButton"), QStringLiteral("clickButton"), {300, 44},
                                   make<QVClickButton>, this),
          new QuarvoDesignerWidget(QStringLiteral("QVEmbedPanel"), QStringLiteral("embedPanel"), {400, 270},
                                   make<QVEmbedPanel>, this),
      }
{
}

QList<QDesignerCustomWidgetInterface *> QuarvoDesignerPlugin::customWidgets() const
{
    return m_widgets;
}
