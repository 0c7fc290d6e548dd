#include "faults/FaultsTestCase.h"
#include "settings/QVConfigurationManager.h"

#include <QApplication>
#include <QLabel>
#include <QLoggingCategory>

using namespace std::chrono_literals;

namespace {

QStringList logged;

void take(QtMsgType, const QMessageLogContext &, const QString &message)
{
    logged.append(message);
}

} // namespace

/// What is the user's own stays out of the log, and what the network says stays plain text.
class TestSecrecy : public FaultsTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void logsNothingThatIdentifies_data()
    {
        QTest::addColumn<int>("style");
        QTest::addColumn<bool>("isOutage");
        QTest::newRow("embed") << 0 << false;
        QTest::newRow("click") << 1 << false;
        QTest::newRow("invisible") << 2 << false;
        QTest::newRow("outage") << 0 << true;
    }

    void logsNothingThatIdentifies()
    {
        QFETCH(int, style);
        QFETCH(bool, isOutage);
        service().answer(QStringLiteral("switch"), {{QStringLiteral("active"), isOutage}});
        logged.clear();
        QLoggingCategory::setFilterRules(QStringLiteral("quarvo.*=true"));
        const QtMessageHandler usual = qInstallMessageHandler(take);
        verifyOnce(style);
        // The main service's trace is told of by its length, and its record by its type.
        const bool isTold = isOutage || waitFor([this] {
                                advance(100ms);
                                return logged.size() > 1;
                            });
        qInstallMessageHandler(usual);
        QLoggingCategory::setFilterRules(QString());
        QVERIFY(!QTest::currentTestFailed());

        const QString verify = isOutage ? QStringLiteral("outage verify") : QStringLiteral("verify");
        QStringList secrets = service().query(verify).values();
        QVERIFY(secrets.size() > 3);
        secrets.append({QVConfigurationManager::sharedManager().deviceId(), QStringLiteral("-token"),
                        QStringLiteral("http"), QStringLiteral("challenge")});
        QVERIFY(isTold);
        for (const QString &message : std::as_const(logged)) {
            for (const QString &secret : std::as_const(secrets))
                QVERIFY2(secret.size() < 4 || !message.contains(secret), qPrintable(message));
        }
    }

    void takesMarkupForWhatItSays()
    {
        const QString markup = QStringLiteral("<img src='file:///etc/hostname'><b>%s%n</b>");
        for (const char *answer : {"get", "verify"}) {
            service().extend(QLatin1String(answer),
                             {{QStringLiteral("adlinkword"), markup},
                              {QStringLiteral("adlink"), QStringLiteral("file:///etc")},
                              {QStringLiteral("passline"), markup},
                              {QStringLiteral("score"), markup}});
        }
        verifyOnce(QVVerifyStyleEmbed);
        for (const QWidget *widget : QApplication::allWidgets()) {
            const auto *const label = qobject_cast<const QLabel *>(widget);
            QVERIFY(!label || label->textFormat() == Qt::PlainText);
        }
    }

private:
    void verifyOnce(int style)
    {
        openMode(QVVerifyStyle(style));
        begin();
        QVERIFY(waitForReady());
        draw();
        QVERIFY(waitFor([this] {
            return service().count(QStringLiteral("verify")) +
                       service().count(QStringLiteral("outage verify")) >
                   0;
        }));
        settle();
        advance(3s);
    }
};

QV_TEST(TestSecrecy)
#include "TestSecrecy.moc"
