#include "service/QVServiceTestCase.h"

#include <QNetworkAccessManager>

namespace {

constexpr qsizetype answerLimit = 1 << 20;

QByteArray goodBody()
{
    return QByteArrayLiteral(R"({"code":"0103","img":"a.png"})");
}

QByteArray chunked(const QByteArray &body)
{
    return QByteArray::number(body.size(), 16) + "\r\n" + body + "\r\n";
}

QByteArray chunkedHead()
{
    return QByteArrayLiteral("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n");
}

// JSON of a given size that is still a success.
QByteArray paddedTo(qsizetype size)
{
    return goodBody().leftJustified(size, ' ');
}

QByteArray nested(int depth)
{
    return R"({"code":"0103","img":"a.png","deep":)" + QByteArray(depth, '[') + QByteArray(depth, ']') + '}';
}

QVScript redirectTo(const QByteArray &address)
{
    return QVScript::answer({}, 302, "Location: " + address + "\r\n");
}

// A few kilobytes that unpack to much more than an answer may have.
QVScript compressedBomb()
{
    constexpr qsizetype lengthBeforeData = 4;
    const QByteArray packed = qCompress(QByteArray(20 * answerLimit, ' ')).mid(lengthBeforeData);
    return QVScript::answer(packed, 200, "Content-Encoding: deflate\r\n");
}

} // namespace

