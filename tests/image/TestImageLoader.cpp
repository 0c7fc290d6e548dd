#include "image/PictureBombs.h"
#include "image/QVImageLoad.h"
#include "image/QVImageLoader.h"
#include "image/QVImageResources.h"
#include "image/QVTestPictures.h"
#include "net/QVDataTask.h"
#include "support/QVCompletionProbe.h"
#include "support/QVScriptedServer.h"
#include "support/QVTestCase.h"

#include <QElapsedTimer>

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
        expectFailure(probe, code);
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
        expectFailure(probe, -1001);
    }

    void cancelledDownload()
    {
        m_server->enqueue(QVScript());
        Probe probe;
        const auto task = load(probe, "/a.png");
        QVERIFY(waitFor([&] { return m_server->requests().size() == 1; }));
        task->cancel();
        task->cancel();
        expectFailure(probe, -999);
    }

    void decodingThatTakesLong_data()
    {
        const auto row = addColumns<QString, qint64>({"end", "code"});
        row("cancelled", q("cancel"), qint64(-999));
        row("too late", q("wait"), qint64(-1001));
        row("application ends", q("destroy"), qint64(0));
    }

    void decodingThatTakesLong()
    {
        QFETCH(const QString, end);
        QFETCH(const qint64, code);
        const QByteArray bomb = PictureBombs::gif({16, 16}, {16, 16}, 5 << 20, 1);
        std::optional<QVImageResources> resources(std::in_place);
        m_server->enqueue(QVScript::answer(bomb));
        Probe probe;
        QVImageLoad *const started = load(probe, "/a.gif", *resources);
        QVERIFY(waitFor([&] { return resources->isWorking(); }));
        // One that takes long keeps no other waiting.
        m_server->enqueue(picture());
        Probe other;
        load(other, "/b.png", *resources);
        expectPicture(other, Qt::green);
        QVERIFY(resources->isWorking() && !probe.isDone());

        QElapsedTimer timer;
        timer.start();
        if (end == q("cancel"))
            started->cancel();
        else if (end == q("wait"))
            advance(15s);
        else
            resources.reset();
        QVERIFY(timer.elapsed() < 300);
        if (code != 0)
            expectFailure(probe, code);
        QVERIFY(!resources || waitFor([&] { return !resources->isWorking(); }));
        QVERIFY(timer.elapsed() < 700);
        QCOMPARE(time().pendingCount(), 0);
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

    void expectFailure(const Probe &probe, qint64 code) const
    {
        QVERIFY(waitFor([&] { return probe.isDone(); }));
        QCOMPARE(probe.fault(), QString());
        QVERIFY(probe.result().isNull());
        QCOMPARE(probe.code(), code);
    }

    std::unique_ptr<QVScriptedServer> m_server;
};

QV_TEST(TestImageLoader)
#include "TestImageLoader.moc"
