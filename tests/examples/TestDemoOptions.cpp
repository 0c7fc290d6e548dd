#include "demo/DemoOptions.h"
#include "support/QVTestCase.h"

class TestDemoOptions : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void readsWhatItIsGiven()
    {
        QString problem;
        const auto options = DemoOptions::parse({q("demo"), q("--mode"), q("invisible"), q("--size"),
                                                 q("320x568"), q("--api-host"), q("http://127.0.0.1:8"),
                                                 q("--outage-open"), q("--timeout"), q("7")},
                                                problem);
        QVERIFY2(options, qPrintable(problem));
        QCOMPARE(options->mode, DemoMode::Invisible);
        QCOMPARE(options->size, QSize(320, 568));
        QCOMPARE(options->apiHost, q("http://127.0.0.1:8"));
        QVERIFY(options->cdn.isNull());
        QVERIFY(options->outageOpen);
        QCOMPARE(options->timeoutSeconds, 7);
    }

    void refusesInOneLine()
    {
        for (const char *arguments :
             {"--fast", "--mode popup", "--size 10x10", "--cdn file:///etc", "--timeout 0"}) {
            QString problem;
            QVERIFY2(!DemoOptions::parse(QStringList{q("demo")} + q(arguments).split(u' '), problem),
                     arguments);
            QVERIFY(!problem.isEmpty() && !problem.contains(u'\n'));
        }
    }
};

QV_TEST(TestDemoOptions)
#include "TestDemoOptions.moc"
