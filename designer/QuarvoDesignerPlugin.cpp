#include "designer/QuarvoDesignerPlugin.h"

#include "designer/QuarvoDesignerWidget.h"

#include <Quarvo/QVClickButton.h>
#include <Quarvo/QVEmbedPanel.h>

QuarvoDesignerPlugin::QuarvoDesignerPlugin(QObject *parent)
    : QObject(parent)
    , m_widgets{
          new QuarvoDesignerWidget(
              QStringLiteral("QVClickButton"), QStringLiteral("clickButton"), {300, 44},
              [](QWidget *parent) { return new QVClickButton(parent); }, this),
          new QuarvoDesignerWidget(
              QStringLiteral("QVEmbedPanel"), QStringLiteral("embedPanel"), {400, 270},
              [](QWidget *parent) { return new QVEmbedPanel(parent); }, this),
      }
{
}

QList<QDesignerCustomWidgetInterface *> QuarvoDesignerPlugin::customWidgets() const
{
    return m_widgets;
}
