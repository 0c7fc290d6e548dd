#include "support/QVTestCase.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QProcess>
#include <QSslConfiguration>

#include <csignal>

class TestSandboxProgram : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void servesUntilStopped()
    {
        QProcess process;
        const QString certificate = q(QUARVO_TEST_CERTIFICATES "/local.crt");
        process.start(q(QUARVO_SANDBOX_PROGRAM), {q("--outage-active"), q("--tls"), certificate,
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
};

QV_TEST(TestSandboxProgram)
#include "TestSandboxProgram.moc"
