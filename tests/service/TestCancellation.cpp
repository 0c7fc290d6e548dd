#include "service/QVServiceTestCase.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>

class TestCancellation : public QVServiceTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void atOnce()
    {
        Probe<Picture> probe;
        const Task task = probe.run([&](QVCompletion<Picture> completed) {
            Task started = requestPictureFor(std::move(completed));
            started->cancel();
            started->cancel();
            return started;
        });
        expectCancelled(probe);
        QVERIFY(task->isFinished());
    }

    void underWay()
    {
        server().enqueue(QVScript().send("HTTP/1.1 200 OK\r\nContent-Length: 50\r\n\r\n{"));
        Probe<Picture> probe;
        const Task task = requestPicture(probe);
        QVERIFY(waitFor([&] { return server().requests().size() == 1; }));
        task->cancel();
        QVERIFY(!probe.isDone());
        expectCancelled(probe);
        QVERIFY(waitFor([&] { return server().closedCount() == 1; }));
    }

    void byTheHostsWayToTheNetwork()
    {
        QNetworkAccessManager network;
        settings().setNetworkAccessManager(&network);
        server().enqueue(QVScript());
        Probe<Picture> probe;
        requestPicture(probe);
        QVERIFY(waitFor([&] { return server().requests().size() == 1; }));
        // As its own time-out does.
        network.findChild<QNetworkReply *>()->abort();
        await(probe);
        QCOMPARE(probe.code(), -1001);
    }

    void theHostsWayGoesDuringTheCompletion()
    {
        auto network = std::make_unique<QNetworkAccessManager>();
        settings().setNetworkAccessManager(network.get());
        int completions = 0;
        const Task task = requestPictureFor([&](const auto &, const auto &) {
            ++completions;
            network.reset();
            QCoreApplication::processEvents();
        });
        task->cancel();
        QVERIFY(waitFor([&] { return task->isFinished(); }));
        QCOMPARE(completions, 1);
    }

    void absentCompletionIsSkipped()
    {
        server().setResponder(
            [](const QVReceivedRequest &) { return QVScript::answer(R"({"code":"0103"})"); });
        const QList<Task> tasks{requestPictureFor(nullptr), manager().requestOutageComplted(nullptr),
                                manager().requestGetWithApiServer(QString(), q("v"), QString(), nullptr)};
        QVERIFY(waitFor(
            [&] { return std::ranges::all_of(tasks, [](const Task &task) { return task->isFinished(); }); }));
    }

private:
    [[nodiscard]] Task requestPictureFor(QVCompletion<Picture> completed) const
    {
        return manager().requestGetWithApiServer(server().address(), q("v"), q("c"), std::move(completed));
    }

    void expectCancelled(const Probe<Picture> &probe) const
    {
        await(probe);
        QVERIFY(!probe.result());
        QCOMPARE(probe.code(), -999);
        QVERIFY(!QVErrorClassification::isQVCustomError(*probe.error()));
        QCOMPARE(time().pendingCount(), 0);
    }
};

QV_TEST(TestCancellation)
#include "TestCancellation.moc"
