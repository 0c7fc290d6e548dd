#include "demo/DemoOptions.h"
#include "demo/DriveScript.h"
#include "support/QVTestCase.h"

class TestDemoInputs : public QVTestCase
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
        const auto refuses = [](const QByteArray &line) {
            QString problem;
            return !DriveScript::parse("wait ready\n" + line + "\n", problem) &&
                   problem.startsWith(q("line 2: "));
        };
        for (const char *line :
             {"jump", "wait godot", "wait 99999999999", "stroke 1,2", "stroke 1,2 nan,1", "stroke 1,2 1e9,1",
              "keys Right Sideways", "resize 10x10", "keys Right*9999", "shot ../../etc/passwd", "\xff\xfe"})
            QVERIFY2(refuses(line), line);
        QVERIFY(refuses("stroke" + QByteArray(" 1,1").repeated(501)));
    }

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
        for (const char *arguments : {"--fast", "--mode popup", "--size 10x10", "--cdn file:///etc",
                                      "--look red", "--form-width 9", "--timeout 0"}) {
            QString problem;
            QVERIFY2(!DemoOptions::parse(QStringList{q("demo")} + q(arguments).split(u' '), problem),
                     arguments);
            QVERIFY(!problem.isEmpty() && !problem.contains(u'\n'));
        }
    }
};

QV_TEST(TestDemoInputs)
#include "TestDemoInputs.moc"
