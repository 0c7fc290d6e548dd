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
        QCOMPARE(actions[0].text, q("ready"));
        QCOMPARE(actions[1].milliseconds, 250);
        QCOMPARE(actions[2].points, QVector<QPointF>({{1, 2}, {3.5, 4}}));
        QCOMPARE(actions[2].milliseconds, 80);
        QCOMPARE(actions[3].text, q("a  b c"));
        QCOMPARE(actions[4].line, 7);
        QVERIFY(script->takesPictures());
    }

    void refusesMalformedLines()
    {
        const QByteArrayList lines{QByteArray("jump"),
                                   QByteArray("wait godot"),
                                   QByteArray("wait 99999999999"),
                                   QByteArray("stroke 1,2"),
                                   QByteArray("stroke 1,2 nan,1"),
                                   QByteArray("stroke 1,2 1e9,1"),
                                   QByteArray("stroke") + QByteArray(" 1,1").repeated(501),
                                   QByteArray("shot ../../etc/passwd"),
                                   QByteArray("\xff\xfe\x00z", 4)};
        for (const QByteArray &line : lines) {
            QString problem;
            QVERIFY2(!DriveScript::parse("wait ready\n" + line + "\n", problem), line.constData());
            QVERIFY2(problem.startsWith(q("line 2: ")), qPrintable(problem));
        }
    }
};

QV_TEST(TestDriveScript)
#include "TestDriveScript.moc"
