#include "quick/QVQuickPresenter.h"

#include "platform/QVScheduler.h"
#include "quick/QVQuickPopup.h"

#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

#include <algorithm>

bool QVQuickPresenter::canShowOver(const QObject *host) const
{
    return qobject_cast<const QQuickWindow *>(host) && qmlEngine(&m_owner);
}

bool QVQuickPresenter::isShown(const QObject *host) const
{
    const auto *const window = qobject_cast<const QQuickWindow *>(host);
    return window && window->isVisible();
}

void QVQuickPresenter::open(QVVerifyStyle style, const Config &config, const Click &click,
                            QVViewControllerDelegate *delegate) const
{
    QVQuickPopup::show(*qmlEngine(&m_owner), style, config, click, delegate);
}

std::unique_ptr<QObject> QVQuickPresenter::watch(QObject *host, const std::function<void()> &gone) const
{
    auto watch = std::make_unique<QObject>();
    // The host may still refuse to close, which shows only once its handler has run.
    const auto look = [context = QPointer(watch.get()), window = QPointer(host), gone] {
        QVScheduler::shared().schedule({}, [context, window, gone] {
            const auto *const shown = qobject_cast<const QQuickWindow *>(window);
            if (context && (!shown || !shown->isVisible()))
                gone();
        });
    };
    QObject::connect(host, &QObject::destroyed, watch.get(), look);
    if (auto *const window = qobject_cast<QWindow *>(host))
        QObject::connect(window, &QWindow::visibleChanged, watch.get(), look);
    return watch;
}

QQuickWindow *QVQuickPresenter::windowOf(QObject *object)
{
    for (; object; object = object->parent()) {
        if (auto *const item = qobject_cast<QQuickItem *>(object))
            return item->window();
        if (auto *const window = qobject_cast<QQuickWindow *>(object))
            return window;
    }
    return nullptr;
}

QQuickWindow *QVQuickPresenter::activeWindow(QObject *object)
{
    if (auto *const focused = qobject_cast<QQuickWindow *>(QGuiApplication::focusWindow()))
        return focused;
    if (auto *const own = windowOf(object); own && own->isVisible())
        return own;
    const QWindowList windows = QGuiApplication::topLevelWindows();
    const auto found = std::ranges::find_if(windows, [](const QWindow *window) {
        return qobject_cast<const QQuickWindow *>(window) && window->isVisible();
    });
    return found == windows.end() ? nullptr : static_cast<QQuickWindow *>(*found);
}
