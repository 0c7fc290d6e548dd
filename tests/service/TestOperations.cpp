#include "service/QVServiceTestCase.h"

using namespace std::chrono_literals;

namespace {

using Operation = std::function<void(QVCompletionProbe<bool> &)>;

// Wraps an operation of any record type, so that one kind of probe can watch it.
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

/// The request of each operation, and how long it waits for an answer.
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
        // The answer arrives byte by byte, which must not extend the deadline.
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
        QCOMPARE(probe.error()->domain(), q("Timed out. Try again."));
        QVERIFY(waitFor([&] { return server().closedCount() == 1; }));
    }

    void judgesByTheKindOfAnswer()
    {
        const QVCases<const char *, bool, bool> cases{
            {"0103", true, true}, {"0104", true, false}, {"104", false, false}};
        for (const auto &[code, isClick, isVerify] : cases) {
            const QByteArray body = QByteArray(R"({"drawtime":"7","code":"%1"})").replace("%1", code);
            server().setResponder([body](const QVReceivedRequest &) { return QVScript::answer(body); });
            const QString base = server().address();
            Probe<QVClickResponseModel> click;
            click.run([&](auto completed) {
                return manager().requestClickWithApiServer(base, q("v"), {}, completed);
            });
            Probe<QVVerifyResponseModel> verify;
            verify.run([&](auto completed) {
                return manager().requestVerifyWithApiServer(base, q("v"), {}, {}, q("9"), completed);
            });
            Probe<QVVerifyResponseModel> outage;
            outage.run([](auto completed) {
                return manager().requestOutageVerifyWithChallenge({}, {}, q("9"), completed);
            });
            await(click);
            await(verify);
            await(outage);
            QCOMPARE(click.result() != nullptr, isClick);
            // The drawing time in the record is the caller's.
            for (const auto &verdict : {verify.result(), outage.result()})
                QCOMPARE(verdict ? verdict->drawtime() : QString(), isVerify ? q("9") : QString());
        }
    }

    void absentParametersAreLeftOut()
    {
        const QString pairs = QVAPIRequestManager::getParametersStringFromParameterDictionary(
            {{q("a"), q("")}, {q("b"), QString()}, {q("deviceid"), q("mine")}}, q("ours"));
        QCOMPARE(pairs, q("a=&deviceid=ours"));
    }
};

QV_TEST(TestOperations)
#include "TestOperations.moc"
