#include "service/QVServiceTestCase.h"

namespace {

QString text(const char *value)
{
    return QString::fromLatin1(value);
}

} // namespace

class TestEndpoints : public QVServiceTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void config()
    {
        const auto probe = answered<QVConfigResponseModel>(
            R"({"code":"0103","challenge":"c","api_server":"a.example","cdn_servers":["p.example"]})",
            [](auto completed) {
                return manager().requestConfigWithVid(text("vv"), text("popup"), text("2"), completed);
            });
        expectRequest("/api/app/config/v1", {"id=vv", "scene=2", "type=popup"});
        QVERIFY(probe.result());
        QCOMPARE(probe.result()->api_server(), text("https://a.example"));
        QCOMPARE(probe.result()->source_server(), text("https://p.example"));
    }

    void configWithoutPictureServers_data()
    {
        QTest::addColumn<QByteArray>("body");
        QTest::newRow("missing") << QByteArray(R"({"code":"0103"})");
        QTest::newRow("null") << QByteArray(R"({"code":"0103","cdn_servers":null})");
        QTest::newRow("no list") << QByteArray(R"({"code":"0103","cdn_servers":"p.example"})");
        QTest::newRow("empty") << QByteArray(R"({"code":"0103","cdn_servers":[]})");
    }

    void configWithoutPictureServers()
    {
        QFETCH(const QByteArray, body);
        const auto probe = answered<QVConfigResponseModel>(
            body, [](auto completed) { return manager().requestConfigWithVid({}, {}, {}, completed); });
        expectRequest("/api/app/config/v1", {"id=", "scene=", "type="});
        QCOMPARE(probe.result()->source_server(), settings().serviceAddresses().cdn());
    }

    void get()
    {
        const auto probe = answered<Picture>(
            R"({"code":"0103","img":"i","adlink":"l","adlinkword":"w","frequency":1.5,"verifyCount":"1"})",
            [this](auto completed) {
                return manager().requestGetWithApiServer(base(), text("vv"), text("cc"), completed);
            });
        expectRequest("/base/get/v1", {"challenge=cc", "id=vv"});
        const auto picture = probe.result();
        QCOMPARE(QStringList({picture->img(), picture->adlink(), picture->adlinkword()}),
                 QStringList({text("i"), text("l"), text("w")}));
        QCOMPARE(picture->frequency(), 1.5);
        QCOMPARE(picture->verifyCount(), 1);
    }

    void refresh()
    {
        const auto probe = answered<Picture>(R"({"code":"0103"})", [this](auto completed) {
            return manager().requestRefreshWithApiServer(base(), text("vv"), {}, completed);
        });
        expectRequest("/base/refresh/v1", {"challenge=", "id=vv"});
        QVERIFY(probe.result());
    }

    void click()
    {
        const auto probe = answered<QVClickResponseModel>(
            R"({"code":"0104","img":"i","token":"t"})", [this](auto completed) {
                return manager().requestClickWithApiServer(base(), text("vv"), text("cc"), completed);
            });
        expectRequest("/base/click/v1", {"challenge=cc", "id=vv"});
        QVERIFY(probe.result());
        QCOMPARE(probe.result()->img() + probe.result()->token(), text("it"));
    }

    void verify()
    {
        const auto probe = answered<QVVerifyResponseModel>(
            R"({"code":"0103","drawtime":"9","score":88,"passline":"60","token":"t"})",
            [this](auto completed) {
                return manager().requestVerifyWithApiServer(base(), text("vv"), text("cc"), text("abc"),
                                                            text("1234"), completed);
            });
        expectRequest("/base/verify/v1", {"challenge=cc", "drawtime=1234", "id=vv", "v=abc"});
        const auto record = probe.result();
        QCOMPARE(QStringList({record->drawtime(), record->score(), record->passline(), record->token()}),
                 QStringList({text("1234"), text("88"), text("60"), text("t")}));
    }

    void verifyTakesNoPicture()
    {
        const auto probe = answered<QVVerifyResponseModel>(R"({"code":"0104"})", [this](auto completed) {
            return manager().requestVerifyWithApiServer(base(), text("vv"), {}, {}, {}, completed);
        });
        expectRequest("/base/verify/v1", {"challenge=", "drawtime=", "id=vv", "v="});
        QVERIFY(!probe.result());
        QCOMPARE(probe.code(), 104);
    }

    void absentVidGoesToTheDefaultBase()
    {
        answered<Picture>(R"({"code":"0103"})", [this](auto completed) {
            return manager().requestGetWithApiServer(base(), QString(), text("cc"), completed);
        });
        expectRequest("/api/app/get/v1", {"challenge=cc", "id="});
    }

    void emptyVidDoesNot()
    {
        answered<Picture>(R"({"code":"0103"})", [this](auto completed) {
            return manager().requestRefreshWithApiServer(base() + u'/', text(""), text("cc"), completed);
        });
        expectRequest("/base//refresh/v1", {"challenge=cc", "id="});
    }

    void absentBaseFails()
    {
        Probe<Picture> probe;
        probe.run([](QVCompletion<Picture> completed) {
            return manager().requestGetWithApiServer(QString(), text("vv"), text("cc"), completed);
        });
        QVERIFY(waitFor([&] { return probe.isDone(); }));
        QCOMPARE(probe.code(), -1002);
        QVERIFY(server().requests().isEmpty());
    }

    void outageGet()
    {
        const auto probe = answered<QVGetOutageResponseModel>(
            R"({"code":"0103","imgid":"7","challenge":"oc","verifyCount":1})",
            [](auto completed) { return manager().requestOutageGetcompleted(completed); });
        expectRequest("/outage", {"action=get"});
        QCOMPARE(probe.result()->imgUrlString(), settings().serviceAddresses().imageHost() + text("/7.jpg"));
        QCOMPARE(probe.result()->challenge(), text("oc"));
        QCOMPARE(probe.result()->verifyCount(), 1);
    }

    void outageVerify()
    {
        const auto probe =
            answered<QVVerifyResponseModel>(R"({"code":"0103","token":"t"})", [](auto completed) {
                return manager().requestOutageVerifyWithChallenge(text("oc"), text("abc"), text("77"),
                                                                  completed);
            });
        expectRequest("/outage", {"action=verify", "challenge=oc", "v=abc"});
        QCOMPARE(probe.result()->drawtime(), text("77"));
    }

    void outageSwitch_data()
    {
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<bool>("isForced");
        QTest::addColumn<bool>("active");
        QTest::newRow("off") << QByteArray(R"({"active":false,"key":"k"})") << false << false;
        QTest::newRow("on") << QByteArray(R"({"active":true})") << false << true;
        QTest::newRow("word") << QByteArray(R"({"active":"Yes"})") << false << true;
        QTest::newRow("refused") << QByteArray(R"({"code":"0101"})") << false << false;
        QTest::newRow("forced") << QByteArray(R"({"active":false})") << true << true;
        QTest::newRow("on and forced") << QByteArray(R"({"active":true})") << true << true;
    }

    void outageSwitch()
    {
        QFETCH(const QByteArray, body);
        QFETCH(const bool, isForced);
        QFETCH(const bool, active);
        settings().setIsOpenOutage(isForced);
        const auto probe = answeredSwitch(body);
        QCOMPARE(server().requests().first().target, QByteArray("/download/config"));
        QVERIFY(probe.result());
        QCOMPARE(probe.result()->active(), active);
    }

    void outageSwitchWithoutObject()
    {
        settings().setIsOpenOutage(true);
        const auto probe = answeredSwitch("[]");
        QVERIFY(!probe.result());
        QVERIFY(!probe.error());
    }

    void outageSwitchWithoutJson()
    {
        settings().setIsOpenOutage(true);
        const auto probe = answeredSwitch("<html>");
        QVERIFY(!probe.result());
        QCOMPARE(probe.code(), 3840);
    }

    void parameters()
    {
        const auto encode = &QVAPIRequestManager::getParametersStringFromParameterDictionary;
        const QStringList pairs =
            encode({{text("a"), text("")}, {text("b"), QString()}, {text("deviceid"), text("mine")}})
                .split(u'&');
        QCOMPARE(pairs.size(), 2);
        QVERIFY(pairs.contains(text("a=")));
        QVERIFY(!pairs.contains(text("deviceid=mine")));
        QVERIFY(encode({}).startsWith(text("deviceid=")));
        QVERIFY(encode({{text("c"), text("x y&z%")}}).contains(text("c=x y&z%")));
    }

