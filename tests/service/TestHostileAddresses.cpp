#include "service/QVServiceTestCase.h"

class TestHostileAddresses : public QVServiceTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void unusable()
    {
        const QVCases<QString, QList<qint64>> cases{{QString(), {-1002}},
                                                    {q("outage.example/x"), {-1002}},
                                                    {q("file:///etc/passwd"), {-1002}},
                                                    {q("https://"), {-1000}},
                                                    {q("http://out age.example/"), {-1000, -1003, -1009}},
                                                    {q("http://[::1/"), {-1000}},
                                                    {q("http://127.0.0.1:99999/"), {-1000}},
                                                    {q("http://a\x01z/"), {-1000}}};
        for (const auto &[address, codes] : cases) {
            settings().setOutage(address);
            Probe<QVGetOutageResponseModel> probe;
            const Task task = probe.run([](QVCompletion<QVGetOutageResponseModel> completed) {
                return manager().requestOutageGetcompleted(std::move(completed));
            });
            QVERIFY(!task->isFinished());
            await(probe);
            QVERIFY2(codes.contains(probe.code()), qPrintable(address));
            QCOMPARE(time().pendingCount(), 0);
        }
    }

    void pastedText_data()
    {
        addColumns<QString, QByteArray>({"vid", "onTheWire"});
        const auto row = [](const char *name, const QString &vid, const QByteArray &onTheWire) {
            QTest::newRow(name) << vid << onTheWire;
        };
        row("broken encoding", q("%zz"), "id=%25zz");
        row("second request", q("a HTTP/1.1\r\nEvil: 1\r\n\r\nGET /"),
            "id=a%20HTTP/1.1%0D%0AEvil:%201%0D%0A%0D%0AGET%20/");
        row("another pair", q("a&b=c"), "b=c");
        row("encoded already", q("a%26b"), "id=a%26b");
        row("rest cut off", q("a#b"), "id=a");
    }

    void pastedText()
    {
        QFETCH(const QString, vid);
        QFETCH(const QByteArray, onTheWire);
        const Probe<Picture> probe = answeredWith(vid);
        QVERIFY(probe.result());
        QVERIFY2(server().requests().first().pairs().contains(onTheWire),
                 server().requests().first().target.constData());
        QVERIFY(!server().requests().first().head.contains("\nEvil"));
    }

    void oddText()
    {
        for (const QString &vid : {QString(QChar(0xd800)), QString(200000, u'x')}) {
            // Whether it can be sent is the platform's business; that it ends well is ours.
            const Probe<Picture> probe = answeredWith(vid);
            QCOMPARE(probe.result() != nullptr, !probe.error());
        }
    }

private:
    Probe<Picture> answeredWith(const QString &vid)
    {
        server().setResponder(
            [](const QVReceivedRequest &) { return QVScript::answer(R"({"code":"0103"})"); });
        Probe<Picture> probe;
        requestPicture(probe, vid);
        await(probe);
        return probe;
    }
};

QV_TEST(TestHostileAddresses)
#include "TestHostileAddresses.moc"
