#include "support/QVPointerInput.h"

#include "support/QVText.h"

#include <QCoreApplication>
#include <QPointer>
#include <QTabletEvent>
#include <QTest>
#include <QWidget>
#include <QWindow>

#include <cmath>

namespace {

using namespace QVPointerInput;

QWindow *windowOf(const QWidget &widget)
{
    return widget.window()->windowHandle();
}

QPoint inWindow(const QWidget &widget, QPoint point)
{
    return widget.mapTo(widget.window(), point);
}

void stroke(QWidget &widget, const Points &points, const Pause &pause,
            const std::function<void(QPoint)> &first, const std::function<void(QPoint)> &next,
            const std::function<void(QPoint)> &last)
{
    // What is drawn on may go in the middle.
    const auto isThere = [guard = QPointer(&widget)] {
        return guard && guard->isVisible() && windowOf(*guard);
    };
    first(points.front());
    for (std::size_t i = 1; i < points.size(); ++i) {
        if (pause)
            pause();
        if (!isThere())
            return;
        next(points[i]);
    }
    if (isThere())
        last(points.back());
}

const QPointingDevice *pen()
{
    static const QPointingDevice device(q("pen"), 2, QInputDevice::DeviceType::Stylus,
                                        QPointingDevice::PointerType::Pen, QInputDevice::Capability::Position,
                                        1, 1);
    return &device;
}

void sendPen(QWidget &widget, QEvent::Type type, QPoint point, Qt::MouseButton button)
{
    const Qt::MouseButtons buttons = type == QEvent::TabletRelease ? Qt::NoButton : Qt::LeftButton;
    const QPoint position = inWindow(widget, point);
    QTabletEvent event(type, pen(), position, widget.mapToGlobal(point), buttons ? 0.5 : 0.0, 0, 0, 0, 0, 0,
                       Qt::NoModifier, button, buttons);
    QCoreApplication::sendEvent(windowOf(widget), &event);
}

} // namespace

QPointingDevice *QVPointerInput::touchScreen()
{
    static QPointingDevice *device = QTest::createTouchDevice();
    return device;
}

void QVPointerInput::press(QWidget &widget, QPoint point, Qt::MouseButton button)
{
    QTest::mousePress(windowOf(widget), button, Qt::NoModifier, inWindow(widget, point));
}

void QVPointerInput::move(QWidget &widget, QPoint point)
{
    QTest::mouseMove(windowOf(widget), inWindow(widget, point));
}

void QVPointerInput::release(QWidget &widget, QPoint point, Qt::MouseButton button)
{
    QTest::mouseRelease(windowOf(widget), button, Qt::NoModifier, inWindow(widget, point));
}

void QVPointerInput::click(QWidget &widget, QPoint point)
{
    const QPointer<QWidget> guard(&widget);
    press(widget, point);
    // The press may have taken it away.
    if (guard && windowOf(*guard))
        release(*guard, point);
}

void QVPointerInput::strokeWithMouse(QWidget &widget, const Points &points, const Pause &pause)
{
    stroke(
        widget, points, pause, [&](QPoint point) { press(widget, point); },
        [&](QPoint point) { move(widget, point); }, [&](QPoint point) { release(widget, point); });
}

void QVPointerInput::strokeWithFinger(QWidget &widget, const Points &points, const Pause &pause)
{
    const auto touch = [&widget] {
        return QTest::touchEvent(windowOf(widget), touchScreen());
    };
    stroke(
        widget, points, pause, [&](QPoint point) { touch().press(0, inWindow(widget, point)); },
        [&](QPoint point) { touch().move(0, inWindow(widget, point)); },
        [&](QPoint point) { touch().release(0, inWindow(widget, point)); });
}

void QVPointerInput::strokeWithPen(QWidget &widget, const Points &points, const Pause &pause)
{
    stroke(
        widget, points, pause,
        [&](QPoint point) { sendPen(widget, QEvent::TabletPress, point, Qt::LeftButton); },
        [&](QPoint point) { sendPen(widget, QEvent::TabletMove, point, Qt::NoButton); },
        [&](QPoint point) { sendPen(widget, QEvent::TabletRelease, point, Qt::LeftButton); });
}

QVPointerInput::Points QVPointerInput::wave(QPoint start, int count, int step)
{
    Points points;
    points.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        points.emplace_back(start.x() + i * step, start.y() + qRound(20 * std::sin(i * 0.3)));
    return points;
}
