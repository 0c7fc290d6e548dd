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
        const QJsonObject addresses = started(process, {q("--seed"), q("5"), q("--outage-active")});
        QCOMPARE(addresses.keys(), QStringList({q("apiHost"), q("base"), q("cdn"), q("downloadHost"),
                                                q("imageHost"), q("outageDownloadHost"), q("outageServer")}));
        QCOMPARE(bodyAt(addresses.value(q("downloadHost")).toString() + q("/config")).value(q("active")),
                 QJsonValue(true));
        ::kill(static_cast<pid_t>(process.processId()), SIGTERM);
        QVERIFY(waitFor([&process] { return process.state() == QProcess::NotRunning; }));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 0);
        QVERIFY(process.readAllStandardError().isEmpty());
    }

    void refusesBadCommandLines()
    {
        for (const char *arguments : {"--fast", "--port=-1", "--tls a.crt", "--tls none.crt none.key"})
            QVERIFY2(!refusal(q(arguments).split(u' ')).isEmpty(), arguments);
    }

private:
    static QJsonObject started(QProcess &process, const QStringList &arguments)
    {
        process.start(program, arguments);
        if (!waitFor([&process] { return process.canReadLine(); }))
            return {};
        return QJsonDocument::fromJson(process.readLine()).object();
    }

    static QJsonObject bodyAt(const QString &address)
    {
        QNetworkAccessManager network;
        const std::unique_ptr<QNetworkReply> reply(network.get(QNetworkRequest(QUrl(address))));
        if (!waitFor([&reply] { return reply->isFinished(); }))
            return {};
        return QJsonDocument::fromJson(reply->readAll()).object();
    }

    // The one line that a refused start writes; empty where it did anything else.
    static QString refusal(const QStringList &arguments)
    {
        QProcess process;
        process.start(program, arguments);
        if (!waitFor([&process] { return process.state() == QProcess::NotRunning; }) ||
            process.exitCode() != 2)
            return {};
        const QString text = QString::fromUtf8(process.readAllStandardError());
        return text.count(u'\n') == 1 && process.readAllStandardOutput().isEmpty() ? text : QString();
    }
};

QV_TEST(TestSandboxProgram)
#include "TestSandboxProgram.moc"
