#include "hosts/HostWindow.h"

#include "QuietPlatform.h"
#include "hosts/BenchClock.h"

#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QMouseEvent>
#include <QTimer>
#include <QWindow>

#include <cstdio>
#include <utility>

namespace {

constexpr double microsecondsPerMillisecond = 1000;

/// A position on an endless line, which runs to and fro over the picture.
QPointF strokePosition(int index)
{
    constexpr int perRow = 50;
    constexpr int rows = 30;
    const int row = index / perRow;
    const int column = row % 2 == 0 ? index % perRow : perRow - 1 - index % perRow;
    return {20.0 + 7 * column, 30.0 + 6 * (row % rows)};
}

} // namespace

HostWindow::HostWindow()
    : m_layout(this)
    , m_button(QStringLiteral("Log in"))
{
    m_layout.setContentsMargins({});
    m_layout.addWidget(&m_button);
}

void HostWindow::place(QWidget *content, QSize size)
{
    content->setFixedSize(size);
    m_layout.addWidget(content);
}

void HostWindow::afterPaint(std::function<void()> action)
{
    m_afterPaint = std::move(action);
}

bool HostWindow::event(QEvent *event)
{
    const bool handled = QWidget::event(event);
    if (event->type() == QEvent::UpdateRequest) {
        m_paints.push_back(benchNow());
        if (m_afterPaint)
            std::exchange(m_afterPaint, {})();
    }
    return handled;
}

void sendMouse(QWidget &widget, QEvent::Type type, QPointF position)
{
    QWidget &window = *widget.window();
    const QPointF inWindow = widget.mapTo(&window, position);
    const bool isRelease = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, inWindow, window.mapToGlobal(inWindow),
                      type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                      isRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window.windowHandle(), &event);
}

QJsonObject strokeCosts(QWidget &widget)
{
    constexpr int early = 10;
    constexpr int late = 500;
    constexpr int nearby = 5;
    QJsonArray earlyCosts;
    QJsonArray lateCosts;
    sendMouse(widget, QEvent::MouseButtonPress, strokePosition(0));
    for (int i = 1; i <= late + nearby; ++i) {
        const double start = benchNow();
        sendMouse(widget, QEvent::MouseMove, strokePosition(i));
        QCoreApplication::sendPostedEvents(widget.window(), QEvent::UpdateRequest);
        const double cost = (benchNow() - start) * microsecondsPerMillisecond;
        if (std::abs(i - early) <= nearby)
            earlyCosts.push_back(cost);
        if (std::abs(i - late) <= nearby)
            lateCosts.push_back(cost);
    }
    sendMouse(widget, QEvent::MouseButtonRelease, strokePosition(late + nearby));
    return {{QStringLiteral("move10"), earlyCosts}, {QStringLiteral("move500"), lateCosts}};
}

int runApplication(int argc, char *argv[], const std::function<int(const QString &mode)> &host)
{
    quietPlatform();
    QApplication application(argc, argv);
    QTimer::singleShot(std::chrono::minutes(3), [] { QCoreApplication::exit(1); });
    return host(QApplication::arguments().value(1));
}

void tell(const QJsonObject &figures)
{
    std::puts(QJsonDocument(figures).toJson(QJsonDocument::Compact).constData());
    std::fflush(stdout);
}

void tellLater(const QJsonObject &figures)
{
    constexpr int settled = 500;
    QTimer::singleShot(settled, [figures] { tell(figures); });
}

QString serviceAddress()
{
    return QCoreApplication::arguments().value(2);
}
