#include "modes/ModesTestCase.h"
#include "modes/QVEmbedManager.h"
#include "settings/QVConfigurationManager.h"
#include "settings/QVSDKManager.h"

#include <QProcess>
#include <QRegularExpression>

#include <thread>

/// What a host does that it must not, in release builds as in others.
class TestWrongUse : public ModesTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void anotherThreadDoesNothing()
    {
        QVEmbedManager embed;
        const QVCases<const char *, std::function<void()>> calls{
            {"QVSDKManager::setQuarvoSDKVid",
             [] {
                 QVSDKManager::setQuarvoSDKVid(q("x"), q("y"));
             }},
            {"QVClickManager::button",
             [this] {
                 QVERIFY(!clickManager().button());
             }},
            {"QVClickButton::reset",
             [this] {
                 m_button->reset();
             }},
            {"QVEmbedManager::embedView",
             [&embed] {
                 QVERIFY(!embed.embedView());
             }},
            {"QVInvisibleManager::startInsivible",
             [this] {
                 invisibleManager().startInsivible();
             }},
        };
        m_button = clickManager().button();
        invisibleManager();
        outcomes().watch(m_button);
        for (const auto &[name, call] : calls) {
            QTest::ignoreMessage(QtWarningMsg,
                                 QRegularExpression(QLatin1String(name) + q(".*is to be called in the "
                                                                            "thread")));
            std::thread(call).join();
        }
        settle();
        QCOMPARE(QVConfigurationManager::sharedManager().vid(), q("some-id"));
        QCOMPARE(outcomes().said() + asked(), QStringList());
    }

    void aHostWithoutWidgetsFails_data()
    {
        const auto row = addColumns<QString, QString, QString>({"kind", "mode", "warning"});
        row("late, settings", q("late"), q("click"),
            q("QVSDKManager::setServiceAddresses.* is to be called once there is an application object"));
        row("late, click", q("late"), q("click"),
            q("QVClickManager::clickButton.* once there is an application object"));
        row("late, invisible", q("late"), q("invisible"),
            q("startInsivible.* once there is an application object"));
        for (const QString &kind : words("core, gui")) {
            row(qPrintable(kind + q(", click")), kind, q("click"),
                q("QVClickManager::clickButton.* needs a QApplication"));
            row(qPrintable(kind + q(", embed")), kind, q("embed"),
                q("QVEmbedManager::embedView.* needs a QApplication"));
            row(qPrintable(kind + q(", invisible")), kind, q("invisible"),
                q("No popup can be shown: there is no QApplication"));
        }
    }

    void aHostWithoutWidgetsFails()
    {
        QFETCH(QString, kind);
        QFETCH(QString, mode);
        QFETCH(QString, warning);
        QProcess host;
        host.setProcessChannelMode(QProcess::MergedChannels);
        host.start(QStringLiteral(QUARVO_WRONG_HOST), {kind, mode, service().addresses().apiHost()});
        QVERIFY(waitFor([&host] { return host.state() == QProcess::NotRunning; }));
        const QString said = QString::fromUtf8(host.readAll());
        QVERIFY2(host.exitStatus() == QProcess::NormalExit && host.exitCode() == 0, qPrintable(said));
        QVERIFY2(said.contains(QRegularExpression(warning)), qPrintable(said));
        QCOMPARE(said.count(q("failed 10001")), 1);
    }

private:
    QVClickButton *m_button = nullptr;
};

QV_TEST(TestWrongUse)
#include "TestWrongUse.moc"
