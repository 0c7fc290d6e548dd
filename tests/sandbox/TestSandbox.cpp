#include "sandbox/SandboxStrokes.h"
#include "sandbox/SandboxTestCase.h"

#include <QImage>
#include <QJsonArray>
#include <QNetworkReply>
#include <QSslConfiguration>
#include <QTcpSocket>

using std::chrono::milliseconds;

/// The answers of the sandbox.
class TestSandbox : public SandboxTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void conversations_data()
    {
        // Each request is followed by the code of its answer.
        const auto row = addColumns<QString>({"steps"});
        row("accepts the curve, once",
            "config test-draw -> 0103, draw -> 0104, get -> 0103, draw -> 0103, token -> draw, token -> , "
            "draw -> 1002");
        row("refuses wrong strokes",
            "config test-draw -> 0103, get -> 0103, straight -> 0104, late -> 0104, verify -> 0104, "
            "draw -> 0103");
        row("stops guessing on one picture",
            "config test-character -> 0103, get -> 0103, verify*5 -> 0104, type -> 0104, refresh -> 0103, "
            "type -> 0103, token -> character");
        row("knows its own challenges only",
            "config test-draw -> 0103, be somebody, get -> 1002, refresh -> 1002, click -> 1002, "
            "verify -> 1002");
        row("bounds refreshing",
            "config test-draw -> 0103, refresh*10 -> 0103, refresh -> 0105, wait 60001, pace*30 -> 0103, "
            "refresh -> 0106");
        row("test-pass", "config test-pass -> 0103, click -> 0103, token -> click");
        row("test-draw", "config test-draw -> 0103, click -> 0104, draw -> 0103");
        row("test-wrong", "config test-wrong -> 0103, get -> 0103, draw -> 0104");
        for (const auto &[id, code] :
             QVCases<QString, QString>{{q("test-denied"), q("0101")}, {q("test-expired"), q("1002")}})
            row(qPrintable(id),
                q("config %1 -> %2, get -> %2, refresh -> %2, click -> %2, verify -> %2").arg(id, code));
    }

    void conversations()
    {
        QFETCH(QString, steps);
        QStringList seen;
        for (const QString &line : steps.split(q(", "))) {
            const QString step = line.section(q(" -> "), 0, 0);
            QStringList codes;
            for (int i = 0; i < std::max(1, step.section(u'*', 1).toInt()); ++i)
                codes.append(perform(step.section(u'*', 0, 0).section(u' ', 0, 0), step.section(u' ', 1)));
            codes.removeDuplicates();
            seen.append(codes.first().isNull() ? step : step + q(" -> ") + codes.join(u' '));
        }
        QCOMPARE(seen, steps.split(q(", ")));
    }

    void configures()
    {
        const QString request = q("/app/config/v1?id=test-guide");
        const QJsonObject answer = get(request).json();
        QCOMPARE(answer[q("guide")], QJsonValue(true));
        QCOMPARE(answer[q("cdn_servers")].toArray(), QJsonArray{sandbox().addresses().cdn});
        QVERIFY(answer[q("challenge")] != get(request).json()[q("challenge")]);
    }

    void outageServiceJudgesCells()
    {
        const QString server = sandbox().addresses().outageServer;
        const QJsonObject picture = get(server + q("?action=get&deviceid=d")).json();
        const QUrl address(sandbox().addresses().imageHost + u'/' + picture[q("imgid")].toString() +
                           q(".jpg"));
        // A picture may be requested twice while it is drawn.
        QNetworkAccessManager network;
        const std::array replies{network.get(QNetworkRequest(address)),
                                 network.get(QNetworkRequest(address))};
        for (QNetworkReply *reply : replies) {
            QVERIFY(waitFor([reply] { return reply->isFinished(); }));
            QCOMPARE(QImage::fromData(reply->readAll()).size(), QSize(800, 460));
        }
        const QString challenge = picture[q("challenge")].toString();
        const QString verify = server + q("?action=verify&challenge=%1&v=").arg(challenge);
        const QString cells =
            SandboxStrokes::cells(SandboxStrokes::recorded(sandbox().solution(challenge)->points));
        QCOMPARE(get(verify + cells.left(3)).code(), q("0104"));
        const Reply passed = get(verify + cells);
        QCOMPARE(passed.code(), q("0103"));
        QCOMPARE(get(q("/sandbox/token?token=") + passed.text("token")).text("earned"), q("outage"));
        QCOMPARE(get(verify + cells).code(), q("1002"));
    }

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
            // No answer: the connection is closed.
            {"GET /" + QByteArray(200000, 'a'), ""}};
        for (const auto &[request, status] : cases)
            QCOMPARE(raw(request).mid(9, 3), status);
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
        QCOMPARE(get(q("/app/config/v1?id=test-slow")).code(), q("0103"));
        // The sandbox is destroyed before it has answered.
        QTcpSocket waiting;
        QVERIFY(askSlowly(waiting));
    }

    void logsWhatItReceivedLast()
    {
        for (int i = 0; i < 12; ++i)
            get(q("/config"));
        get(q("/app/get/v1?id=a%20b&challenge=x"));
        get(q("/nowhere"));
        const QJsonArray entries = get(q("/sandbox/log")).json()[q("requests")].toArray();
        QCOMPARE(entries.size(), 12);
        const QJsonObject known = entries[10].toObject();
        QCOMPARE(known[q("query")], q("id=a%20b&challenge=x"));
        QCOMPARE(known[q("values")].toObject(), (QJsonObject{{q("id"), q("a b")}, {q("challenge"), q("x")}}));
        QCOMPARE(known[q("code")], q("1002"));
        QCOMPARE(entries[11].toObject()[q("status")], 404);
    }

    void listensWhereItCan()
    {
        QVSandboxOptions options;
        options.port = sandbox().port();
        QVSandbox second(options);
        QVERIFY(!second.listen());
        QVERIFY(second.errorString().contains(QString::number(sandbox().port())));
        // It listens only on 127.0.0.1.
        QTcpSocket socket;
        socket.connectToHost(QHostAddress(q("::1")), sandbox().port());
        QVERIFY(waitFor([&socket] { return socket.state() == QAbstractSocket::UnconnectedState; }));
    }

    void servesTls()
    {
        QVSandboxOptions options;
        options.certificateFile = q(QUARVO_TEST_CERTIFICATES "/local.crt");
        options.keyFile = q(QUARVO_TEST_CERTIFICATES "/local.key");
        QVSandbox secure(options);
        QVERIFY2(secure.listen(), qUtf8Printable(secure.errorString()));
        QVERIFY(secure.addresses().apiHost.startsWith(q("https://127.0.0.1:")));
        QSslConfiguration trusting = QSslConfiguration::defaultConfiguration();
        trusting.setCaCertificates(QSslCertificate::fromPath(options.certificateFile));
        QSslConfiguration::setDefaultConfiguration(trusting);
        QCOMPARE(get(secure.addresses().downloadHost + q("/config")).json()[q("active")], QJsonValue(false));
        trusting.setCaCertificates({});
        QSslConfiguration::setDefaultConfiguration(trusting);
    }

