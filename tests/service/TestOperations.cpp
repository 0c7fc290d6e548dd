#include "service/QVServiceTestCase.h"

using namespace std::chrono_literals;

namespace {

using Operation = std::function<void(QVCompletionProbe<bool> &)>;

// Watches any operation through one kind of probe, which only needs to know that it completed.
template<class Record, class Start>
Operation operation(const Start &start)
{
    return [start](QVCompletionProbe<bool> &probe) {
        probe.run([&](const std::function<void(bool, std::optional<QVError>)> &completed) {
            return start(
                [completed](const std::shared_ptr<Record> &record, const std::optional<QVError> &error) {
                    completed(record != nullptr, error);
                });
        });
    };
}

} // namespace

/// What each operation asks, and how long it waits for an answer.
class TestOperations : public QVServiceTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void asksAndGivesUpInTime_data()
    {
        const auto row = addColumns<Operation, std::chrono::seconds, QByteArray, QByteArrayList>(
            {"start", "deadline", "path", "pairs"});
        using Pairs = QByteArrayList;
        using std::chrono::seconds;
        const QString id = q("vv");
        const QString challenge = q("cc");
        const auto base = [this] {
            return server().address() + q("/base");
        };
        row("config", operation<QVConfigResponseModel>([=](const auto &completed) {
                return manager().requestConfigWithVid(id, q("popup"), q("2"), completed);
            }),
            seconds(8), QByteArray("/api/app/config/v1"), Pairs{"id=vv", "scene=2", "type=popup"});
        row("get", operation<Picture>([=](const auto &completed) {
                return manager().requestGetWithApiServer(base(), id, challenge, completed);
            }),
            seconds(8), QByteArray("/base/get/v1"), Pairs{"challenge=cc", "id=vv"});
        row("get without id", operation<Picture>([=](const auto &completed) {
                return manager().requestGetWithApiServer(base(), QString(), challenge, completed);
            }),
            seconds(8), QByteArray("/api/app/get/v1"), Pairs{"challenge=cc", "id="});
        row("refresh", operation<Picture>([=](const auto &completed) {
                return manager().requestRefreshWithApiServer(base() + u'/', q(""), QString(), completed);
            }),
            seconds(5), QByteArray("/base//refresh/v1"), Pairs{"challenge=", "id="});
        row("verify", operation<QVVerifyResponseModel>([=](const auto &completed) {
                return manager().requestVerifyWithApiServer(base(), id, challenge, q("abc"), q("9"),
                                                            completed);
            }),
            seconds(5), QByteArray("/base/verify/v1"), Pairs{"challenge=cc", "drawtime=9", "id=vv", "v=abc"});
        row("click", operation<QVClickResponseModel>([=](const auto &completed) {
                return manager().requestClickWithApiServer(base(), id, challenge, completed);
            }),
            seconds(5), QByteArray("/base/click/v1"), Pairs{"challenge=cc", "id=vv"});
        row("outage get", operation<QVGetOutageResponseModel>([](const auto &completed) {
                return manager().requestOutageGetcompleted(completed);
            }),
            seconds(5), QByteArray("/outage"), Pairs{"action=get"});
        row("outage verify", operation<QVVerifyResponseModel>([=](const auto &completed) {
                return manager().requestOutageVerifyWithChallenge(challenge, q("abc"), q("9"), completed);
            }),
            seconds(5), QByteArray("/outage"), Pairs{"action=verify", "challenge=cc", "v=abc"});
        row("outage switch", operation<QVDownTimeResponseModel>([](const auto &completed) {
                return manager().requestOutageComplted(completed);
            }),
            seconds(10), QByteArray("/download/config"), Pairs{});
    }

    void asksAndGivesUpInTime()
    {
        QFETCH(const Operation, start);
        QFETCH(const std::chrono::seconds, deadline);
        QFETCH(const QByteArrayList, pairs);
        // It drips, which must not prolong the wait.
        QVScript script;
        script.send("HTTP/1.1 200 OK\r\n\r\n");
        for (auto second = 0s; second < 2 * deadline; second += 1s)
            script.wait(1s).send(" ");
        server().enqueue(script);
        QVCompletionProbe<bool> probe;
        start(probe);
        QVERIFY(waitFor([&] { return server().requests().size() == 1; }));
        const QVReceivedRequest &request = server().requests().constFirst();
        QTEST(request.path(), "path");
        QByteArrayList others = request.pairs();
        const auto isDevice = [](const QByteArray &pair) {
            return pair.startsWith("deviceid=") && pair.size() > 20;
        };
        QCOMPARE(others.removeIf(isDevice), pairs.isEmpty() ? 0 : 1);
        QCOMPARE(others, pairs);

        advance(deadline - 1ms);
        QVERIFY(!probe.isDone());
        advance(1ms);
        await(probe);
        QVERIFY(!probe.result());
        QCOMPARE(probe.code(), -1001);
        QCOMPARE(probe.error()->domain(),
                 QVErrorClassification::parseError(QVError(QString(), -1001)).domain());
        QVERIFY(waitFor([&] { return server().closedCount() == 1; }));
    }

    void serverThatDoesNotAccept()
    {
        server().pauseAccepting();
        Probe<Picture> probe;
        requestPicture(probe);
        advance(8s);
        await(probe);
        QCOMPARE(probe.code(), -1001);
    }

    void readsTheConfiguration()
    {
        server().enqueue(QVScript::answer(
            R"({"code":"0103","challenge":"c","api_server":"a.example","guide":"YES","cdn_servers":[null,"q"],)"
            R"("source_server":"http:other","isCharVerify":true,"type":"draw"})"));
        Probe<QVConfigResponseModel> probe;
        probe.run([](QVCompletion<QVConfigResponseModel> completed) {
            return manager().requestConfigWithVid({}, {}, {}, std::move(completed));
        });
        await(probe);
        QCOMPARE(probe.result()->api_server(), q("https://a.example"));
        QCOMPARE(probe.result()->source_server(), settings().serviceAddresses().cdn());
        QVERIFY(probe.result()->guide() && !probe.result()->isCharVerify());
    }

    void outageSwitch_data()
    {
        const auto row = addColumns<QByteArray, bool, bool, bool>({"body", "isForced", "active", "isThere"});
        row("on", QByteArray(R"({"active":true})"), false, true, true);
        row("refused", QByteArray(R"({"code":"0101"})"), false, false, true);
        row("forced", QByteArray(R"({"active":false})"), true, true, true);
        row("no object", QByteArray("[]"), true, false, false);
        row("no JSON", QByteArray("<html>"), true, false, false);
    }

    void outageSwitch()
    {
        QFETCH(const QByteArray, body);
        QFETCH(const bool, isForced);
        QFETCH(const bool, active);
        server().enqueue(QVScript::answer(body));
        Probe<QVDownTimeResponseModel> probe;
        probe.run([](QVCompletion<QVDownTimeResponseModel> completed) {
            return manager().requestOutageComplted(std::move(completed));
        });
        // What holds is the setting at the time of the answer.
        settings().setIsOpenOutage(isForced);
        await(probe);
        QTEST(probe.result() != nullptr, "isThere");
        QVERIFY(!probe.result() || probe.result()->active() == active);
        QCOMPARE(probe.code(), body.startsWith('<') ? 3840 : 0);
    }

    void parameters()
    {
        const auto encode = &QVAPIRequestManager::getParametersStringFromParameterDictionary;
        const QString pairs = encode({{q("a"), q("")}, {q("b"), QString()}, {q("deviceid"), q("mine")}});
        QCOMPARE(pairs.count(u'&'), 1);
        QVERIFY(pairs.split(u'&').contains(q("a=")));
        QVERIFY(!pairs.contains(q("mine")));
        QVERIFY(encode({{q("c"), q("x y&z%")}}).contains(q("c=x y&z%")));
    }
};

QV_TEST(TestOperations)
#include "TestOperations.moc"
