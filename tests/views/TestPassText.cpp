#include "service/QVVerifyResponseModel.h"
#include "settings/QVSDKManager.h"
#include "support/QVTestCase.h"
#include "views/QVPassText.h"

class TestPassText : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void fillsInTimeAndScore_data()
    {
        QTest::addColumn<QString>("drawtime");
        QTest::addColumn<QString>("score");
        QTest::addColumn<QString>("expected");
        const QString text = QStringLiteral("Passed in %1 s, better than %2% of users");
        const auto row = [&](const char *name, const QString &drawtime, const QString &score,
                             const QString &shown) {
            QTest::newRow(name) << drawtime << score << text.arg(shown, score);
        };
        row("plain", QStringLiteral("1234"), QStringLiteral("87"), QStringLiteral("1.2"));
        row("rounded up", QStringLiteral("1960"), QStringLiteral("87"), QStringLiteral("2.0"));
        row("a tie goes to even", QStringLiteral("1250"), QStringLiteral("1"), QStringLiteral("1.2"));
        row("number with a tail", QStringLiteral(" 4200ms"), QStringLiteral("9"), QStringLiteral("4.2"));
        row("no number", QStringLiteral("soon"), QStringLiteral("9"), QStringLiteral("0.0"));
        row("absent", QString(), QString(), QStringLiteral("0.0"));
        row("too large", QStringLiteral("1e999"), QStringLiteral("9"), QStringLiteral("0.0"));
        row("infinite", QStringLiteral("inf"), QStringLiteral("9"), QStringLiteral("0.0"));
        row("markup stays text", QStringLiteral("0"), QStringLiteral("<b>5</b>"), QStringLiteral("0.0"));
    }

    void fillsInTimeAndScore()
    {
        QFETCH(QString, drawtime);
        QFETCH(QString, score);
        QFETCH(QString, expected);
        QVVerifyResponseModel answer;
        answer.setPassline(QStringLiteral("60"));
        answer.setDrawtime(drawtime);
        answer.setScore(score);
        QCOMPARE(qv_passText(answer), expected);
    }

    void withoutAPassLineItIsPlain_data()
    {
        QTest::addColumn<QString>("passline");
        QTest::newRow("absent") << QString();
        QTest::newRow("empty") << QStringLiteral("");
    }

    void withoutAPassLineItIsPlain()
    {
        QFETCH(QString, passline);
        QVVerifyResponseModel answer;
        answer.setPassline(passline);
        answer.setDrawtime(QStringLiteral("1234"));
        QCOMPARE(qv_passText(answer), QStringLiteral("Verified"));
    }

private:
    void prepare() override { QVSDKManager::setPreferredLanguage(QStringLiteral("en")); }
};

QV_TEST(TestPassText)
#include "TestPassText.moc"
