#include "popup/QVHosts.h"

#include "popup/QVWindow.h"

#include <QApplication>
#include <QGraphicsProxyWidget>
#include <QGraphicsScene>
#include <QGraphicsView>
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

} // namespace

QWidget *qv_hostOf(QWidget *widget)
{
    QWidget *const window = widget->window();
    const QGraphicsProxyWidget *const proxy = window->graphicsProxyWidget();
    if (!proxy || !proxy->scene())
        return window;
    const auto views = proxy->scene()->views();
    const auto seen =
        std::ranges::find_if(views, [](const QGraphicsView *view) { return view->isVisible(); });
    return seen == views.end() ? window : qv_hostOf(*seen);
}

QObject *qv_activeHost()
{
    if (QWidget *const active = QApplication::activeWindow(); canHost(active))
        return qv_hostOf(active);
    if (QWindow *const focused = QGuiApplication::focusWindow(); isForeign(focused))
        return focused;
    const QWidgetList widgets = QApplication::topLevelWidgets();
    if (const auto found = std::ranges::find_if(widgets, canHost); found != widgets.end())
        return qv_hostOf(*found);
    const QWindowList windows = QGuiApplication::topLevelWindows();
    const auto found = std::ranges::find_if(windows, isForeign);
    return found == windows.end() ? nullptr : *found;
}
