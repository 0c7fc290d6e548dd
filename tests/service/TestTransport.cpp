#include "service/QVServiceTestCase.h"
#include "support/QVTestTls.h"

#include <QNetworkAccessManager>
#include <QNetworkCookie>
#include <QNetworkCookieJar>
#include <QNetworkDiskCache>
#include <QNetworkReply>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QSslSocket>
#include <QTemporaryDir>

using namespace std::chrono_literals;

namespace {

constexpr qsizetype answerLimit = 1 << 20;
const char *const goodBody = R"({"code":"0103","img":"a.png"})";
const char *const systemText = "Something went wrong (request failed)";
const char *const lostText = "No network. Try again.";

/// Trusts a certificate, as the system's certificate store does, until the result is destroyed.
[[nodiscard]] auto trust(const QString &name)
{
    const QSslConfiguration former = QSslConfiguration::defaultConfiguration();
    QSslConfiguration trusting = former;
    trusting.addCaCertificate(qv_serverTls(name).localCertificate());
    QSslConfiguration::setDefaultConfiguration(trusting);
    return qScopeGuard([former] { QSslConfiguration::setDefaultConfiguration(former); });
}

QByteArray nested(int depth)
{
    return R"({"code":"0103","img":"a.png","deep":)" + QByteArray(depth, '[') + QByteArray(depth, ']') + '}';
}

QVScript redirectTo(const QByteArray &address, int status = 302)
{
    return QVScript::answer(goodBody, status, "Location: " + address + "\r\n");
}

QVScript cutShort()
{
    return QVScript().send("HTTP/1.1 200 OK\r\nContent-Length: 99\r\n\r\n").send(goodBody).close();
}

} // namespace

