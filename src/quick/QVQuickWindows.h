#pragma once

class QObject;
class QQuickWindow;
class QWindow;

/// The windows that items are in and that show them.
namespace QVQuickWindows {

/// The window that \a object is in, null where it is in none.
[[nodiscard]] QQuickWindow *of(QObject *object);
/// The window that has the keyboard, else that of \a object, else any; null where no window is shown.
[[nodiscard]] QQuickWindow *active(QObject *object);
/// The window on screen that shows \a window: itself, or that of the widget whose scene it is.
[[nodiscard]] QWindow *shown(QQuickWindow *window);
/// Whether \a host is a window that is on screen.
[[nodiscard]] bool isShown(const QObject *host);

} // namespace QVQuickWindows
