#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTest>
#include <QTimer>

#include <functional>

/// Delivers real events until \a condition holds, without the pauses of Qt Test; false after
/// \a milliseconds.
inline bool qv_waitFor(const std::function<bool()> &condition, int milliseconds = 15000)
{
    const QDeadlineTimer deadline(milliseconds);
    // What other threads do may bring no event.
    QTimer glance;
    glance.start(2);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

/// Waits until a window that was shown has the keyboard. On Wayland only the compositor gives it, with no
/// word from Qt Test; elsewhere a window manager may have to be asked.
template<class Widget>
bool qv_becomesActive(Widget &window)
{
    window.activateWindow();
    return QTest::qWaitForWindowExposed(&window) && qv_waitFor([&window] { return window.isActiveWindow(); });
}
