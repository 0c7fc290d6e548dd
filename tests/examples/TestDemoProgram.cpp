#include "support/QVTestCase.h"

#include <QProcess>
#include <QTemporaryDir>

/// Runs the demo as its users do, in a process of its own and in real time.
class TestDemoProgram : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void logsInByItself_data()
    {
        QTest::addColumn<QString>("arguments");
        QTest::newRow("drawing") << "";
        QTest::newRow("characters") << "--vid test-character";
        QTest::newRow("outage service") << "--vid test-outage";
        QTest::newRow("narrow window") << "--size 320x568 --language zh-Hans";
    }

    void logsInByItself()
    {
        QFETCH(QString, arguments);
        const QTemporaryDir folder;
        const Outcome outcome =
            run(arguments.split(u' ', Qt::SkipEmptyParts) +
                QStringList{QStringLiteral("--drive"), QStringLiteral(QUARVO_DRIVE_FILES "/login.drive"),
                            QStringLiteral("--screenshots"), folder.path()});
        QVERIFY2(outcome.exitCode == 0, outcome.errors);
        QVERIFY2(QRegularExpression(QStringLiteral("^ready\\n(.*\\n)*token \\S+\\n"))
                     .match(outcome.output)
                     .hasMatch(),
                 qPrintable(outcome.output));
        QVERIFY(QImage(folder.filePath(QStringLiteral("1-ready.png"))).width() >= 320);
    }

    void badInputEndsWithOneLine_data()
    {
        QTest::addColumn<QString>("arguments");
        QTest::newRow("unknown option") << "--fast";
        QTest::newRow("no such drive file") << "--drive nowhere.drive";
        QTest::newRow("unwritable folder")
            << "--drive " QUARVO_DRIVE_FILES "/login.drive --screenshots /proc/quarvo";
    }

    void badInputEndsWithOneLine()
    {
        QFETCH(QString, arguments);
        const Outcome outcome = run(arguments.split(u' '));
        QCOMPARE(outcome.exitCode, 2);
        QCOMPARE(outcome.output, QString());
        QCOMPARE(outcome.errors.count('\n'), 1);
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
        program.start(QStringLiteral(QUARVO_DEMO_PROGRAM), arguments);
        program.waitForFinished(20000);
        return {program.exitStatus() == QProcess::NormalExit ? program.exitCode() : -1,
                QString::fromUtf8(program.readAllStandardOutput()), program.readAllStandardError()};
    }
};

QV_TEST(TestDemoProgram)
#include "TestDemoProgram.moc"
