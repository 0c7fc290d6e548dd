#include "demo/DriveScript.h"
#include "support/QVTestCase.h"

#include <QProcess>
#include <QTemporaryDir>

/// The demo as its users run it, in another process and in real time, and what it reads.
class TestDemo : public QVTestCase
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

    void refusesMalformedDriveFiles()
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

QV_TEST(TestDemo)
#include "TestDemo.moc"
