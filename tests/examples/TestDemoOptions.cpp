#include "demo/DemoOptions.h"
#include "support/QVTestCase.h"

class TestDemoOptions : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void readsWhatItIsGiven()
    {
        QString problem;
        const auto options = DemoOptions::parse(
            {QStringLiteral("demo"), QStringLiteral("--mode"), QStringLiteral("invisible"),
             QStringLiteral("--size"), QStringLiteral("320x568"), QStringLiteral("--api-host"),
             QStringLiteral("http://127.0.0.1:8"), QStringLiteral("--outage-open"),
             QStringLiteral("--timeout"), QStringLiteral("7")},
            problem);
        QVERIFY2(options, qPrintable(problem));
        QCOMPARE(options->mode, DemoMode::Invisible);
        QCOMPARE(options->size, QSize(320, 568));
        QCOMPARE(options->apiHost, QStringLiteral("http://127.0.0.1:8"));
        QVERIFY(options->cdn.isNull());
        QVERIFY(options->outageOpen);
        QCOMPARE(options->timeoutSeconds, 7);
    }

    void refusesInOneLine_data()
    {
        QTest::addColumn<QString>("arguments");
        QTest::newRow("unknown option") << "--fast";
        QTest::newRow("unknown mode") << "--mode popup";
        QTest::newRow("missing value") << "--vid";
        QTest::newRow("tiny window") << "--size 10x10";
        QTest::newRow("size without x") << "--size 100";
        QTest::newRow("no web address") << "--cdn file:///etc";
        QTest::newRow("address without host") << "--api-host http://";
        QTest::newRow("endless") << "--timeout 0";
        QTest::newRow("loose word") << "embed";
    }

    void refusesInOneLine()
    {
        QFETCH(QString, arguments);
        QString problem;
        QVERIFY(!DemoOptions::parse(QStringList{QStringLiteral("demo")} + arguments.split(u' '), problem));
        QVERIFY(!problem.isEmpty());
        QVERIFY(!problem.contains(u'\n'));
    }
};

QV_TEST(TestDemoOptions)
#include "TestDemoOptions.moc"
