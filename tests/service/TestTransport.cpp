#include "service/QVServiceTestCase.h"

#include <QNetworkAccessManager>
#include <QNetworkCookie>
#include <QNetworkCookieJar>
#include <QNetworkDiskCache>
#include <QNetworkReply>

using namespace std::chrono_literals;

namespace {

constexpr qsizetype answerLimit = 1 << 20;
const char *const goodBody = R"({"code":"0103","img":"a.png"})";
const char *const systemText = "<otherRequestError>";
const char *const lostText = "-1005";
const char *const timedOutText = "-1001";

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
        refused("access denied", R"({"code":"0101"})", 101, "AccessDenied");
        refused("too fast", R"({"code":"0105"})", 105, "RefreshTooFast");
        refused("too many", R"({"code":"0106"})", 106, "refreshMany");
        refused("too often", R"({"code":"0315"})", 315, "RequestToMouch");
        refused("expired", R"({"code":"1002"})", 1002, "expired");
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
    }

    void outcomes()
    {
        QFETCH(const QVScript, script);
        QFETCH(const bool, isRefusal);
        QFETCH(const qint64, code);
        if (code != 0 && code != 104) {
            // The warning for the host's developer contains neither the address nor the answer.
            const QString warning = q("^Request for a picture failed: [^/?=]* \\(code %1\\)$").arg(code);
            QTest::ignoreMessage(QtWarningMsg, QRegularExpression(warning));
        }
        server().setResponder([&](const QVReceivedRequest &) { return script; });
        Probe<Picture> probe;
        const Task task = requestPicture(probe);
        QVERIFY(task);
        await(probe);
        QVERIFY(waitFor([&] { return !task; }));
        // No request is repeated, except for redirects.
        const bool isCircle = q(QTest::currentDataTag()).endsWith(q("circle"));
        QCOMPARE(server().requests().size(), isCircle ? 6 : 1);
        QTEST(probe.code(), "code");
        QTEST(probe.error().value_or(QVError()).domain(), "text");
        QCOMPARE(probe.result() ? probe.result()->img() : QString(), probe.error() ? QString() : q("a.png"));
        QCOMPARE(probe.error() && QVErrorClassification::isQVCustomError(*probe.error()), isRefusal);
        QCOMPARE(time().pendingCount(), 0);
    }

    void theOtherTextsOfThePlatform()
    {
        const QVCases<qint64, const char *> cases{
            {-1001, timedOutText}, {-1009, lostText}, {-999, systemText}, {101, systemText}};
        for (const auto &[code, text] : cases)
            QCOMPARE(QVErrorClassification::parseError(QVError(q("x"), code)), QVError(q(text), code));
        QCOMPARE(QVErrorClassification::parseError(std::nullopt), QVError(q("No Error!!!")));
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

    void onlyTheBodyCountsWhoeverFetchesIt()
    {
        const QTemporaryDir folder;
        QNetworkAccessManager hosts;
        auto *const cache = new QNetworkDiskCache(&hosts);
        cache->setCacheDirectory(folder.path());
        hosts.setCache(cache);
        hosts.cookieJar()->setCookiesFromUrl({QNetworkCookie("id", "7")}, QUrl(server().address()));
        const QByteArray wishes = "WWW-Authenticate: Basic realm=\"x\"\r\nCache-Control: max-age=999\r\n"
                                  "Proxy-Authenticate: Basic realm=\"x\"\r\n";
        for (QNetworkAccessManager *const manager : {static_cast<QNetworkAccessManager *>(nullptr), &hosts}) {
            settings().setNetworkAccessManager(manager);
            for (const int status : {200, 201, 300, 302, 305, 401, 404, 407, 500, 599}) {
                server().enqueue(QVScript::answer(goodBody, status, wishes));
                QCOMPARE(codeOfNext(), 0);
            }
            // An answer that is cut short is an error even with an HTTP error status.
            server().enqueue(cutShort());
            QCOMPARE(codeOfNext(), -1005);
            for (const qsizetype surplus : {0, 1}) {
                const qsizetype size = answerLimit + surplus;
                server().enqueue(QVScript::answer(QByteArray(goodBody).leftJustified(size, ' ')));
                QCOMPARE(codeOfNext(), -surplus);
            }
        }
        QVERIFY(server().requests().last().header("Cookie").isEmpty());
        QCOMPARE(cache->cacheSize(), 0);
    }

    void sendsPlainGetWithItsHeader()
    {
        // Cookies and cache headers are ignored. Five redirects are followed, and 300 is not a redirect.
        const QByteArray wishes = "Set-Cookie: id=7\r\nCache-Control: max-age=999\r\n";
        server().enqueue(QVScript::answer(goodBody, 200, wishes));
        for (const int status : {301, 302, 303, 307, 308, 300})
            server().enqueue(redirectTo("/elsewhere", status));
        QCOMPARE(codeOfNext(), 0);
        QCOMPARE(codeOfNext(), 0);
        QCOMPARE(server().requests().size(), 7);
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
    }

    void pastedText()
    {
        const QVCases<QString, QByteArray> cases{
            {q("%zz"), "id=%25zz"},
            {q("a HTTP/1.1\r\nEvil: 1\r\n\r\nGET /"), "id=a%20HTTP/1.1%0D%0AEvil:%201%0D%0A%0D%0AGET%20/"},
            {q("a&b=c"), "b=c"},
            {q("a%26b"), "id=a%26b"},
            {q("a#b"), "id=a"},
            // The platform decides whether these can be sent. The request must end in any case.
            {QString(QChar(0xd800)), {}},
            {QString(200000, u'x'), {}}};
        for (const auto &[vid, onTheWire] : cases) {
            server().enqueue(QVScript::answer(goodBody));
            const qint64 code = codeOfNext(vid);
            if (onTheWire.isEmpty())
                continue;
            QCOMPARE(code, 0);
            QVERIFY2(server().requests().last().pairs().contains(onTheWire), onTheWire.constData());
            QVERIFY(!server().requests().last().head.contains("\nEvil"));
        }
    }

    void cancelled()
    {
        for (const bool isUnderWay : {false, true}) {
            server().enqueue(QVScript().send("HTTP/1.1 200 OK\r\nContent-Length: 50\r\n\r\n{"));
            Probe<Picture> probe;
            const Task task = requestPicture(probe);
            QVERIFY(!isUnderWay || waitFor([&] { return server().requests().size() == 1; }));
            task->cancel();
            task->cancel();
            QVERIFY(!probe.isDone());
            await(probe);
            QCOMPARE(probe.code(), -999);
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

    void absentCompletionIsSkipped()
    {
        server().setResponder([](const QVReceivedRequest &) { return QVScript::answer(goodBody); });
        const QList<Task> tasks{manager().requestOutageComplted(nullptr),
                                manager().requestGetWithApiServer(QString(), q("v"), QString(), nullptr),
                                manager().requestGetWithApiServer(QString(), {}, QString(), nullptr)};
        QVERIFY(waitFor([&] { return tasks.count(nullptr) == 3; }));
    }

private:
    [[nodiscard]] qint64 codeOfNext(const QString &vid = q("v")) const
    {
        Probe<Picture> probe;
        requestPicture(probe, vid);
        await(probe);
        return probe.result() ? 0 : probe.code();
    }
};

QV_TEST(TestTransport)
#include "TestTransport.moc"
