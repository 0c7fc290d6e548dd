#include "demo/DriveScript.h"
#include "support/QVTestCase.h"

class TestDriveScript : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void readsActionsInOrder()
    {
        QString problem;
        const auto script = DriveScript::parse("# a comment\n\nwait ready\nwait 250\r\n  stroke 1,2 3.5,4 "
                                               "over 80\ntype a  b c\nshot one-1.a\ndone\n",
                                               problem);
        QVERIFY2(script, qPrintable(problem));
        const QVector<DriveAction> &actions = script->actions();
        QCOMPARE(actions.size(), 6);
        QCOMPARE(actions[0].text, QStringLiteral("ready"));
        QCOMPARE(actions[1].milliseconds, 250);
        QCOMPARE(actions[2].points, QVector<QPointF>({{1, 2}, {3.5, 4}}));
        QCOMPARE(actions[2].milliseconds, 80);
        QCOMPARE(actions[3].text, QStringLiteral("a  b c"));
        QCOMPARE(actions[4].line, 7);
        QVERIFY(script->takesPictures());
    }

    void refusesMalformedLines_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::newRow("unknown") << QByteArray("jump");
        QTest::newRow("word too many") << QByteArray("tap twice");
        QTest::newRow("wait for nothing") << QByteArray("wait");
        QTest::newRow("wait for a stranger") << QByteArray("wait godot");
        QTest::newRow("negative time") << QByteArray("wait -1");
        QTest::newRow("endless time") << QByteArray("wait 99999999999");
        QTest::newRow("one point") << QByteArray("stroke 1,2");
        QTest::newRow("half a point") << QByteArray("stroke 1,2 3");
        QTest::newRow("point in words") << QByteArray("stroke 1,2 a,b");
        QTest::newRow("not a number") << QByteArray("stroke 1,2 nan,1");
        QTest::newRow("far away") << QByteArray("stroke 1,2 1e9,1");
        QTest::newRow("over nothing") << QByteArray("stroke 1,2 3,4 over");
        QTest::newRow("words after over") << QByteArray("stroke 1,2 3,4 over 5 6,7");
        QTest::newRow("many points") << QByteArray("stroke") + QByteArray(" 1,1").repeated(501);
        QTest::newRow("type nothing") << QByteArray("type");
        QTest::newRow("picture elsewhere") << QByteArray("shot ../../etc/passwd");
        QTest::newRow("bytes") << QByteArray("\xff\xfe\x00z", 4);
    }

    void refusesMalformedLines()
    {
        QFETCH(QByteArray, line);
        QString problem;
        QVERIFY(!DriveScript::parse("wait ready\n" + line + "\n", problem));
        QVERIFY2(problem.startsWith(QLatin1String("line 2: ")), qPrintable(problem));
    }

    void boundsTheNumberOfActions()
    {
        QString problem;
        QVERIFY(!DriveScript::parse(QByteArray("tap\n").repeated(1001), problem));
    }
};

QV_TEST(TestDriveScript)
#include "TestDriveScript.moc"
