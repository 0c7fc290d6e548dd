#include "sandbox/SandboxStrokes.h"
#include "sandbox/SandboxTestCase.h"

#include <QImage>
#include <QJsonArray>
#include <QNetworkReply>

using std::chrono::milliseconds;

namespace {

const QString drawer = q("test-draw");

} // namespace

class TestSandboxService : public SandboxTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void configures()
    {
        const Reply reply = get(q("/app/config/v1?deviceid=d&scene=2&type=embed&id=test-guide"));
        QCOMPARE(reply.status, 200);
        QVERIFY(reply.contentType.startsWith("application/json"));
        QCOMPARE(reply.code(), q("0103"));
        QCOMPARE(reply.text("type"), q("draw"));
        QCOMPARE(reply.json().value(q("guide")), QJsonValue(true));
        QCOMPARE(reply.text("api_server"), sandbox().baseAddress() + q("/app"));
        QCOMPARE(reply.json().value(q("cdn_servers")).toArray(), QJsonArray{sandbox().addresses().cdn});
        QCOMPARE(reply.text("challenge").size(), 32);
        QVERIFY(reply.text("challenge") != configured(q("test-guide")));
    }

    void answersOneCodeToEverything()
    {
        for (const char *operation : {"config", "get", "refresh", "click", "verify"}) {
            QCOMPARE(service(q(operation), q("test-denied"), q("c")).code(), q("0101"));
            QCOMPARE(service(q(operation), q("test-expired"), q("c")).code(), q("1002"));
        }
    }

    void acceptsTheDrawnCurveOnce()
    {
        const QString challenge = configured(drawer);
        QVERIFY(!sandbox().solution(challenge));
        QCOMPARE(service(q("get"), drawer, challenge).code(), q("0103"));
        const auto solution = sandbox().solution(challenge);
        QVERIFY(solution);
        const Reply reply = drawn(drawer, challenge, solution->points);
        QCOMPARE(reply.code(), q("0103"));
        QVERIFY(reply.text("score").toInt() >= 93);
        QCOMPARE(reply.text("passline"), q("60"));
        const Reply token = get(q("/sandbox/token?token=") + reply.text("token"));
        QCOMPARE(token.json(),
                 (QJsonObject{{q("valid"), true}, {q("id"), drawer}, {q("earned"), q("draw")}}));
        QCOMPARE(get(q("/sandbox/token?token=") + reply.text("token")).json(),
                 (QJsonObject{{q("valid"), false}}));
        QCOMPARE(drawn(drawer, challenge, solution->points).code(), q("1002"));
    }

    void refusesWrongStrokes()
    {
        const QString challenge = configured(drawer);
        QCOMPARE(drawn(drawer, challenge, SandboxStrokes::straight({20, 20}, {380, 180})).code(), q("0104"));
        QCOMPARE(service(q("get"), drawer, challenge).code(), q("0103"));
        const auto points = sandbox().solution(challenge)->points;
        const Reply wrong = drawn(drawer, challenge, SandboxStrokes::straight(points.first(), points.last()));
        QCOMPARE(wrong.code(), q("0104"));
        QVERIFY(wrong.text("score").toInt() < 60);
        const QString late = q("&drawtime=976&v=") + SandboxStrokes::encoded(points, 25);
        QCOMPARE(service(q("verify"), drawer, challenge, late).code(), q("0104"));
        QCOMPARE(service(q("verify"), drawer, challenge).code(), q("0104"));
        QCOMPARE(drawn(drawer, challenge, points).code(), q("0103"));
    }

    void stopsGuessingOnOnePicture()
    {
        const QString id = q("test-character");
        const QString challenge = configured(id);
        QCOMPARE(service(q("get"), id, challenge).code(), q("0103"));
        for (int i = 0; i < 5; ++i)
            QCOMPARE(service(q("verify"), id, challenge, q("&drawtime=0&v=none")).code(), q("0104"));
        const auto answer = [&] {
            return q("&drawtime=0&v=") + sandbox().solution(challenge)->characters;
        };
        QCOMPARE(service(q("verify"), id, challenge, answer()).code(), q("0104"));
        QCOMPARE(service(q("refresh"), id, challenge).code(), q("0103"));
        QCOMPARE(service(q("verify"), id, challenge, answer()).code(), q("0103"));
    }

    void knowsOnlyItsOwnChallenges()
    {
        const QString challenge = configured(drawer);
        for (const char *operation : {"get", "refresh", "click", "verify"}) {
            QCOMPARE(service(q(operation), drawer, q("nonsense")).code(), q("1002"));
            QCOMPARE(service(q(operation), q("someone else"), challenge).code(), q("1002"));
        }
    }

    void boundsRefreshing()
    {
        const QString challenge = configured(drawer);
        for (int i = 0; i < 10; ++i)
            QCOMPARE(service(q("refresh"), drawer, challenge).code(), q("0103"));
        QCOMPARE(service(q("refresh"), drawer, challenge).code(), q("0105"));
        age(milliseconds(60001));
        for (int i = 0; i < 30; ++i) {
            QCOMPARE(service(q("refresh"), drawer, challenge).code(), q("0103"));
            age(milliseconds(300));
        }
        QCOMPARE(service(q("refresh"), drawer, challenge).code(), q("0106"));
    }

    void outageServiceJudgesCells()
    {
        const QString server = sandbox().addresses().outageServer;
        const Reply picture = get(server + q("?action=get&deviceid=d"));
        QCOMPARE(picture.code(), q("0103"));
        const Reply image = get(sandbox().addresses().imageHost + u'/' + picture.text("imgid") + q(".jpg"));
        QCOMPARE(QImage::fromData(image.body).size(), QSize(800, 460));
        const QString verify = server + q("?action=verify&challenge=%1&v=").arg(picture.text("challenge"));
        const auto solution = sandbox().solution(picture.text("challenge"));
        QVERIFY(solution);
        const QString cells = SandboxStrokes::encodedCells(solution->points);
        QCOMPARE(get(verify + cells.left(3)).code(), q("0104"));
        const Reply reply = get(verify + cells);
        QCOMPARE(reply.code(), q("0103"));
        QCOMPARE(get(q("/sandbox/token?token=") + reply.text("token")).text("earned"), q("outage"));
        QCOMPARE(get(verify + cells).code(), q("1002"));
    }

    void whileDrawnAPictureMayBeAskedForTwice()
    {
        const Reply picture = get(sandbox().addresses().outageServer + q("?action=get&deviceid=d"));
        const QUrl address(sandbox().addresses().imageHost + u'/' + picture.text("imgid") + q("@1x.jpg"));
        QNetworkAccessManager network;
        const std::array replies{network.get(QNetworkRequest(address)),
                                 network.get(QNetworkRequest(address))};
        for (QNetworkReply *reply : replies) {
            QVERIFY(waitFor([reply] { return reply->isFinished(); }));
            QCOMPARE(QImage::fromData(reply->readAll()).size(), QSize(400, 230));
        }
    }
};

QV_TEST(TestSandboxService)
#include "TestSandboxService.moc"
