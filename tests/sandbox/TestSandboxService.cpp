#include "sandbox/SandboxStrokes.h"
#include "sandbox/SandboxTestCase.h"

#include <QElapsedTimer>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>

using std::chrono::milliseconds;

namespace {

const QString drawer = QStringLiteral("test-draw");

QString q(const char *text)
{
    return QString::fromLatin1(text);
}

} // namespace

class TestSandboxService : public SandboxTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void configures_data()
    {
        QTest::addColumn<QString>("id");
        QTest::addColumn<QString>("type");
        QTest::addColumn<bool>("guide");
        QTest::newRow("draw") << drawer << q("draw") << false;
        QTest::newRow("any other id") << q("shop") << q("draw") << false;
        QTest::newRow("no id") << QString() << q("draw") << false;
        QTest::newRow("character") << q("test-character") << q("character") << false;
        QTest::newRow("guide") << q("test-guide") << q("draw") << true;
    }
    void configures()
    {
        QFETCH(const QString, id);
        QFETCH(const QString, type);
        QFETCH(const bool, guide);
        const Reply reply = get(q("/app/config/v1?deviceid=d&scene=2&type=embed&id=") + id);
        QCOMPARE(reply.status, 200);
        QVERIFY(reply.contentType.startsWith("application/json"));
        const QJsonObject config = reply.json();
        QCOMPARE(reply.code(), q("0103"));
        QCOMPARE(reply.text("type"), type);
        QCOMPARE(config.value(q("guide")), QJsonValue(guide));
        QCOMPARE(reply.text("api_server"), sandbox().baseAddress() + q("/app"));
        QCOMPARE(config.value(q("cdn_servers")).toArray(), QJsonArray{sandbox().addresses().cdn});
        QCOMPARE(reply.text("challenge").size(), 32);
        QVERIFY(reply.text("challenge") != configured(id));
    }

    void answersOneCodeToEverything_data()
    {
        QTest::addColumn<QString>("id");
        QTest::addColumn<QString>("code");
        QTest::newRow("denied") << q("test-denied") << q("0101");
        QTest::newRow("fast") << q("test-fast") << q("0105");
        QTest::newRow("many") << q("test-many") << q("0106");
        QTest::newRow("touch") << q("test-touch") << q("0315");
        QTest::newRow("expired") << q("test-expired") << q("1002");
    }
    void answersOneCodeToEverything()
    {
        QFETCH(const QString, id);
        QFETCH(const QString, code);
        for (const char *operation : {"config", "get", "refresh", "click", "verify"})
            QCOMPARE(service(q(operation), id, q("c")).code(), code);
    }

    void clickDecides()
    {
        const Reply passed = service(q("click"), q("test-pass"), configured(q("test-pass")));
        QCOMPARE(passed.code(), q("0103"));
        QVERIFY(!passed.text("token").isEmpty());
        const Reply toDraw = service(q("click"), drawer, configured(drawer));
        QCOMPARE(toDraw.code(), q("0104"));
        QVERIFY(toDraw.text("img").endsWith(q(".jpg")));
        QVERIFY(!toDraw.json().contains(q("token")));
    }

    void servesPicturesInBothSizes()
    {
        const QString img = service(q("get"), drawer, configured(drawer)).text("img");
        const Reply sharp = get(sandbox().addresses().cdn + u'/' + img);
        QCOMPARE(sharp.contentType, QByteArray("image/jpeg"));
        QCOMPARE(QImage::fromData(sharp.body).size(), QSize(800, 460));
        const Reply plain =
            get(sandbox().addresses().cdn + u'/' + QString(img).replace(q(".jpg"), q("@1x.jpg")));
        QCOMPARE(QImage::fromData(plain.body).size(), QSize(400, 230));
        QCOMPARE(get(sandbox().addresses().imageHost + u'/' + img).status, 404);
    }

    void breaksPictures()
    {
        const QString id = q("test-broken-picture");
        const QString img = service(q("get"), id, configured(id)).text("img");
        const Reply reply = get(sandbox().addresses().cdn + u'/' + img);
        QCOMPARE(reply.status, 200);
        QVERIFY(!reply.body.isEmpty());
        QVERIFY(QImage::fromData(reply.body).isNull());
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

    void comparesCharactersAsPeopleTypeThem()
    {
        const QString id = q("test-character");
        const QString challenge = configured(id);
        QCOMPARE(service(q("click"), id, challenge).code(), q("0104"));
        const QString characters = sandbox().solution(challenge)->characters;
        QVERIFY(characters.size() == 4 || characters.size() == 5);
        QCOMPARE(service(q("verify"), id, challenge, q("&v=") + characters.chopped(1)).code(), q("0104"));
        const QString typed = q("&drawtime=0&v=%20") + characters.toLower() + q("%20");
        const Reply reply = service(q("verify"), id, challenge, typed);
        QCOMPARE(reply.code(), q("0103"));
        QVERIFY(reply.text("passline").isEmpty());
        QCOMPARE(get(q("/sandbox/token?token=") + reply.text("token")).text("earned"), q("character"));
    }

    void neverAccepts()
    {
        const QString id = q("test-wrong");
        const QString challenge = configured(id);
        QCOMPARE(service(q("get"), id, challenge).code(), q("0103"));
        QCOMPARE(drawn(id, challenge, sandbox().solution(challenge)->points).code(), q("0104"));
    }

    void knowsOnlyItsOwnChallenges()
    {
        const QString challenge = configured(drawer);
        for (const char *operation : {"get", "refresh", "click", "verify"}) {
            QCOMPARE(service(q(operation), drawer, q("nonsense")).code(), q("1002"));
            QCOMPARE(service(q(operation), q("someone else"), challenge).code(), q("1002"));
        }
    }

    void challengesAge()
    {
        const QString challenge = configured(drawer);
        age(milliseconds(179000));
        QCOMPARE(service(q("get"), drawer, challenge).code(), q("0103"));
        // A picture renews its challenge.
        age(milliseconds(179000));
        QCOMPARE(service(q("refresh"), drawer, challenge).code(), q("0103"));
        age(milliseconds(180001));
        QCOMPARE(drawn(drawer, challenge, sandbox().solution(challenge)->points).code(), q("1002"));
        QVERIFY(!sandbox().solution(challenge));
    }

    void boundsRefreshing_data()
    {
        QTest::addColumn<int>("between");
        QTest::addColumn<int>("allowed");
        QTest::addColumn<QString>("code");
        QTest::newRow("burst") << 0 << 10 << q("0105");
        QTest::newRow("all the time") << 300 << 30 << q("0106");
        QTest::newRow("patiently") << 2100 << 40 << q("0103");
    }
    void boundsRefreshing()
    {
        QFETCH(const int, between);
        QFETCH(const int, allowed);
        QFETCH(const QString, code);
        const QString challenge = configured(drawer);
        for (int i = 0; i < allowed; ++i) {
            QCOMPARE(service(q("refresh"), drawer, challenge).code(), q("0103"));
            age(milliseconds(between));
        }
        QCOMPARE(service(q("refresh"), drawer, challenge).code(), code);
        age(milliseconds(60001));
        QCOMPARE(service(q("refresh"), drawer, challenge).code(), q("0103"));
    }

    void advertises()
    {
        const QString id = q("test-ad");
        const Reply reply = service(q("get"), id, configured(id));
        QVERIFY(!reply.text("adlinkword").isEmpty());
        QVERIFY(get(reply.text("adlink")).contentType.startsWith("text/html"));
        QVERIFY(!service(q("get"), drawer, configured(drawer)).json().contains(q("adlink")));
    }

    void answersLate()
    {
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(service(q("config"), q("test-slow"), {}).code(), q("0103"));
        QVERIFY(timer.elapsed() >= 110);
    }

    void answersNoJson()
    {
        const Reply reply = service(q("config"), q("test-badjson"), {});
        QCOMPARE(reply.status, 200);
        QVERIFY(!reply.body.isEmpty());
        QVERIFY(QJsonDocument::fromJson(reply.body).isNull());
    }

    void switchesTheOutage()
    {
        const QVSandboxAddresses addresses = sandbox().addresses();
        const auto active = [this](const QString &host) {
            return get(host + q("/config")).json().value(q("active"));
        };
        QCOMPARE(active(addresses.downloadHost), QJsonValue(false));
        QCOMPARE(active(addresses.outageDownloadHost), QJsonValue(true));
        sandbox().setOutageActive(true);
        QCOMPARE(active(addresses.downloadHost), QJsonValue(true));
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

    void outageServiceStopsGuessing()
    {
        const QString server = sandbox().addresses().outageServer;
        const QString challenge = get(server + q("?action=get")).text("challenge");
        const QString verify = server + q("?action=verify&challenge=%1&v=").arg(challenge);
        const QString cells = SandboxStrokes::encodedCells(sandbox().solution(challenge)->points);
        for (int i = 0; i < 3; ++i)
            QCOMPARE(get(verify + q("zzzz")).code(), q("0104"));
        QCOMPARE(get(verify + cells).code(), q("0104"));
        QCOMPARE(get(server + q("?action=verify&v=0000")).code(), q("1002"));
        QCOMPARE(get(server).status, 400);
    }

    void sameSeedGivesTheSameSession()
    {
        const QString challenge = configured(drawer);
        const QString img = service(q("get"), drawer, challenge).text("img");
        const QByteArray picture = get(sandbox().addresses().cdn + u'/' + img).body;
        finish();
        prepare();
        QCOMPARE(configured(drawer), challenge);
        QCOMPARE(service(q("get"), drawer, challenge).text("img"), img);
        QCOMPARE(get(sandbox().addresses().cdn + u'/' + img).body, picture);
    }

    void withoutASeedSessionsDiffer()
    {
        QSet<QString> challenges;
        for (int i = 0; i < 3; ++i) {
            QVSandbox other;
            QVERIFY(other.listen());
            challenges.insert(get(other.baseAddress() + q("/app/config/v1")).text("challenge"));
        }
        QCOMPARE(challenges.size(), 3);
    }
};

QV_TEST(TestSandboxService)
#include "TestSandboxService.moc"
