#include "draw/QVRenderDrawView.h"
#include "settings/QVSDKManager.h"
#include "support/QVTestCase.h"
#include "support/QVWait.h"

#include <Quarvo/Quarvo.h>

#include <QApplication>
#include <QProcess>
#include <QTcpServer>
#include <QVBoxLayout>

#include <algorithm>

namespace {

/// What a careless host keeps for ever: managers that end after the application object, and a window
/// that never does.
struct CarelessHost
{
    QVClickManager click;
    QVInvisibleManager invisible;
    QVEmbedManager embed;
    QWidget *window = new QWidget;

    CarelessHost()
    {
        // Qt's own frame on Wayland crashes when a window that has the keyboard is left to the application's
        // end.
        window->setWindowFlag(Qt::FramelessWindowHint);
        auto *layout = new QVBoxLayout(window);
        layout->addWidget(click.clickButton());
        window->show();
        window->activateWindow();
    }
};

std::unique_ptr<CarelessHost> carelessHost;
QWidget *keptWindow = nullptr;

} // namespace

/// The other process: quits, in real time, in the midst of what its argument says.
class QuittingHost : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void quit_data()
    {
        QTest::addColumn<bool>("isOutage");
        QTest::newRow("requests") << false;
        QTest::newRow("popups") << true;
    }

    void quit()
    {
        QFETCH(bool, isOutage);
        static QTcpServer silent;
        QVERIFY(silent.listen(QHostAddress::LocalHost));
        QVServiceAddresses addresses;
        addresses.setApiHost(QStringLiteral("http://127.0.0.1:%1").arg(silent.serverPort()));
        addresses.setDownloadHost(addresses.apiHost());
        QVSDKManager::setServiceAddresses(addresses);
        carelessHost = std::make_unique<CarelessHost>();
        keptWindow = carelessHost->window;
        QVERIFY(qv_becomesActive(*keptWindow));
        if (isOutage)
            answerThatTheServiceIsDown(silent);
        carelessHost->click.button()->click();
        carelessHost->invisible.startInsivible();
        // Last, so that it is not what the one answer goes to.
        keptWindow->layout()->addWidget(carelessHost->embed.embedView());
        const int panels = isOutage ? 2 : 1;
        QVERIFY(qv_waitFor([&] { return countOfPanels() >= panels && silent.hasPendingConnections(); }));
    }

private:
    /// Popups may have windows of their own.
    static qsizetype countOfPanels()
    {
        return std::ranges::count_if(QApplication::allWidgets(), [](const QWidget *widget) {
            return qobject_cast<const QVRenderDrawView *>(widget) != nullptr;
        });
    }

    static void answerThatTheServiceIsDown(QTcpServer &server)
    {
        QVSDKManager::setOutageServer(QStringLiteral("http://127.0.0.1:%1/outage").arg(server.serverPort()));
        connect(&server, &QTcpServer::newConnection, &server, [&server] {
            // The first alone, so that others stay under way.
            static bool isAnswered = false;
            if (std::exchange(isAnswered, true))
                return;
            QTcpSocket *const socket = server.nextPendingConnection();
            socket->write("HTTP/1.1 200 OK\r\nContent-Length: 15\r\n\r\n{\"active\":true}");
        });
    }
};

QV_TEST(QuittingHost)

/// The application may end with requests, animations and popups alive.
class TestQuitting : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void endsCleanlyAndSoon_data()
    {
        QTest::addColumn<QString>("row");
        for (const char *row : {"requests", "popups"})
            QTest::newRow(row) << QString::fromLatin1(row);
    }

    void endsCleanlyAndSoon()
    {
        QFETCH(QString, row);
        QProcess process;
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(QCoreApplication::applicationFilePath(),
                      {QStringLiteral("QuittingHost"), QStringLiteral("quit:") + row});
        constexpr int soon = 30000;
        const bool isOver = process.waitForFinished(soon);
        const QByteArray output = process.readAll();
        QVERIFY2(isOver, output.constData());
        QVERIFY2(process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0, output.constData());
    }
};

QV_TEST(TestQuitting)
#include "TestQuitting.moc"
