#include "support/QVTestCase.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QProcess>

#include <csignal>

namespace {

const QString program = q(QUARVO_SANDBOX_PROGRAM);

} // namespace

class TestSandboxProgram : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void servesUntilStopped()
    {
        QProcess process;
        process.start(program, {q("--seed"), q("5"), q("--outage-active")});
        QVERIFY(waitFor([&process] { return process.canReadLine(); }));
        const QJsonObject addresses = QJsonDocument::fromJson(process.readLine()).object();
        QCOMPARE(addresses.keys(), QStringList({q("apiHost"), q("base"), q("cdn"), q("downloadHost"),
                                                q("imageHost"), q("outageDownloadHost"), q("outageServer")}));
        QNetworkAccessManager network;
        const QUrl url(addresses.value(q("downloadHost")).toString() + q("/config"));
        const std::unique_ptr<QNetworkReply> reply(network.get(QNetworkRequest(url)));
        QVERIFY(waitFor([&reply] { return reply->isFinished(); }));
        QVERIFY(reply->readAll().contains("\"active\":true"));
        ::kill(static_cast<pid_t>(process.processId()), SIGTERM);
        QVERIFY(waitFor([&process] { return process.state() == QProcess::NotRunning; }));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 0);
        QVERIFY(process.readAllStandardError().isEmpty());
    }

    void refusesBadCommandLines()
    {
        for (const char *arguments : {"--fast", "--port=-1", "--tls a.crt", "--tls none.crt none.key"}) {
            QProcess process;
            process.start(program, q(arguments).split(u' '));
            QVERIFY(waitFor([&process] { return process.state() == QProcess::NotRunning; }));
            QCOMPARE(process.exitCode(), 2);
            QCOMPARE(process.readAllStandardError().count('\n'), 1);
            QVERIFY(process.readAllStandardOutput().isEmpty());
        }
    }
};

QV_TEST(TestSandboxProgram)
#include "TestSandboxProgram.moc"
