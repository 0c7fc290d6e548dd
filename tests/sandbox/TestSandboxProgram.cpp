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
        QVERIFY(process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0);
    }
};

QV_TEST(TestSandboxProgram)
#include "TestSandboxProgram.moc"
