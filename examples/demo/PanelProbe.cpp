#include "demo/PanelProbe.h"

#include "demo/EventLog.h"

#include <QApplication>
#include <QEvent>

namespace {

const char *const hadPicture = "demoHadPicture";
constexpr double pictureUnits = 400;

} // namespace

PanelProbe::PanelProbe(EventLog &log, QObject *parent)
    : QObject(parent)
    , m_log(log)
{
    QApplication::instance()->installEventFilter(this);
}

QWidget *PanelProbe::panel() const
{
    return m_panel && m_panel->isVisible() ? m_panel.data() : nullptr;
}

QWidget *PanelProbe::part(const QString &name) const
{
    QWidget *const onScreen = panel();
    auto *const found = onScreen ? onScreen->findChild<QWidget *>(name) : nullptr;
    return found && found->isVisible() ? found : nullptr;
}

QVector<QPointF> PanelProbe::onPanel(QVector<QPointF> points) const
{
    const QWidget *const picture = part(QStringLiteral("imageView"));
    if (!picture)
        return {};
    const QPointF origin = picture->mapTo(panel(), QPointF());
    for (QPointF &point : points)
        point = origin + point * picture->width() / pictureUnits;
    return points;
}

QWidget *PanelProbe::closeButton()
{
    const QWidgetList all = QApplication::allWidgets();
    for (QWidget *widget : all) {
        if (widget->inherits("QVCloseButton") && widget->isVisible())
            return widget;
    }
    return nullptr;
}

bool PanelProbe::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Show && watched->inherits("QVRenderDrawView"))
        watch(static_cast<QWidget *>(watched));
    return QObject::eventFilter(watched, event);
}

void PanelProbe::watch(QWidget *panel)
{
    m_panel = panel;
    // A panel that is shown again still has its picture, and does not emit ready().
    if (panel->property(hadPicture).toBool())
        m_log.add(QStringLiteral("ready"));
    // By name, since the class of the panel is not public.
    connect(panel, SIGNAL(ready()), this, SLOT(onReady()), Qt::UniqueConnection);
    connect(panel, SIGNAL(wrongAnswer()), this, SLOT(onWrongAnswer()), Qt::UniqueConnection);
    connect(panel, SIGNAL(failed(QVError)), this, SLOT(onFailed(QVError)), Qt::UniqueConnection);
}

void PanelProbe::onReady()
{
    sender()->setProperty(hadPicture, true);
    m_log.add(QStringLiteral("ready"));
}

void PanelProbe::onWrongAnswer()
{
    m_log.add(QStringLiteral("wrong"));
}

void PanelProbe::onFailed(const QVError &error)
{
    m_log.add(QStringLiteral("error"), QStringLiteral("%1 %2").arg(error.code()).arg(error.domain()));
}
