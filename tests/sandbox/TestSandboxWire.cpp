#include "sandbox/SandboxTestCase.h"

#include <QJsonArray>
#include <QNetworkReply>
#include <QSslConfiguration>
#include <QTcpSocket>

namespace {

const QString certificateFile = q(QUARVO_TEST_CERTIFICATES "/local.crt");
const QString keyFile = q(QUARVO_TEST_CERTIFICATES "/local.key");

} // namespace

class TestSandboxWire : public SandboxTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void readsQueriesLeniently()
    {
        const QVCases<QByteArray, QString> cases{{"id=%E5%BA%97%20x", q("\u5e97 x")},
                                                 {"id=%zz%4&type=%", q("%zz%4")},
                                                 {"id=%ff%fe", q("\ufffd\ufffd")},
                                                 {"&&==&id", QString()},
                                                 {"id=first&id=second", q("first")}};
        for (const auto &[query, id] : cases) {
            const QByteArray answer = raw("GET /app/config/v1?" + query + " HTTP/1.1\r\nHost: x\r\n\r\n");
            QVERIFY2(answer.contains("\"0103\""), answer.constData());
            QCOMPARE(sandbox().log().last().values.value(q("id")), id);
        }
    }

    void survivesHostileRequests()
    {
        const QByteArray end = " HTTP/1.1\r\nHost: x\r\n\r\n";
        const QVCases<QByteArray, QByteArray> cases{
            {"GET /app/config/v1?id=" + QByteArray(20000, 'a') + end, "414"},
            {"GET /../../etc/passwd.jpg" + end, "404"},
            {"POST /app/config/v1 HTTP/1.1\r\nHost: x\r\nContent-Length: 2\r\n\r\nid", "405"},
            // No answer, and the connection ends.
            {"GET /" + QByteArray(200000, 'a'), ""}};
        for (const auto &[request, status] : cases) {
            QCOMPARE(raw(request).mid(9, 3), status);
            QCOMPARE(get(q("/config")).status, 200);
        }
    }

    void survivesClientsThatDoNotWait()
    {
        const auto askSlowly = [this](QTcpSocket &socket) {
            sandbox().clearLog();
            socket.connectToHost(QHostAddress::LocalHost, sandbox().port());
            socket.write("GET /app/config/v1?id=test-slow HTTP/1.1\r\nHost: x\r\n\r\n");
            return waitFor([this] { return !sandbox().log().isEmpty(); });
        };
        QTcpSocket leaving;
        QVERIFY(askSlowly(leaving));
        leaving.abort();
        QTcpSocket flooding;
        QVERIFY(askSlowly(flooding));
        flooding.write(QByteArray(200000, 'a'));
        QVERIFY(waitFor([&flooding] { return flooding.state() == QAbstractSocket::UnconnectedState; }));
        // Answered after those.
        QCOMPARE(service(q("config"), q("test-slow"), {}).code(), q("0103"));
        // The sandbox goes before it has answered.
        QTcpSocket waiting;
        QVERIFY(askSlowly(waiting));
    }

    void logsWhatItReceivedLast()
    {
        for (int i = 0; i < 12; ++i)
            QCOMPARE(get(q("/config")).status, 200);
        QCOMPARE(get(q("/app/get/v1?id=a%20b&challenge=x")).code(), q("1002"));
        QCOMPARE(get(q("/nowhere")).status, 404);
        const QJsonArray entries = get(q("/sandbox/log")).json().value(q("requests")).toArray();
        QCOMPARE(entries.size(), 12);
        const QJsonObject known = entries[10].toObject();
        QCOMPARE(known.value(q("query")).toString(), q("id=a%20b&challenge=x"));
        QCOMPARE(known.value(q("values")).toObject(),
                 (QJsonObject{{q("id"), q("a b")}, {q("challenge"), q("x")}}));
        QCOMPARE(known.value(q("code")).toString(), q("1002"));
        QCOMPARE(entries[11].toObject().value(q("status")).toInt(), 404);
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
    }

    void listensOnThisMachineOnly()
    {
        QTcpSocket socket;
        socket.connectToHost(QHostAddress(q("::1")), sandbox().port());
        QVERIFY(waitFor([&socket] { return socket.state() == QAbstractSocket::UnconnectedState; }));
    }

private:
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
