#include "driver/ExampleDriver.h"

#include <Quarvo/Quarvo.h>

#include <QAbstractButton>
#include <QApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMouseEvent>
#include <QNetworkReply>
#include <QRegularExpression>
#include <QWindow>

#include <chrono>
#include <cstdio>

using namespace std::chrono_literals;

namespace {

constexpr auto patience = 20s;
constexpr int exitFailed = 1;
// The time in which a popup unfolds. A stroke during that time would be at the wrong place.
constexpr auto unfolding = 400ms;
constexpr int strokeMilliseconds = 1200;

ExampleDriver *driver = nullptr;
QtMessageHandler printer = nullptr;

void hear(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    printer(type, context, message);
    if (driver)
        driver->heard(message);
}

/// Clicks into the middle of the window with events like those of the platform.
void clickInto(QWindow *window)
{
    const QPointF middle(window->width() / 2.0, window->height() / 2.0);
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        const Qt::MouseButtons held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
        QMouseEvent event(type, middle, window->mapToGlobal(middle), Qt::LeftButton, held, Qt::NoModifier);
        QCoreApplication::sendEvent(window, &event);
    }
}

/// Runs in the constructor of the application object, so that no window is missed.
void attach()
{
    driver = new ExampleDriver;
    QObject::connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, driver,
                     [] { delete driver; });
}
Q_COREAPP_STARTUP_FUNCTION(attach)

} // namespace

ExampleDriver::ExampleDriver()
    : m_probe(m_log)
{
    printer = qInstallMessageHandler(hear);
    connect(&m_log, &EventLog::added, this, &ExampleDriver::handleEvent);
    QTimer::singleShot(patience, this, [] { QApplication::exit(exitFailed); });
    // From the event loop, after main() has created its objects.
    QTimer::singleShot(0, this, &ExampleDriver::start);
}

ExampleDriver::~ExampleDriver()
{
    driver = nullptr;
    qInstallMessageHandler(nullptr);
}

void ExampleDriver::start()
{
    if (!m_sandbox.listen()) {
        QApplication::exit(exitFailed);
        return;
    }
    const QString local = m_sandbox.addresses().apiHost;
    QVSDKManager::setServiceAddresses(QVServiceAddresses::at(local));
    m_solution = std::make_unique<SolutionClient>(QVector<QUrl>{QUrl(local)});
    connect(m_solution.get(), &SolutionClient::curve, this, &ExampleDriver::solve);
    QTimer::singleShot(unfolding, this, &ExampleDriver::press);
}

void ExampleDriver::press()
{
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets) {
        // Parts of a panel are buttons, too, and must not be pressed here.
        const bool isHosts = widget->inherits("QPushButton") || widget->inherits("QVClickButton");
        if (isHosts && widget->isVisible() && widget->isEnabled()) {
            m_input.click(widget);
            return;
        }
    }
    for (QWindow *window : QGuiApplication::topLevelWindows()) {
        if (!window->inherits("QWidgetWindow"))
            clickInto(window);
    }
}

void ExampleDriver::handleEvent(const QString &line)
{
    if (line.startsWith(QLatin1String("ready")))
        QTimer::singleShot(unfolding, m_solution.get(), &SolutionClient::ask);
}

void ExampleDriver::solve(const QVector<QPointF> &curve)
{
    const QVector<QPointF> points = m_probe.onPanel(curve);
    if (points.isEmpty())
        return;
    m_input.draw(m_probe.panel(), points, strokeMilliseconds);
    // The user of a form sends it after the picture has been solved.
    QTimer::singleShot(strokeMilliseconds + 2000, this, [this] {
        if (!m_hasPrinted)
            press();
    });
}

void ExampleDriver::heard(const QString &message)
{
    static const QRegularExpression lastQuoted(QStringLiteral("\"([^\"]+)\"\\s*$"));
    const QRegularExpressionMatch match = lastQuoted.match(message);
    if (m_hasPrinted || !match.hasMatch())
        return;
    m_hasPrinted = true;
    checkToken(match.captured(1));
}

void ExampleDriver::checkToken(const QString &token)
{
    QNetworkReply *const reply = m_network.get(
        QNetworkRequest(QUrl(m_sandbox.baseAddress() + QStringLiteral("/sandbox/token?token=") + token)));
    connect(reply, &QNetworkReply::finished, this, [reply] {
        const QByteArray answer = reply->readAll();
        const bool isValid = QJsonDocument::fromJson(answer).object().value(QLatin1String("valid")).toBool();
        std::printf("%s\n", answer.constData());
        QApplication::exit(isValid ? 0 : exitFailed);
    });
}