private:
    [[nodiscard]] QString base() const { return server().address() + text("/base"); }

    template<class Record, class Start>
    Probe<Record> answered(const QByteArray &body, Start start)
    {
        server().enqueue(QVScript::answer(body));
        Probe<Record> probe;
        probe.run([&](QVCompletion<Record> completed) { return start(std::move(completed)); });
        [&] {
            QVERIFY(waitFor([&] { return probe.isDone(); }));
            QCOMPARE(probe.fault(), QString());
        }();
        return probe;
    }

    Probe<QVDownTimeResponseModel> answeredSwitch(const QByteArray &body)
    {
        return answered<QVDownTimeResponseModel>(
            body, [](auto completed) { return manager().requestOutageComplted(completed); });
    }

    // The one request so far: its path, and its pairs besides the device identifier.
    void expectRequest(const QByteArray &path, const QByteArrayList &pairs) const
    {
        QCOMPARE(server().requests().size(), 1);
        const QVReceivedRequest request = server().requests().first();
        QCOMPARE(request.path(), path);
        QByteArrayList others = request.pairs();
        const auto isDevice = [](const QByteArray &pair) {
            return pair.startsWith("deviceid=") && pair.size() > 20;
        };
        QCOMPARE(others.removeIf(isDevice), 1);
        QCOMPARE(others, pairs);
    }
};

QV_TEST(TestEndpoints)
#include "TestEndpoints.moc"
