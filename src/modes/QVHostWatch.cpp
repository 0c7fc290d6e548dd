#include "modes/QVHostWatch.h"

#include "modes/QVWindow.h"
#include "platform/QVScheduler.h"

#include <QApplication>
#include <QChildEvent>

namespace {

bool canHost(const QWidget *window)
{
    if (!window || !window->isVisible() || qobject_cast<const QVWindow *>(window))
        return false;
    const Qt::WindowType type = window->windowType();
    return type == Qt::Window || type == Qt::Dialog || type == Qt::Sheet;
}

/// Keeps a window from hearing of its new children.
class ChildSilence : public QObject
{
    bool eventFilter(QObject *, QEvent *event) override { return event->type() == QEvent::ChildAdded; }
};

} // namespace

QVHostWatch::QVHostWatch(QWidget *host, QObject *parent)
    : QObject(parent)
    , m_host(host)
{
    host->installEventFilter(this);
    connect(host, &QObject::destroyed, this, &QVHostWatch::endLater);
    for (QObject *child : host->children())
        watchChild(child);
}

QWidget *QVHostWatch::hostWindow(QWidget *preferred)
{
    if (preferred)
        return preferred->window();
    if (QWidget *const active = QApplication::activeWindow(); canHost(active))
        return active;
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (canHost(window))
            return window;
    }
    return nullptr;
}

void QVHostWatch::adopt(QWidget *host, QWidget *child)
{
    ChildSilence silence;
    host->installEventFilter(&silence);
    child->setParent(host);
}

bool QVHostWatch::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_host) {
        if (event->type() == QEvent::ZOrderChange)
            Q_EMIT restacked();
        return false;
    }
    if (event->type() == QEvent::Resize) {
        Q_EMIT resized();
    } else if (event->type() == QEvent::Close) {
        endLater();
    } else if (event->type() == QEvent::ChildAdded) {
        watchChild(static_cast<QChildEvent *>(event)->child());
        Q_EMIT restacked();
    }
    return false;
}

void QVHostWatch::watchChild(QObject *child)
{
    if (child->isWidgetType())
        child->installEventFilter(this);
}

void QVHostWatch::endLater()
{
    // The host may still refuse to close, which shows only once its handler has run.
    QVScheduler::shared().schedule({}, [self = QPointer(this)] {
        if (self && (!self->m_host || !self->m_host->isVisible()))
            Q_EMIT self->ended();
    });
}
