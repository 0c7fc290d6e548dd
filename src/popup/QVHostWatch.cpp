#include "popup/QVHostWatch.h"

#include "platform/QVScheduler.h"

#include <QChildEvent>
#include <QWidget>
#include <QWindow>

namespace {

/// Hides the events about new children from a window.
class ChildSilence : public QObject
{
    bool eventFilter(QObject *, QEvent *event) override { return event->type() == QEvent::ChildAdded; }
};

} // namespace

QVHostWatch::QVHostWatch(QObject *host, QObject *parent)
    : QObject(parent)
    , m_host(host)
{
    host->installEventFilter(this);
    connect(host, &QObject::destroyed, this, &QVHostWatch::endLater);
    for (QObject *child : host->children())
        watchChild(child);
}

bool QVHostWatch::isShown(const QObject *host)
{
    if (const auto *const widget = qobject_cast<const QWidget *>(host))
        return widget->isVisible();
    const auto *const window = qobject_cast<const QWindow *>(host);
    return window && window->isVisible();
}

void QVHostWatch::adopt(QWidget *host, QWidget *child)
{
    ChildSilence silence;
    host->installEventFilter(&silence);
    child->setParent(host, child->windowFlags() & ~Qt::WindowType_Mask);
}

bool QVHostWatch::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_host) {
        if (event->type() == QEvent::ZOrderChange)
            Q_EMIT restacked();
    } else if (watched->isWidgetType()) {
        watchWidget(*event);
    } else {
        watchWindow(*event);
    }
    return false;
}

void QVHostWatch::watchWidget(const QEvent &event)
{
    switch (event.type()) {
    case QEvent::Resize:
        Q_EMIT resized();
        break;
    case QEvent::EnabledChange:
    case QEvent::WindowBlocked:
    case QEvent::WindowUnblocked:
        Q_EMIT usabilityChanged();
        break;
    case QEvent::Hide:
        endLater();
        if (!event.spontaneous())
            Q_EMIT hiding();
        break;
    case QEvent::ChildAdded:
        watchChild(static_cast<const QChildEvent &>(event).child());
        Q_EMIT restacked();
        break;
    default:
        break;
    }
}

void QVHostWatch::watchWindow(const QEvent &event)
{
    if (event.type() == QEvent::Resize || event.type() == QEvent::Move)
        Q_EMIT resized();
    else if (event.type() == QEvent::Hide)
        endLater();
}

void QVHostWatch::watchChild(QObject *child)
{
    // Qt sets the places of destroyed children to null while it destroys the others.
    if (child && child->isWidgetType())
        child->installEventFilter(this);
}

void QVHostWatch::endLater()
{
    // From the event loop: the host may show its window again at once.
    QVScheduler::shared().schedule({}, [self = QPointer(this)] {
        if (self && !isShown(self->m_host))
            Q_EMIT self->ended();
    });
}
