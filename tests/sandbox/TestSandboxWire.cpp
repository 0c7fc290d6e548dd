#include "sandbox/SandboxTestCase.h"

#include <QJsonArray>
#include <QNetworkReply>
#include <QSslConfiguration>
#include <QTcpSocket>

namespace {

const QString dataFolder = QStringLiteral(QUARVO_SANDBOX_TEST_DATA);
const QString certificateFile = dataFolder + QStringLiteral("/local.crt");
const QString keyFile = dataFolder + QStringLiteral("/local.key");

QString q(const char *text)
{
    return QString::fromLatin1(text);
}

} // namespace

class TestSandboxWire : public SandboxTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void readsQueriesLeniently_data()
    {
        QTest::addColumn<QByteArray>("query");
        QTest::addColumn<QString>("id");
        QTest::newRow("plain") << QByteArray("type=popup&id=shop") << q("shop");
        QTest::newRow("escaped") << QByteArray("id=%E5%BA%97%20x") << QStringLiteral("\u5e97 x");
        QTest::newRow("broken escapes") << QByteArray("id=%zz%4&type=%") << q("%zz%4");
        QTest::newRow("not UTF-8") << QByteArray("id=%ff%fe") << QStringLiteral("\ufffd\ufffd");
        QTest::newRow("no pair") << QByteArray("&&==&id") << QString();
        QTest::newRow("twice") << QByteArray("id=first&id=second") << q("first");
        QTest::newRow("equals in the value") << QByteArray("id=a=b") << q("a=b");
        QTest::newRow("plus stays") << QByteArray("id=a+b") << q("a+b");
        QTest::newRow("null character") << QByteArray("id=a%00b") << QStringLiteral("a\0b");
        QTest::newRow("nothing") << QByteArray() << QString();
    }
    void readsQueriesLeniently()
    {
        QFETCH(const QByteArray, query);
        QFETCH(const QString, id);
        const QByteArray answer = raw("GET /app/config/v1?" + query + " HTTP/1.1\r\nHost: x\r\n\r\n");
        QVERIFY2(answer.contains("\"0103\""), answer.constData());
        QCOMPARE(sandbox().log().last().values.value(q("id")), id);
    }

    void survivesHostileRequests_data()
    {
        QTest::addColumn<QByteArray>("request");
        QTest::addColumn<QByteArray>("status");
        const QByteArray end = " HTTP/1.1\r\nHost: x\r\n\r\n";
        QTest::newRow("long query") << "GET /app/config/v1?id=" + QByteArray(20000, 'a') + end
                                    << QByteArray("414");
        QTest::newRow("long path") << "GET /" + QByteArray(20000, 'a') + end << QByteArray("404");
        QTest::newRow("outside") << "GET /../../etc/passwd.jpg" + end << QByteArray("404");
        QTest::newRow("picture folder") << "GET /pictures/.jpg" + end << QByteArray("404");
        QTest::newRow("other method")
            << QByteArray("POST /app/config/v1 HTTP/1.1\r\nHost: x\r\nContent-Length: 2\r\n\r\nid")
            << QByteArray("405");
        QTest::newRow("deletion") << "DELETE /config" + end << QByteArray("405");
        // No answer, and the connection ends.
        QTest::newRow("without end") << "GET /" + QByteArray(200000, 'a') << QByteArray();
    }
    void survivesHostileRequests()
    {
        QFETCH(const QByteArray, request);
        QFETCH(const QByteArray, status);
        const QByteArray answer = raw(request);
        QCOMPARE(answer.mid(9, 3), status);
        QCOMPARE(get(q("/config")).status, 200);
    }

    void survivesRequestsThatAreNone()
    {
        QTcpSocket socket;
        socket.connectToHost(QHostAddress::LocalHost, sandbox().port());
        QVERIFY(waitFor([&socket] { return socket.state() == QAbstractSocket::ConnectedState; }));
        socket.write(QByteArray("\x16\x03\x01\x00\xff\xfe nonsense\r\n\r\n"));
        socket.flush();
        QCOMPARE(get(q("/config")).status, 200);
    }

    void survivesClientsThatDoNotWait()
    {
        const QString challenge = configured(q("test-slow"));
        for (const QByteArray &path :
             {QByteArray("/app/config/v1?id=test-slow"), "/pictures/" + imageOf(challenge).toLatin1()}) {
            QTcpSocket socket;
            socket.connectToHost(QHostAddress::LocalHost, sandbox().port());
            QVERIFY(waitFor([&socket] { return socket.state() == QAbstractSocket::ConnectedState; }));
            const qsizetype before = sandbox().log().size();
            socket.write("GET " + path + " HTTP/1.1\r\nHost: x\r\n\r\n");
            if (path.startsWith("/app"))
                QVERIFY(waitFor([&] { return sandbox().log().size() > before; }));
            socket.abort();
            // Answered after the one who went away.
            QCOMPARE(service(q("config"), q("test-slow"), {}).code(), q("0103"));
        }
    }

    void keepsTheConnection()
    {
        QTcpSocket socket;
        socket.connectToHost(QHostAddress::LocalHost, sandbox().port());
        for (int i = 0; i < 3; ++i) {
            socket.write("GET /config HTTP/1.1\r\nHost: x\r\n\r\n");
            QByteArray answer;
            QVERIFY(waitFor([&] { return (answer += socket.readAll()).contains("sandbox"); }));
            QVERIFY(answer.startsWith("HTTP/1.1 200"));
        }
        QCOMPARE(socket.state(), QAbstractSocket::ConnectedState);
    }

    void logsWhatItReceived()
    {
        QVERIFY(sandbox().log().isEmpty());
        QCOMPARE(get(q("/app/get/v1?id=a%20b&challenge=x")).code(), q("1002"));
        QCOMPARE(get(q("/nowhere")).status, 404);
        const QJsonArray entries = get(q("/sandbox/log")).json().value(q("requests")).toArray();
        QCOMPARE(entries.size(), 2);
        const QJsonObject first = entries[0].toObject();
        QCOMPARE(first.value(q("path")).toString(), q("/app/get/v1"));
        QCOMPARE(first.value(q("query")).toString(), q("id=a%20b&challenge=x"));
        QCOMPARE(first.value(q("values")).toObject(),
                 (QJsonObject{{q("id"), q("a b")}, {q("challenge"), q("x")}}));
        QCOMPARE(first.value(q("code")).toString(), q("1002"));
        QCOMPARE(entries[1].toObject().value(q("status")).toInt(), 404);
        sandbox().clearLog();
        QVERIFY(sandbox().log().isEmpty());
    }

    void logIsBounded()
    {
        QNetworkAccessManager network;
        int answered = 0;
        for (int i = 0; i < 1010; ++i) {
            QNetworkReply *reply = network.get(QNetworkRequest(QUrl(sandbox().baseAddress() + q("/config"))));
            connect(reply, &QNetworkReply::finished, &network, [&answered] { ++answered; });
        }
        QVERIFY(waitFor([&answered] { return answered == 1010; }));
        QCOMPARE(sandbox().log().size(), 1000);
        QCOMPARE(get(q("/last")).status, 404);
        QCOMPARE(sandbox().log().size(), 1000);
        QCOMPARE(sandbox().log().last().path, q("/last"));
    }

    void tellsSolutions()
    {
        const QString challenge = configured(q("shop"));
        QCOMPARE(get(q("/sandbox/solution?challenge=") + challenge).status, 404);
        QCOMPARE(service(q("get"), q("shop"), challenge).code(), q("0103"));
        const QJsonObject solution = get(q("/sandbox/solution?challenge=") + challenge).json();
        QCOMPARE(solution.value(q("type")).toString(), q("draw"));
        QCOMPARE(solution.value(q("points")).toArray().size(), 40);
        QCOMPARE(solution, sandbox().solution(challenge)->toJson());
    }

    void servesTls()
    {
        QVSandboxOptions options;
        options.certificateFile = certificateFile;
        options.keyFile = keyFile;
        QVSandbox secure(options);
        QVERIFY2(secure.listen(), qUtf8Printable(secure.errorString()));
        QVERIFY(secure.addresses().apiHost.startsWith(q("https://127.0.0.1:")));
        QNetworkRequest request(QUrl(secure.addresses().downloadHost + q("/config")));
        QSslConfiguration trusting = QSslConfiguration::defaultConfiguration();
        trusting.setCaCertificates(QSslCertificate::fromPath(certificateFile));
        request.setSslConfiguration(trusting);
        QNetworkAccessManager network;
        const std::unique_ptr<QNetworkReply> reply(network.get(request));
        QVERIFY(waitFor([&reply] { return reply->isFinished(); }));
        QCOMPARE(reply->error(), QNetworkReply::NoError);
        QVERIFY(reply->readAll().contains("\"active\":false"));
    }

    void reportsWhyItCannotListen()
    {
        QVSandboxOptions options;
        options.port = sandbox().port();
        QVSandbox second(options);
        QVERIFY(!second.listen());
        QVERIFY(second.errorString().contains(QString::number(sandbox().port())));

        QVSandboxOptions swapped;
        swapped.certificateFile = keyFile;
        swapped.keyFile = certificateFile;
        QVSandbox third(swapped);
        QVERIFY(!third.listen());
        QVERIFY(third.errorString().contains(q("local.key")));
    }

    void listensOnThisMachineOnly()
    {
        QTcpSocket socket;
        socket.connectToHost(QHostAddress(q("::1")), sandbox().port());
        QVERIFY(waitFor([&socket] { return socket.state() == QAbstractSocket::UnconnectedState; }));
    }

private:
    [[nodiscard]] QString imageOf(const QString &challenge) const
    {
        return service(q("get"), q("test-slow"), challenge).text("img");
    }

    // Sends bytes as they are; gives what comes back until the answer is whole or the connection ends.
    [[nodiscard]] QByteArray raw(const QByteArray &request) const
    {
        QTcpSocket socket;
        socket.connectToHost(QHostAddress::LocalHost, sandbox().port());
        socket.write(request);
        QByteArray answer;
        const bool came = waitFor([&] {
            answer += socket.readAll();
            return answer.contains("}") || socket.state() == QAbstractSocket::UnconnectedState;
        });
        return came ? answer : QByteArray("nothing came");
    }
};

QV_TEST(TestSandboxWire)
#include "TestSandboxWire.moc"
