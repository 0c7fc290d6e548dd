#include "draw/QVRenderDrawView.h"
#include "modes/ModesTestCase.h"
#include "modes/QVEmbedPanel.h"
#include "popup/QVWindow.h"
#include "settings/QVConfigurationManager.h"
#include "settings/QVSDKManager.h"
#include "support/QVPointerInput.h"

#include <QGraphicsView>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QProcess>
#include <QRegularExpression>

#include <thread>

using namespace std::chrono_literals;

namespace {

/// Counts what goes through it, and reads every answer itself, as a host's log may.
class CountingNetwork : public QNetworkAccessManager
{
public:
    CountingNetwork()
    {
        connect(this, &QNetworkAccessManager::finished, [](QNetworkReply *reply) { reply->readAll(); });
    }

    int count = 0;

protected:
    QNetworkReply *createRequest(Operation operation, const QNetworkRequest &request,
                                 QIODevice *data) override
    {
        ++count;
        return QNetworkAccessManager::createRequest(operation, request, data);
    }
};

} // namespace

/// What hosts own, choose, ask for, and do wrong.
class TestHosts : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void ownsWhatHasAParent()
    {
        ownsWhatHasAParent<QVClickManager>([](QVClickManager &manager) { return manager.clickButton(); });
        host().findChild<QVClickButton *>()->click();
        QVERIFY(waitForPicture());
        reset();
        ownsWhatHasAParent<QVEmbedManager>([](QVEmbedManager &manager) { return manager.embedView(); });
        pass(100ms);
        QVERIFY(waitForPicture());
    }

    void verifiesForTwoScenes()
    {
        QVSDKManager::setQuarvoSDKVid(q("process"), q("everywhere"));
        clickManager().setScene(q("login"));
        invisibleManager().setVid(q("own"));
        const auto query = [this](const QString &request, const char *name) {
            return service().query(request).value(q(name));
        };
        go(q("start, picture, reset"));
        QCOMPARE(query(config, "id") + query(config, "scene"), q("processlogin"));
        setMode(q("invisible"));
        go(q("start, picture, stroke"));
        QCOMPARE(query(config, "scene"), q("everywhere"));
        QCOMPARE(query(config, "id") + query(click, "id") + query(verify, "id"), q("ownownown"));
        invisibleManager().setScene(q("unseen"));
        QCOMPARE(invisibleManager().vid() + invisibleManager().scene(), q("ownunseen"));
        QVEmbedPanel ready;
        ready.setVid(q("own"));
        ready.setScene(q("page"));
        QCOMPARE(ready.manager()->vid() + ready.manager()->scene(), q("ownpage"));
        embedManager().setVid(q("panel"));
        embedManager().setScene(q("page"));
        setMode(q("embed"));
        go(q("start, wait 500"));
        QCOMPARE(query(config, "id") + query(config, "scene"), q("panelpage"));
    }

    void showsItsFormInAScene()
    {
        QGraphicsScene scene;
        QGraphicsView view(&scene);
        view.resize(700, 600);
        auto *const form = new QWidget;
        clickManager().button()->setParent(form);
        scene.addWidget(form);
        embedManager().embedView()->setParent(nullptr);
        scene.addWidget(embedManager().embedView());
        showActive(view);
        start(QVVerifyStylePopup);
        QVERIFY(waitForPicture());
        QCOMPARE(popup()->window(), &view);
        pass(300ms);
        QVERIFY(outcomes().said().contains(q("ready")));
        clickManager().reset();
        scene.clear();
    }

    void valuesAreKnownToTheMetaObjectSystem()
    {
        const QVariant error = QVariant::fromValue(QVError(q("No"), 7, {{q("key"), 1}}));
        const auto read = [&error](const char *name) {
            const QMetaObject &type = QVError::staticMetaObject;
            return type.property(type.indexOfProperty(name)).readOnGadget(error.constData());
        };
        QCOMPARE(read("domain").toString() + read("code").toString(), q("No7"));
        QCOMPARE(read("userInfo").toMap().value(q("key")).toInt(), 1);
        QCOMPARE(QMetaEnum::fromType<QVCloseReason>().keyToValue("WindowGone"), 2);
        QStringList queued;
        QVClickButton &button = *clickManager().button();
        connect(
            &button, &QVClickButton::clickStatusChanged, this,
            [&queued](QVClickStatus status) { queued.append(QVariant::fromValue(status).toString()); },
            Qt::QueuedConnection);
        connect(
            &button, &QVClickButton::failed, this,
            [&queued](const QVError &told) { queued.append(QString::number(told.code())); },
            Qt::QueuedConnection);
        go(q("answer config 0101, start, wait 10"));
        QCOMPARE(queued, words("QVClickStatusVerifying, QVClickStatusFailed, 101"));
        QCOMPARE(button.property("clickStatus").toInt(), 5);
    }

    void requestsGoTheHostsWay()
    {
        auto network = std::make_unique<CountingNetwork>();
        QVSDKManager::setNetworkAccessManager(network.get());
        setMode(q("embed"));
        go(q("start, wait 0"));
        QCOMPARE(network->count, 4);
        // It goes while a request is under way.
        go(q("hold config 1000, start"));
        QVERIFY(waitFor([&network] { return network->count == 6; }));
        network.reset();
        go(q("wait 0, hold config 0, start"));
        QVERIFY(waitFor([this] { return outcomes().said() == words("ready, failed -1005, ready"); }));
    }

    void anotherThreadDoesNothing()
    {
        const auto isRefused = [](const char *name, const std::function<void()> &call) {
            const QRegularExpression warning(q(name) + q(".*is to be called in the thread"));
            QTest::ignoreMessage(QtWarningMsg, warning);
            std::thread(call).join();
        };
        QVClickButton &button = *clickManager().button();
        isRefused("QVSDKManager::setQuarvoSDKVid", [] { QVSDKManager::setQuarvoSDKVid(q("x"), q("y")); });
        isRefused("QVClickManager::button", [this] { QVERIFY(!clickManager().button()); });
        isRefused("QVClickButton::reset", [&button] { button.reset(); });
        QVEmbedManager panel;
        isRefused("QVEmbedManager::embedView", [&panel] { QVERIFY(!panel.embedView()); });
        QVInvisibleManager unseen;
        isRefused("QVInvisibleManager::startInsivible", [&unseen] { unseen.startInsivible(); });
        settle();
        QCOMPARE(QVConfigurationManager::sharedManager().vid(), q("some-id"));
        QCOMPARE(outcomes().said() + asked(), QStringList());
    }

    /// In programs of their own.
    void hostsWithoutWidgetsFailAndOthersQuit_data()
    {
        const auto row = addColumns<QString, QString, QString>({"arguments", "steps", "said"});
        row("late, settings", q("late click"), QString(),
            q("QVSDKManager::setServiceAddresses.* is to be called once there is an application object"));
        row("late, click", q("late click"), QString(),
            q("QVClickManager::clickButton.* once there is an application object"));
        row("late, invisible", q("late invisible"), QString(),
            q("startInsivible.* once there is an application object"));
        for (const QString &kind : words("core, gui")) {
            row("no widgets, click", kind + q(" click"), QString(),
                q("QVClickManager::clickButton.* needs a QApplication"));
            row("no widgets, embed", kind + q(" embed"), QString(),
                q("QVEmbedManager::embedView.* needs a QApplication"));
            row("no widgets, invisible", kind + q(" invisible"), QString(),
                q("No popup can be shown: there is no QApplication"));
        }
        row("quits while asking", q("careless requests"), q("hold switch 9000"), QString());
        row("quits with popups", q("careless popups"), q("outage, hold outage-get 9000"), QString());
    }

    void hostsWithoutWidgetsFailAndOthersQuit()
    {
        QFETCH(QString, arguments);
        QFETCH(QString, steps);
        QFETCH(QString, said);
        go(steps);
        QProcess host;
        host.setProcessChannelMode(QProcess::MergedChannels);
        host.start(QStringLiteral(QUARVO_WRONG_HOST),
                   arguments.split(u' ') + QStringList(service().addresses().apiHost()));
        QVERIFY(waitFor([&host] { return host.state() == QProcess::NotRunning; }));
        const QString output = QString::fromUtf8(host.readAll());
        QVERIFY2(host.exitStatus() == QProcess::NormalExit && host.exitCode() == 0, qPrintable(output));
        QVERIFY2(output.contains(QRegularExpression(said)), qPrintable(output));
        QCOMPARE(output.count(q("failed 10001")), said.isEmpty() ? 0 : 1);
    }

private:
    void finish() override
    {
        QVSDKManager::setNetworkAccessManager(nullptr);
        ModesTestCase::finish();
    }

    /// Leaves on the host the button or panel of a manager that was destroyed.
    template<class Manager>
    void ownsWhatHasAParent(const std::function<QWidget *(Manager &)> &viewOf)
    {
        auto manager = std::make_unique<Manager>();
        QPointer<QWidget> view = viewOf(*manager);
        QCOMPARE(viewOf(*manager), view.data());
        manager.reset();
        QVERIFY(!view);
        manager = std::make_unique<Manager>();
        {
            QWidget page;
            view = viewOf(*manager);
            view->setParent(&page);
        }
        QVERIFY(!view);
        view = viewOf(*manager);
        view->setParent(&host());
        view->show();
        const QString name = q(Manager::staticMetaObject.className());
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(name + q(" was destroyed")));
        manager.reset();
        pass(10ms);
        QVERIFY(view);
    }
};

QV_TEST(TestHosts)
#include "TestHosts.moc"