/// The outcome of requests for all kinds of addresses, servers and hosts.
class TestTransport : public QVServiceTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void outcomes_data()
    {
        const auto row = addColumns<QVScript, qint64, QString, bool>({"script", "code", "text", "isRefusal"});
        const auto good = [&](const char *name, const QByteArray &body) {
            row(name, QVScript::answer(body, 503), qint64(0), QString(), false);
        };
        const auto refused = [&](const char *name, const QByteArray &body, qint64 code,
                                 const char *text = systemText) {
            row(name, QVScript::answer(body), code, q(text), true);
        };
        const auto failed = [&](const char *name, const QVScript &script, qint64 code,
                                const char *text = systemText) {
            row(name, script, code, q(text), false);
        };
        good("plain", goodBody);
        good("byte order mark", QByteArray("\xef\xbb\xbf") + goodBody);
        refused("access denied", R"({"code":"0101"})", 101, "Access denied. Try again.");
        refused("too fast", R"({"code":"0105"})", 105, "Too fast. Wait a moment.");
        refused("too many", R"({"code":"0106"})", 106, "Too many refreshes. Try again later.");
        refused("too often", R"({"code":"0315"})", 315, "Too many attempts. Try again later.");
        refused("expired", R"({"code":"1002"})", 1002, "Expired. Try again.");
        refused("wrong", R"({"code":"0104"})", 104);
        refused("code of the platform's", R"({"code":"-1001"})", -1001);
        refused("code as a number", R"({"code":103})", 103);
        refused("code with a blank", R"({"code":"0103 "})", 103);
        refused("code out of range", R"({"code":"99999999999999999999"})", 0);
        refused("no code", R"({"img":"a.png"})", 0);
        refused("list", "[]", 0);
        refused("lone text", R"("0103")", 0);
        failed("web page", QVScript::answer("<html>busy</html>"), 3840);
        failed("two values", QVScript::answer("1,2"), 3840);
        failed("not UTF-8", QVScript::answer("{\"code\":\"\xff\xfe\"}"), 3840);
        failed("bottomless", QVScript::answer(nested(100000)), 3840);
        failed("elements without end",
               QVScript::answer(R"({"code":"0103","x":[)" + QByteArray("[0],").repeated(200000) + "0]}"),
               3840);
        failed("cut short", cutShort(), -1005, lostText);
        failed("closed at once", QVScript().close(), -1005, lostText);
        failed("redirect to a file", redirectTo("file:///etc/hostname"), -1);
        failed("redirect in a circle", redirectTo("/again"), -1);
        // The status of an answer is ignored, and nothing of an answer is kept.
        for (const int status : {201, 300, 302, 305, 401, 404, 407, 500, 599})
            row(qPrintable(q("status %1").arg(status)),
                QVScript::answer(goodBody, status,
                                 "WWW-Authenticate: Basic realm=\"x\"\r\nCache-Control: max-age=999\r\n"
                                 "Proxy-Authenticate: Basic realm=\"x\"\r\nSet-Cookie: id=8; Path=/\r\n"),
                qint64(0), QString(), false);
        const QByteArray longest = QByteArray(goodBody).leftJustified(answerLimit, ' ');
        good("longest", longest);
        failed("too long", QVScript::answer(longest + ' '), -1);
    }

    void outcomes()
    {
        QFETCH(const QVScript, script);
        QFETCH(const bool, isRefusal);
        QFETCH(const qint64, code);
        server().setResponder([&](const QVReceivedRequest &) { return script; });
        const QTemporaryDir folder;
        QNetworkAccessManager hosts;
        auto *const cache = new QNetworkDiskCache(&hosts);
        cache->setCacheDirectory(folder.path());
        hosts.setCache(cache);
        hosts.cookieJar()->setCookiesFromUrl({QNetworkCookie("id", "7")}, QUrl(server().address()));
        for (QNetworkAccessManager *const manager : {static_cast<QNetworkAccessManager *>(nullptr), &hosts}) {
            settings().setNetworkAccessManager(manager);
            if (code != 0 && code != 104) {
                // The warning for the host's developer contains neither the address nor the answer.
                const QString warning = q("^Request for a picture failed: [^/?=]* \\(code %1\\)$").arg(code);
                QTest::ignoreMessage(QtWarningMsg, QRegularExpression(warning));
            }
            Probe<Picture> probe;
            const Task task = requestPicture(probe);
            QVERIFY(task);
            await(probe);
            QVERIFY(waitFor([&] { return !task; }));
            QTEST(probe.code(), "code");
            QTEST(probe.error().value_or(QVError()).domain(), "text");
            QCOMPARE(probe.result() ? probe.result()->img() : QString(),
                     probe.error() ? QString() : q("a.png"));
            QCOMPARE(probe.error() && QVErrorClassification::isQVCustomError(*probe.error()), isRefusal);
            QCOMPARE(time().pendingCount(), 0);
            QVERIFY(server().requests().last().header("Cookie").isEmpty());
            // No request is repeated, except for redirects, and by Qt with the host's manager.
            const bool isCircle = q(QTest::currentDataTag()).endsWith(q("circle"));
            QVERIFY(manager || server().requests().size() == (isCircle ? 6 : 1));
        }
        QCOMPARE(cache->cacheSize(), 0);
        QCOMPARE(hosts.cookieJar()->cookiesForUrl(QUrl(server().address())).value(0).value(), "7");
    }

    void usesAConnectionAgain()
    {
        server().enqueue(QVScript::answer(goodBody));
        server().enqueue(QVScript::answer(goodBody).close());
        QCOMPARE(codeOfNext(), 0);
        QCOMPARE(codeOfNext(), 0);
        QCOMPARE(server().connectionCount(), 1);
        // The server has closed the idle connection.
        QVERIFY(waitFor([this] { return server().closedCount() == 1; }));
        server().enqueue(QVScript::answer(goodBody));
        QCOMPARE(codeOfNext(), 0);
        QCOMPARE(server().connectionCount(), 2);
        // The server closes the connection after it has read the request. That is not repeated, since the
        // service has counted it.
        server().enqueue(QVScript().close());
        QCOMPARE(codeOfNext(), -1005);
        QCOMPARE(server().connectionCount(), 2);
        QCOMPARE(server().requests().size(), 4);
    }

    void sendsPlainGetWithItsHeader()
    {
        // Five redirects are followed, and 300 is not a redirect.
        for (const int status : {301, 302, 303, 307, 308, 300})
            server().enqueue(redirectTo("/elsewhere", status));
        QCOMPARE(codeOfNext(), 0);
        QCOMPARE(server().requests().size(), 6);
        const QVReceivedRequest &request = server().requests().last();
        QCOMPARE(request.method + request.target, QByteArray("GET/elsewhere"));
        // From Qt 6.8 on the names are in lower case, which means the same.
        QByteArrayList fields = request.fields().join('\n').toLower().split('\n');
        QVERIFY(fields.takeAt(5).startsWith("accept-language: "));
        QCOMPARE(fields, QByteArrayList({"host: 127.0.0.1:" + QByteArray::number(server().serverPort()),
                                         "content-type: application/x-www-form-urlencoded;charset=utf-8",
                                         "cache-control: no-cache", "pragma: no-cache",
                                         "accept-encoding: gzip", "user-agent: mozilla/5.0"}));
    }

    void judgesTheCertificate_data()
    {
        const auto row = addColumns<QString, QString, QString, qint64>({"shown", "trusted", "host", "code"});
        row("trusted", q("local"), q("local"), q("127.0.0.1"), qint64(0));
        row("untrusted", q("local"), q("stranger"), q("127.0.0.1"), qint64(-1200));
        row("expired", q("expired"), q("expired"), q("127.0.0.1"), qint64(-1200));
        row("for another host", q("local"), q("local"), q("localhost"), qint64(-1200));
    }

    void judgesTheCertificate()
    {
        QFETCH(const QString, shown);
        QFETCH(const QString, trusted);
        QFETCH(const QString, host);
        QFETCH(const qint64, code);
        server().useTls(qv_serverTls(shown));
        server().setResponder([](const QVReceivedRequest &) { return QVScript::answer(goodBody); });
        const QString address = q("https://%1:%2").arg(host).arg(server().serverPort());
        QNetworkAccessManager hosts;
        // What the host does without verification is no reason to trust the server.
        QNetworkRequest careless{QUrl(address)};
        QSslConfiguration unverified;
        unverified.setPeerVerifyMode(QSslSocket::VerifyNone);
        careless.setSslConfiguration(unverified);
        const std::unique_ptr<QNetworkReply> reply(hosts.get(careless));
        QVERIFY(waitFor([&reply] { return reply->isFinished(); }));
        for (const bool isVerifiedByDefault : {true, false}) {
            const auto trusting = trust(trusted);
            // A host may have switched verification off for the process.
            QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
            tls.setPeerVerifyMode(isVerifiedByDefault ? QSslSocket::AutoVerifyPeer : QSslSocket::VerifyNone);
            QSslConfiguration::setDefaultConfiguration(tls);
            for (QNetworkAccessManager *const manager :
                 {static_cast<QNetworkAccessManager *>(nullptr), &hosts}) {
                settings().setNetworkAccessManager(manager);
                QCOMPARE(codeOf(address, q("v")), code);
            }
        }
        settings().setNetworkAccessManager(nullptr);
        QCOMPARE(server().requests().size(), code == 0 ? 5 : 1);
        QVERIFY(code != 0 || server().connectionCount() < 5);
        // Trust in an earlier certificate must not last.
        QCOMPARE(codeOf(address, q("v")), -1200);
    }

    void configurations()
    {
        const auto trusting = trust(q("local"));
        server().useTls(qv_serverTls(q("local")));
        QVServiceAddresses addresses;
        addresses.setApiHost(server().address());
        addresses.setCdn(q("https://default.example"));
        settings().setServiceAddresses(addresses);
        // The answer, its API server, its picture server, whether characters are typed, and whether a warning
        // is logged about a server without encryption.
        const QVCases<const char *, const char *, const char *, bool, bool> cases{
            {"'api_server':'a.example','cdn_servers':['b.example','c']", "https://a.example",
             "https://b.example", false, false},
            {"'api_server':'httpd.example','cdn_servers':['httpd.b']", "httpd.example", "httpd.b", false,
             false},
            {"'api_server':'HTTP://a','cdn_servers':[null,'b'],'source_server':'https://x'",
             "https://HTTP://a", "https://default.example", false, false},
            {"'api_server':'','cdn_servers':[],'type':'Character'", "", "https://default.example", false,
             false},
            {"'type':'character','isCharVerify':false", "", "https://default.example", true, false},
            {"'type':'draw','isCharVerify':true,'cdn_servers':'b'", "", "https://default.example", false,
             false},
            {"'api_server':'http://a.example'", "http://a.example", "https://default.example", false, true},
            {"'cdn_servers':['http://a.example']", "", "http://a.example", false, true},
            {"'cdn_servers':['http://127.0.0.1']", "", "http://127.0.0.1", false, false}};
        for (const auto &[members, apiServer, source, isTyped, isWarnedOf] : cases) {
            const QByteArray body = "{'code':'0103','guide':'YES'," + QByteArray(members) + '}';
            server().enqueue(QVScript::answer(QByteArray(body).replace('\'', '"')));
            if (isWarnedOf)
                QTest::ignoreMessage(QtWarningMsg,
                                     QRegularExpression(q("names a server without encryption")));
            Probe<QVConfigResponseModel> probe;
            probe.run([](auto completed) { return manager().requestConfigWithVid({}, {}, {}, completed); });
            await(probe);
            QCOMPARE(probe.result()->api_server(), q(apiServer));
            QCOMPARE(probe.result()->source_server(), q(source));
            QCOMPARE(probe.result()->isCharVerify(), isTyped);
            QVERIFY(probe.result()->guide());
        }
    }

    void addresses()
    {
        // On a machine without a network, a name that is not found gives -1009.
        const QVCases<QString, QList<qint64>> cases{{QString(), {-1002}},
                                                    {q("outage.example/x"), {-1002}},
                                                    {q("file:///etc/passwd"), {-1002}},
                                                    {q("https://"), {-1000}},
                                                    {q("http://out age.example/"), {-1000, -1003, -1009}},
                                                    {q("http://[::1/"), {-1000}},
                                                    {q("http://127.0.0.1:99999/"), {-1000}},
                                                    {q("http://a\x01z/"), {-1000}},
                                                    {q("http://127.0.0.1:1"), {-1004}},
                                                    {q("http://nobody.invalid"), {-1003, -1009}}};
        for (const auto &[address, codes] : cases) {
            settings().setOutage(address);
            Probe<QVGetOutageResponseModel> probe;
            QVERIFY(probe.run([](auto completed) { return manager().requestOutageGetcompleted(completed); }));
            await(probe);
            QVERIFY2(codes.contains(probe.code()), qPrintable(address));
            QCOMPARE(time().pendingCount(), 0);
        }
        // A null base is replaced only if there is no id, either.
        server().enqueue(QVScript::answer(goodBody));
        for (const auto &[vid, code] :
             QVCases<QString, qint64>{{q("v"), -1002}, {q(""), -1002}, {QString(), 0}})
            QCOMPARE(codeOf(QString(), vid), code);
    }

    void pastedText()
    {
        const QVCases<QString, QByteArray> cases{
            {q("%zz"), "id=%25zz"},
            {q("a HTTP/1.1\r\nEvil: 1\r\n\r\nGET /"), "id=a%20HTTP/1.1%0D%0AEvil:%201%0D%0A%0D%0AGET%20/"},
            {q("a&b=c"), "b=c"},
            {q("a%26b"), "id=a%26b"},
            {q("a#b"), "id=a"}};
        for (const auto &[vid, onTheWire] : cases) {
            server().enqueue(QVScript::answer(goodBody));
            QCOMPARE(codeOf(server().address(), vid), 0);
            QVERIFY2(server().requests().last().pairs().contains(onTheWire), onTheWire.constData());
            QVERIFY(!server().requests().last().head.contains("\nEvil"));
        }
    }

    void cancelled()
    {
        for (const bool isUnderWay : {true, false}) {
            server().enqueue(QVScript().send("HTTP/1.1 200 OK\r\nContent-Length: 50\r\n\r\n{"));
            Probe<Picture> probe;
            const Task task = requestPicture(probe);
            QVERIFY(!isUnderWay || waitFor([&] { return server().requests().size() == 1; }));
            task->cancel();
            task->cancel();
            QVERIFY(!probe.isDone());
            await(probe);
            QCOMPARE(*probe.error(), QVError(q(systemText), -999));
            QVERIFY(!probe.result());
            QCOMPARE(time().pendingCount(), 0);
        }
        QVERIFY(waitFor([&] { return server().closedCount() == server().connectionCount(); }));
    }

    void theHostsWayGivesUp()
    {
        auto network = std::make_unique<QNetworkAccessManager>();
        settings().setNetworkAccessManager(network.get());
        Probe<Picture> probe;
        requestPicture(probe);
        QVERIFY(waitFor([&] { return server().requests().size() == 1; }));
        // The manager's own time-out does the same.
        network->findChild<QNetworkReply *>()->abort();
        await(probe);
        QCOMPARE(probe.code(), -1001);
        // The manager is destroyed during the completion.
        int completions = 0;
        const Task task = manager().requestGetWithApiServer(server().address(), q("v"), q("c"),
                                                            [&](const auto &, const auto &) {
                                                                ++completions;
                                                                network.reset();
                                                                QCoreApplication::processEvents();
                                                            });
        task->cancel();
        QVERIFY(waitFor([&] { return !task; }));
        QCOMPARE(completions, 1);
    }

private:
    [[nodiscard]] qint64 codeOfNext() const { return codeOf(server().address(), q("v")); }

    [[nodiscard]] qint64 codeOf(const QString &base, const QString &vid) const
    {
        Probe<Picture> probe;
        probe.run([&](QVCompletion<Picture> completed) {
            return manager().requestGetWithApiServer(base, vid, q("c"), std::move(completed));
        });
        await(probe);
        return probe.result() ? 0 : probe.code();
    }
};

QV_TEST(TestTransport)
#include "TestTransport.moc"
