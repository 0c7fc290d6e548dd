#include "support/QVTestCase.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTemporaryFile>

/// Runs the demo as its users do, in another process and in real time.
class TestDemoProgram : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void logsInByItself_data()
    {
        const auto row = addColumns<QString>({"arguments"});
        row("drawing", "");
        row("characters", "--vid test-character");
        row("outage service", "--vid test-outage");
        row("narrow window", "--size 320x568 --language zh-Hans");
    }

    void logsInByItself()
    {
        QFETCH(QString, arguments);
        const QTemporaryDir folder;
        const Outcome outcome = run(arguments.split(u' ', Qt::SkipEmptyParts) +
                                    QStringList{q("--drive"), q(QUARVO_DRIVE_FILES "/login.drive"),
                                                q("--screenshots"), folder.path()});
        QVERIFY2(outcome.exitCode == 0, outcome.errors);
        QVERIFY2(QRegularExpression(q("^ready\\n(.*\\n)*token \\S+\\n")).match(outcome.output).hasMatch(),
                 qPrintable(outcome.output));
        QVERIFY(QImage(folder.filePath(q("1-ready.png"))).width() >= 320);
    }

    void triesAgainOnceTheErrorBarRests()
    {
        QTemporaryFile file;
        QVERIFY(file.open());
        file.write("wait error\nretry\nwait error\nend\n");
        file.close();
        const Outcome outcome =
            run({q("--vid"), q("test-denied"), q("--timeout"), q("5"), q("--drive"), file.fileName()});
        QVERIFY2(outcome.exitCode == 0, outcome.errors);
    }

    void badInputEndsWithOneLine()
    {
        for (const char *arguments : {"--drive nowhere.drive", "--drive " QUARVO_DRIVE_FILES
                                                               "/login.drive --screenshots /proc/quarvo"}) {
            const Outcome outcome = run(q(arguments).split(u' '));
            QCOMPARE(outcome.exitCode, 2);
            QCOMPARE(outcome.output, QString());
            QCOMPARE(outcome.errors.count('\n'), 1);
        }
    }

private:
    struct Outcome
    {
        int exitCode = -1;
        QString output;
        QByteArray errors;
    };

    static Outcome run(const QStringList &arguments)
    {
        QProcess program;
        program.start(q(QUARVO_DEMO_PROGRAM), arguments);
        program.waitForFinished(20000);
        return {program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1,
                QString::fromUtf8(program.readAllStandardOutput()), program.readAllStandardError()};
    }
};

QV_TEST(TestDemoProgram)
#include "TestDemoProgram.moc"
