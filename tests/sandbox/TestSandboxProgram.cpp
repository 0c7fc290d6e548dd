#include "support/QVTestCase.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QProcess>
#include <QTcpServer>

#include <csignal>

namespace {

const QString program = QStringLiteral(QUARVO_SANDBOX_PROGRAM);

QString q(const char *text)
{
    return QString::fromLatin1(text);
}

} // namespace

class TestSandboxProgram : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void servesUntilStopped_data()
    {
        QTest::addColumn<int>("signal");
        QTest::newRow("terminated") << SIGTERM;
        QTest::newRow("interrupted") << SIGINT;
    }
    void servesUntilStopped()
    {
        QFETCH(const int, signal);
        QProcess process;
        const QJsonObject addresses = started(process, {q("--seed"), q("5"), q("--outage-active")});
        QCOMPARE(addresses.keys(), QStringList({q("apiHost"), q("base"), q("cdn"), q("downloadHost"),
                                                q("imageHost"), q("outageDownloadHost"), q("outageServer")}));
        QCOMPARE(bodyAt(addresses.value(q("downloadHost")).toString() + q("/config")).value(q("active")),
                 QJsonValue(true));

        ::kill(static_cast<pid_t>(process.processId()), signal);
        QVERIFY(waitFor([&process] { return process.state() == QProcess::NotRunning; }));
        QCOMPARE(process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(process.exitCode(), 0);
        QVERIFY(process.readAllStandardOutput().isEmpty());
        QVERIFY(process.readAllStandardError().isEmpty());
    }

    void refusesBadCommandLines_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("reason");
        QTest::newRow("unknown option") << QStringList{q("--fast")} << q("fast");
        QTest::newRow("port of letters") << QStringList{q("--port"), q("http")} << q("--port");
        QTest::newRow("port too big") << QStringList{q("--port"), q("65536")} << q("--port");
        QTest::newRow("negative port") << QStringList{q("--port=-1")} << q("--port");
        QTest::newRow("port missing") << QStringList{q("--port")} << q("port");
        QTest::newRow("seed of letters") << QStringList{q("--seed"), q("x")} << q("--seed");
        QTest::newRow("key missing") << QStringList{q("--tls"), q("a.crt")} << q("--tls");
        QTest::newRow("files missing")
            << QStringList{q("--tls"), q("none.crt"), q("none.key")} << q("none.crt");
        QTest::newRow("stray word") << QStringList{q("serve")} << q("serve");
    }
    void refusesBadCommandLines()
    {
        QFETCH(const QStringList, arguments);
        QFETCH(const QString, reason);
        QCOMPARE(refusal(arguments).contains(reason), true);
    }

    void refusesATakenPort()
    {
        QTcpServer holder;
        QVERIFY(holder.listen(QHostAddress::LocalHost));
        const QString port = QString::number(holder.serverPort());
        QVERIFY(refusal({q("--port"), port}).contains(port));
    }

    void repeatsItselfWithASeed()
    {
        QStringList challenges;
        for (int i = 0; i < 2; ++i) {
            QProcess process;
            const QString host = started(process, {q("--seed"), q("77")}).value(q("apiHost")).toString();
            challenges.append(bodyAt(host + q("/app/config/v1?id=a")).value(q("challenge")).toString());
            process.kill();
            QVERIFY(process.waitForFinished());
        }
        QVERIFY(!challenges[0].isEmpty());
        QCOMPARE(challenges[0], challenges[1]);
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
