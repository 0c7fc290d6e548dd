#include "quick/QVQuickWindows.h"

#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickRenderControl>
#include <QQuickWindow>

#include <algorithm>

QWindow *QVQuickWindows::shown(QQuickWindow *window)
{
    QWindow *const around = QQuickRenderControl::renderWindowFor(window);
    return around ? around : window;
}

QQuickWindow *QVQuickWindows::of(QObject *object)
{
    for (; object; object = object->parent()) {
        if (auto *const item = qobject_cast<QQuickItem *>(object))
            return item->window();
        if (auto *const window = qobject_cast<QQuickWindow *>(object))
            return window;
    }
    return nullptr;
}

QQuickWindow *QVQuickWindows::active(QObject *object)
{
    if (auto *const focused = qobject_cast<QQuickWindow *>(QGuiApplication::focusWindow()))
        return focused;
    if (auto *const own = of(object); own && isShown(own))
        return own;
    const QWindowList windows = QGuiApplication::topLevelWindows();
    const auto found = std::ranges::find_if(windows, [](const QWindow *window) {
        return qobject_cast<const QQuickWindow *>(window) && window->isVisible();
    });
    return found == windows.end() ? nullptr : static_cast<QQuickWindow *>(*found);
}

bool QVQuickWindows::isShown(const QObject *host)
{
    auto *const window = qobject_cast<QQuickWindow *>(const_cast<QObject *>(host));
    return window && shown(window)->isVisible();
}