class TestTransport : public QVServiceTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void outcomes_data()
    {
        const auto row = addColumns<QVScript, qint64>({"script", "code"});
        row("plain", QVScript::answer(goodBody()), qint64(0));
        row("chunks", QVScript().send(chunkedHead() + chunked(goodBody()) + chunked({})), qint64(0));
        row("as large as may be", QVScript::answer(paddedTo(answerLimit)), qint64(0));
        row("byte order mark", QVScript::answer("\xef\xbb\xbf" + goodBody()), qint64(0));
        row("web page", QVScript::answer("<html>busy</html>", 503), qint64(3840));
        row("two values", QVScript::answer("1,2"), qint64(3840));
        row("not UTF-8", QVScript::answer("{\"code\":\"\xff\xfe\"}"), qint64(3840));
        row("bottomless", QVScript::answer(nested(100000)), qint64(3840));
        row("shorter than promised",
            QVScript().send("HTTP/1.1 200 OK\r\nContent-Length: 99\r\n\r\n" + goodBody()).close(),
            qint64(-1005));
        row("last chunk missing", QVScript().send(chunkedHead() + chunked(goodBody())).close(),
            qint64(-1005));
        row("closed at once", QVScript().close(), qint64(-1005));
        row("too large", QVScript::answer(paddedTo(answerLimit + 1)), qint64(-1));
        row("too large and endless", QVScript().send(chunkedHead() + chunked(paddedTo(answerLimit + 1))),
            qint64(-1));
        row("compressed bomb", compressedBomb(), qint64(-1));
        row("broken compression", QVScript::answer("xxxx", 200, "Content-Encoding: gzip\r\n"), qint64(-1));
        row("redirect to a file", redirectTo("file:///etc/hostname"), qint64(-1));
        row("redirect in a circle", redirectTo("/again"), qint64(-1));
    }

    void outcomes()
    {
        QFETCH(const QVScript, script);
        QFETCH(const qint64, code);
        server().setResponder([&](const QVReceivedRequest &) { return script; });
        Probe<Picture> probe;
        const Task task = requestPicture(probe);
        QVERIFY(!task->isFinished());
        await(probe);
        QVERIFY(task->isFinished());
        // Nothing is asked again but what a redirect asks for.
        QVERIFY(server().requests().size() == 1 || server().requests().size() == 6);
        QCOMPARE(probe.code(), code);
        QCOMPARE(probe.result() != nullptr, code == 0);
        QVERIFY(!probe.result() || probe.result()->img() == q("a.png"));
        QVERIFY(!probe.error() || *probe.error() == QVErrorClassification::parseError(probe.error()));
        QVERIFY(!probe.error() || !QVErrorClassification::isQVCustomError(*probe.error()));
        QCOMPARE(time().pendingCount(), 0);
    }

    void usesAConnectionAgain()
    {
        const auto ask = [this] {
            Probe<Picture> probe;
            requestPicture(probe);
            await(probe);
            return probe.code();
        };
        server().enqueue(QVScript::answer(goodBody()));
        server().enqueue(QVScript::answer(goodBody()).close());
        QCOMPARE(ask(), 0);
        QCOMPARE(ask(), 0);
        QCOMPARE(server().connectionCount(), 1);
        // The server has closed it while nobody used it.
        QVERIFY(waitFor([this] { return server().closedCount() == 1; }));
        server().enqueue(QVScript::answer(goodBody()));
        QCOMPARE(ask(), 0);
        QCOMPARE(server().connectionCount(), 2);
        // It is closed after the request has been read: the service has counted that.
        server().enqueue(QVScript().close());
        QCOMPARE(ask(), -1005);
        QCOMPARE(server().connectionCount(), 2);
        QCOMPARE(server().requests().size(), 4);
    }

    void statusIsNotExamined()
    {
        QNetworkAccessManager hosts;
        const QByteArray challenge = "Basic realm=\"x\"\r\n";
        for (QNetworkAccessManager *const manager : {static_cast<QNetworkAccessManager *>(nullptr), &hosts}) {
            settings().setNetworkAccessManager(manager);
            for (const int status : {201, 300, 301, 302, 303, 305, 307, 308, 400, 401, 404, 407, 500, 599}) {
                server().enqueue(
                    QVScript::answer(goodBody(), status,
                                     "WWW-Authenticate: " + challenge + "Proxy-Authenticate: " + challenge));
                Probe<Picture> probe;
                requestPicture(probe);
                await(probe);
                QVERIFY2(probe.result(), qPrintable(QString::number(status)));
            }
            // That there is one does not make an answer whole.
            server().enqueue(
                QVScript().send("HTTP/1.1 200 OK\r\nContent-Length: 99\r\n\r\n" + goodBody()).close());
            Probe<Picture> probe;
            requestPicture(probe);
            await(probe);
            QCOMPARE(probe.code(), -1005);
        }
        settings().setNetworkAccessManager(nullptr);
    }

    void refusals()
    {
        const QVCases<QByteArray, qint64> cases{{R"({"code":"1002"})", 1002},
                                                {R"({"code":103})", 103},
                                                {R"({"code":"99999999999999999999"})", 0},
                                                {R"({"code":null})", 0},
                                                {"[]", 0},
                                                {R"("0103")", 0},
                                                {"42", 0}};
        for (const auto &[body, code] : cases) {
            server().enqueue(QVScript::answer(body));
            Probe<Picture> probe;
            requestPicture(probe);
            await(probe);
            QVERIFY(!probe.result());
            QCOMPARE(probe.code(), code);
            QVERIFY(QVErrorClassification::isQVCustomError(*probe.error()));
        }
    }

    void sendsPlainGetWithItsHeader()
    {
        for (int round = 1; round <= 2; ++round) {
            server().enqueue(
                QVScript::answer(goodBody(), 200, "Set-Cookie: id=7\r\nCache-Control: max-age=999\r\n"));
            Probe<Picture> probe;
            requestPicture(probe);
            await(probe);
            QCOMPARE(server().requests().size(), round);
        }
        const QVReceivedRequest &request = server().requests().last();
        QCOMPARE(request.method, QByteArray("GET"));
        QByteArrayList fields = request.fields();
        QVERIFY(fields.takeAt(5).startsWith("Accept-Language: "));
        QCOMPARE(fields, QByteArrayList({"Host: 127.0.0.1:" + QByteArray::number(server().serverPort()),
                                         "Content-Type: application/x-www-form-urlencoded;charset=UTF-8",
                                         "Cache-Control: no-cache", "Pragma: no-cache",
                                         "Accept-Encoding: gzip", "User-Agent: Mozilla/5.0"}));
    }

    void followsFewRedirects()
    {
        server().enqueue(redirectTo("/elsewhere"));
        server().enqueue(QVScript::answer(goodBody()));
        Probe<Picture> probe;
        requestPicture(probe);
        await(probe);
        QVERIFY(probe.result());
        QCOMPARE(server().requests().last().target, QByteArray("/elsewhere"));
    }

    void refusedConnection()
    {
        server().close();
        Probe<Picture> probe;
        requestPicture(probe);
        await(probe);
        QCOMPARE(probe.code(), -1004);
    }

    void unknownHost()
    {
        Probe<Picture> probe;
        probe.run([](QVCompletion<Picture> completed) {
            return manager().requestGetWithApiServer(q("http://nobody.invalid"), q("v"), q("c"),
                                                     std::move(completed));
        });
        await(probe);
        // A machine without any network says that it is offline instead.
        QVERIFY2(probe.code() == -1003 || probe.code() == -1009, qPrintable(QString::number(probe.code())));
    }
};

QV_TEST(TestTransport)
#include "TestTransport.moc"
