#include "support/QVPointerInput.h"

#include "support/QVText.h"

#include <QCoreApplication>
#include <QPointer>
#include <QTabletEvent>
#include <QTest>
#include <QWidget>
#include <QWindow>

namespace {

QWindow *windowOf(const QWidget &widget)
{
    return widget.window()->windowHandle();
}

QPoint inWindow(const QWidget &widget, QPoint point)
{
    return widget.mapTo(widget.window(), point);
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

void QVPointerInput::tap(QWidget &widget, QPoint point)
{
    QTest::touchEvent(windowOf(widget), touchScreen()).press(0, inWindow(widget, point));
    QTest::touchEvent(windowOf(widget), touchScreen()).release(0, inWindow(widget, point));
}

void QVPointerInput::strokeWithPen(QWidget &widget, const std::vector<QPoint> &points)
{
    sendPen(widget, QEvent::TabletPress, points.front(), Qt::LeftButton);
    for (const QPoint point : points)
        sendPen(widget, QEvent::TabletMove, point, Qt::NoButton);
    sendPen(widget, QEvent::TabletRelease, points.back(), Qt::LeftButton);
}
