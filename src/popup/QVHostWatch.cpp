#include "popup/QVHostWatch.h"

#include "platform/QVScheduler.h"
#include "popup/QVWindow.h"

#include <QApplication>
#include <QChildEvent>
#include <QWindow>

#include <algorithm>

namespace {

bool canHost(const QWidget *window)
{
    if (!window || !window->isVisible() || qobject_cast<const QVWindow *>(window))
        return false;
    const Qt::WindowType type = window->windowType();
    return type == Qt::Window || type == Qt::Dialog || type == Qt::Sheet;
}

bool isForeign(const QWindow *window)
{
    return window && window->isTopLevel() && window->isVisible() && !window->inherits("QWidgetWindow") &&
           (window->type() == Qt::Window || window->type() == Qt::Dialog);
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

QVHostWatch::QVHostWatch(QWindow *host, QObject *parent)
    : QObject(parent)
    , m_foreignHost(host)
{
    host->installEventFilter(this);
    connect(host, &QObject::destroyed, this, &QVHostWatch::endLater);
}

QWidget *QVHostWatch::hostWindow(QWidget *preferred)
{
    if (preferred)
        return preferred->window();
    if (QWidget *const active = QApplication::activeWindow(); canHost(active))
        return active;
    if (isForeign(QGuiApplication::focusWindow()))
        return nullptr;
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (canHost(window))
            return window;
    }
    return nullptr;
}

QWindow *QVHostWatch::foreignWindow()
{
    if (QWindow *const focused = QGuiApplication::focusWindow(); isForeign(focused))
        return focused;
    const QWindowList windows = QGuiApplication::topLevelWindows();
    const auto found = std::ranges::find_if(windows, isForeign);
    return found == windows.end() ? nullptr : *found;
}

void QVHostWatch::adopt(QWidget *host, QWidget *child)
{
    ChildSilence silence;
    host->installEventFilter(&silence);
    child->setParent(host);
}

bool QVHostWatch::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_foreignHost) {
        watchWindow(*event);
        return false;
    }
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

void QVHostWatch::watchWindow(const QEvent &event)
{
    if (event.type() == QEvent::Resize || event.type() == QEvent::Move)
        Q_EMIT resized();
    else if (event.type() == QEvent::Close || event.type() == QEvent::Hide)
        endLater();
}

bool QVHostWatch::hostIsVisible() const
{
    return m_host ? m_host->isVisible() : m_foreignHost && m_foreignHost->isVisible();
}

void QVHostWatch::endLater()
{
    // The host may still refuse to close, which shows only once its handler has run.
    QVScheduler::shared().schedule({}, [self = QPointer(this)] {
        if (self && !self->hostIsVisible())
            Q_EMIT self->ended();
    });
}
