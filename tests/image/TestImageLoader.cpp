#include "image/QVImageLoad.h"
#include "image/QVImageLoader.h"
#include "image/QVImageResources.h"
#include "image/QVTestPictures.h"
#include "net/QVDataTask.h"
#include "support/QVCompletionProbe.h"
#include "support/QVScriptedServer.h"
#include "support/QVTestCase.h"

#include <QSemaphore>

using namespace std::chrono_literals;

namespace {

using Probe = QVCompletionProbe<QImage>;

constexpr qsizetype pictureLimit = 8 << 20;

QVScript picture(QSize size = {40, 23}, const QColor &colour = Qt::green)
{
    return QVScript::answer(qv_testPicture(size, colour, "png"));
}

} // namespace

class TestImageLoader : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:

    void remembersInMemoryAndOnDisk()
    {
        m_server->enqueue(picture());
        m_server->enqueue(picture({2048, 2048}, Qt::red));
        // The large one leaves the first no room in memory.
        for (const char *path : {"/a.png", "/a.png", "/large.png", "/a.png"}) {
            Probe probe;
            const auto task = load(probe, path);
            QVERIFY(!task->isFinished());
            expectPicture(probe, qstrcmp(path, "/a.png") == 0 ? Qt::green : Qt::red);
            QVERIFY(task->isFinished());
        }
        QCOMPARE(m_server->requests().size(), 2);
        QCOMPARE(time().pendingCount(), 0);
    }

    void failures_data()
    {
        const auto row = addColumns<QVScript, qint64>({"script", "code"});
        const QByteArray bytes = qv_testPicture({40, 23}, Qt::green, "png");
        row("text", QVScript::answer("no picture"), qint64(-1));
        row("giant", QVScript::answer(qv_giantClaim()), qint64(-1));
        row("picture of an error", QVScript::answer(bytes, 404), qint64(-1));
        row("too many bytes", QVScript::answer(bytes + QByteArray(pictureLimit, 'x')), qint64(-1));
        row("closed", QVScript().close(), qint64(-1005));
    }

    void failures()
    {
        QFETCH(const QVScript, script);
        QFETCH(const qint64, code);
        m_server->setResponder([&](const QVReceivedRequest &) { return script; });
        Probe probe;
        load(probe, "/a.png");
        QVERIFY(waitFor([&] { return probe.isDone(); }));
        QCOMPARE(probe.fault(), QString());
        QVERIFY(probe.result().isNull());
        QCOMPARE(probe.code(), code);
        // A failure is not remembered: the next try asks anew.
        m_server->enqueue(picture());
        Probe second;
        load(second, "/a.png");
        expectPicture(second, Qt::green);
    }

    void deadline()
    {
        m_server->enqueue(QVScript());
        Probe probe;
        load(probe, "/a.png");
        QVERIFY(waitFor([&] { return m_server->requests().size() == 1; }));
        advance(15s - 1ms);
        QVERIFY(!probe.isDone());
        advance(1ms);
        QVERIFY(waitFor([&] { return probe.isDone(); }));
        QCOMPARE(probe.code(), -1001);
    }

    void overlappingLoadsOfOneAddress()
    {
        const QByteArray bytes = qv_testPicture({40, 23}, Qt::green, "png");
        const QByteArray length = "Content-Length: " + QByteArray::number(bytes.size() + 1) + "\r\n\r\n";
        QVImageResources resources;
        Probe stalled;
        m_server->enqueue(QVScript().send("HTTP/1.1 200 OK\r\n" + length + bytes));
        load(stalled, "/a.png", resources);
        QVERIFY(waitFor([&] { return m_server->requests().size() == 1; }));
        Probe second;
        m_server->enqueue(picture());
        load(second, "/a.png", resources);
        expectPicture(second, Qt::green);
        // The first is still writing there.
        QVERIFY(!resources.isOnDisk(address("/a.png")));
        advance(15s);
        QVERIFY(waitFor([&] { return stalled.isDone(); }));
        QCOMPARE(stalled.code(), -1001);
    }

    void cancelledDownload()
    {
        m_server->enqueue(QVScript());
        Probe probe;
        const auto task = load(probe, "/a.png");
        QVERIFY(waitFor([&] { return m_server->requests().size() == 1; }));
        task->cancel();
        task->cancel();
        expectCancelled(probe);
    }

    void cancelledDecoding()
    {
        QVImageResources resources;
        resources.decoders().setMaxThreadCount(1);
        QSemaphore blocker;
        resources.decoders().start([&] { blocker.acquire(); });
        m_server->enqueue(picture());
        Probe probe;
        QVImageLoad *const started = load(probe, "/a.png", resources);
        QVERIFY(waitFor([&] { return m_server->requests().size() == 1 && time().pendingCount() == 0; }));
        QVERIFY(!probe.isDone());
        started->cancel();
        blocker.release();
        expectCancelled(probe);
        QVERIFY(resources.decoders().waitForDone(5000));
    }

protected:
    void prepare() override { m_server = std::make_unique<QVScriptedServer>(); }
    void finish() override { m_server.reset(); }

private:
    [[nodiscard]] QString address(const char *path) const
    {
        return m_server->address() + QString::fromLatin1(path);
    }

    std::shared_ptr<QVDataTask> load(Probe &probe, const char *path) const
    {
        return probe.run(
            [&](const auto &completed) { return QVImageLoader::shared().load(address(path), completed); });
    }

    QVImageLoad *load(Probe &probe, const char *path, QVImageResources &resources) const
    {
        return probe.run(
            [&](const auto &completed) { return QVImageLoad::start(resources, address(path), completed); });
    }

    void expectPicture(const Probe &probe, const QColor &colour) const
    {
        QVERIFY(waitFor([&] { return probe.isDone(); }));
        QCOMPARE(probe.fault(), QString());
        QCOMPARE(probe.code(), 0);
        QVERIFY(!probe.result().isNull());
        QCOMPARE(probe.result().pixelColor(5, 5), colour);
    }

    void expectCancelled(const Probe &probe) const
    {
        QVERIFY(waitFor([&] { return probe.isDone(); }));
        QCOMPARE(probe.fault(), QString());
        QVERIFY(probe.result().isNull());
        QCOMPARE(probe.code(), -999);
    }

    std::unique_ptr<QVScriptedServer> m_server;
};

QV_TEST(TestImageLoader)
#include "TestImageLoader.moc"