private:
    /// Performs a step of a conversation. Returns the code of the answer; null if there was no request.
    QString perform(const QString &verb, const QString &more)
    {
        const auto solution = sandbox().solution(m_challenge);
        SandboxPath curve = SandboxStrokes::straight({20, 20}, {380, 180});
        if (solution && verb != q("straight"))
            curve = solution->points;
        const QVRenderTrace trace = SandboxStrokes::recorded(curve);
        const QString stroke = q("&v=") + trace.getRenderSource_v();
        if (verb == q("config")) {
            m_id = more;
            m_challenge = get(q("/app/config/v1?id=") + m_id).text("challenge");
        } else if (verb == q("be")) {
            m_id = more;
            return {};
        } else if (verb == q("wait")) {
            age(milliseconds(more.toInt()));
            return {};
        } else if (verb == q("token")) {
            return get(q("/sandbox/token?token=") + m_token).json()[q("earned")].toString(q(""));
        } else if (verb == q("pace")) {
            age(milliseconds(300));
            return ask(q("refresh"));
        } else if (verb == q("draw") || verb == q("straight")) {
            return ask(q("verify"), stroke + q("&drawtime=") + trace.getRender_drawtime());
        } else if (verb == q("late")) {
            return ask(q("verify"), stroke + q("&drawtime=21"));
        } else if (verb == q("type")) {
            return ask(q("verify"), q("&drawtime=0&v=") + solution->characters);
        }
        return ask(verb);
    }

    QString ask(const QString &operation, const QString &more = {})
    {
        const Reply answer =
            get(q("/app/%1/v1?challenge=%2&deviceid=d&id=%3%4").arg(operation, m_challenge, m_id, more));
        m_token = answer.json()[q("token")].toString(m_token);
        return answer.code();
    }

    // Sends bytes unchanged. Returns the answer, up to its end or the end of the connection.
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

    QString m_id;
    QString m_challenge;
    QString m_token;
};

QV_TEST(TestSandbox)
#include "TestSandbox.moc"
