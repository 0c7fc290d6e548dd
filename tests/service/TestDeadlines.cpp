#include "service/QVServiceTestCase.h"

using namespace std::chrono_literals;

namespace {

using Operation = std::function<void(QVCompletionProbe<bool> &)>;

// Watches any operation through one kind of probe, which only needs to know that it completed.
template<class Record, class Start>
Operation operation(Start start)
{
    return [start](QVCompletionProbe<bool> &probe) {
        probe.run([&](std::function<void(bool, std::optional<QVError>)> completed) {
            return start([completed](std::shared_ptr<Record> record, std::optional<QVError> error) {
                completed(record != nullptr, std::move(error));
            });
        });
    };
}

} // namespace

class TestDeadlines : public QVServiceTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void silentServer_data() { operations(); }

    void silentServer()
    {
        QFETCH(const Operation, start);
        QFETCH(const std::chrono::seconds, deadline);
        QVCompletionProbe<bool> probe;
        start(probe);
        QVERIFY(waitFor([&] { return server().requests().size() == 1; }));
        advance(deadline - 1ms);
        QVERIFY(!probe.isDone());
        advance(1ms);
        expectTimeOut(probe);
    }

    void drippingServer_data() { operations(); }

    void drippingServer()
    {
        QFETCH(const Operation, start);
        QFETCH(const std::chrono::seconds, deadline);
        QVScript script;
        script.send("HTTP/1.1 200 OK\r\n\r\n");
        for (auto second = 0s; second < 2 * deadline; second += 1s)
            script.wait(1s).send(" ");
        server().enqueue(script);
        QVCompletionProbe<bool> probe;
        start(probe);
        QVERIFY(waitFor([&] { return server().requests().size() == 1; }));
        for (auto second = 1s; second < deadline; second += 1s) {
            advance(1s);
            QVERIFY(!probe.isDone());
        }
        advance(1s);
        expectTimeOut(probe);
    }

    void serverThatDoesNotAccept()
    {
        server().pauseAccepting();
        Probe<Picture> probe;
        requestPicture(probe);
        advance(8s);
        QVERIFY(waitFor([&] { return probe.isDone(); }));
        QCOMPARE(probe.fault(), QString());
        QCOMPARE(probe.code(), -1001);
    }

private:
    void operations()
    {
        QTest::addColumn<Operation>("start");
        QTest::addColumn<std::chrono::seconds>("deadline");
        const QString text = QStringLiteral("x");
        const auto base = [this] {
            return server().address();
        };
        QTest::newRow("config") << operation<QVConfigResponseModel>([=](auto completed) {
            return manager().requestConfigWithVid(text, text, text, completed);
        }) << std::chrono::seconds(8s);
        QTest::newRow("get") << operation<Picture>([=](auto completed) {
            return manager().requestGetWithApiServer(base(), text, text, completed);
        }) << std::chrono::seconds(8s);
        QTest::newRow("refresh") << operation<Picture>([=](auto completed) {
            return manager().requestRefreshWithApiServer(base(), text, text, completed);
        }) << std::chrono::seconds(5s);
        QTest::newRow("verify") << operation<QVVerifyResponseModel>([=](auto completed) {
            return manager().requestVerifyWithApiServer(base(), text, text, text, text, completed);
        }) << std::chrono::seconds(5s);
        QTest::newRow("click") << operation<QVClickResponseModel>([=](auto completed) {
            return manager().requestClickWithApiServer(base(), text, text, completed);
        }) << std::chrono::seconds(5s);
        QTest::newRow("outage get") << operation<QVGetOutageResponseModel>([](auto completed) {
            return manager().requestOutageGetcompleted(completed);
        }) << std::chrono::seconds(5s);
        QTest::newRow("outage verify") << operation<QVVerifyResponseModel>([=](auto completed) {
            return manager().requestOutageVerifyWithChallenge(text, text, text, completed);
        }) << std::chrono::seconds(5s);
        QTest::newRow("outage switch") << operation<QVDownTimeResponseModel>([](auto completed) {
            return manager().requestOutageComplted(completed);
        }) << std::chrono::seconds(10s);
    }

    void expectTimeOut(const QVCompletionProbe<bool> &probe) const
    {
        QVERIFY(waitFor([&] { return probe.isDone(); }));
        QCOMPARE(probe.fault(), QString());
        QVERIFY(!probe.result());
        QCOMPARE(probe.code(), -1001);
        QCOMPARE(probe.error()->domain(), qv_parseError(QVError(QString(), -1001)).domain());
        QVERIFY(waitFor([&] { return server().closedCount() == 1; }));
    }
};

QV_TEST(TestDeadlines)
#include "TestDeadlines.moc"
