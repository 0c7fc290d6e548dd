#include "support/QVTestCase.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QProcess>
#include <QSslConfiguration>

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
        const QString certificate = q(QUARVO_TEST_CERTIFICATES "/local.crt");
        process.start(program, {q("--outage-active"), q("--tls"), certificate,
                                q(QUARVO_TEST_CERTIFICATES "/local.key")});
        QVERIFY(waitFor([&process] { return process.canReadLine(); }));
        const QJsonObject addresses = QJsonDocument::fromJson(process.readLine()).object();
        QCOMPARE(addresses.keys(), QStringList({q("apiHost"), q("base"), q("cdn"), q("downloadHost"),
                                                q("imageHost"), q("outageDownloadHost"), q("outageServer")}));
        QNetworkAccessManager network;
        QNetworkRequest request(addresses.value(q("downloadHost")).toString() + q("/config"));
        QSslConfiguration trusting = QSslConfiguration::defaultConfiguration();
        trusting.setCaCertificates(QSslCertificate::fromPath(certificate));
        request.setSslConfiguration(trusting);
        const std::unique_ptr<QNetworkReply> reply(network.get(request));
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
