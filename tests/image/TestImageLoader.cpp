#include "image/PictureBombs.h"
#include "image/QVImageLoad.h"
#include "image/QVImageLoader.h"
#include "image/QVImageResources.h"
#include "image/QVTestPictures.h"
#include "support/QVCompletionProbe.h"
#include "support/QVScriptedServer.h"
#include "support/QVTestCase.h"

#include <ctime>

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

    void remembersTwoInMemoryAndTheOthersOnDisk()
    {
        QVImageResources resources;
        m_server->setResponder([](const QVReceivedRequest &) { return picture(); });
        for (const char *path : {"/a", "/a", "/b", "/c"}) {
            Probe probe;
            load(probe, path, resources);
            expectPicture(probe, Qt::green);
        }
        QVERIFY(resources.remembered(address("/a")).isNull());
        QVERIFY(!resources.remembered(address("/b")).isNull() &&
                !resources.remembered(address("/c")).isNull());
        Probe probe;
        load(probe, "/a", resources);
        expectPicture(probe, Qt::green);
        QCOMPARE(m_server->requests().size(), 3);
        QVERIFY(waitFor([&] { return resources.children().isEmpty(); }));
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

    void decodingThatTakesLong()
    {
        // Minutes, if nobody stopped it.
        const QByteArray bomb = PictureBombs::gif({16, 16}, {16, 16}, 5 << 20, 1);
        for (const bool isTooLate : {true, false}) {
            std::optional<QVImageResources> resources(std::in_place);
            m_server->enqueue(QVScript::answer(bomb));
            Probe probe;
            load(probe, "/a.gif", *resources);
            QVERIFY(waitFor([&] { return resources->isWorking(); }));
            // One that takes long keeps no other waiting.
            m_server->enqueue(picture());
            Probe other;
            load(other, "/b.png", *resources);
            expectPicture(other, Qt::green);
            QVERIFY(resources->isWorking() && !probe.isDone());

            const std::clock_t start = std::clock();
            if (isTooLate) {
                advance(15s);
                expectFailure(probe, -1001);
                QVERIFY(waitFor([&] { return !resources->isWorking(); }));
            } else {
                resources.reset();
            }
            // Of the second that decoding may take, it had taken what the other picture took.
            QVERIFY(std::clock() - start < CLOCKS_PER_SEC / 2);
            QCOMPARE(time().pendingCount(), 0);
        }
    }

protected:
    void prepare() override { m_server = std::make_unique<QVScriptedServer>(); }
    void finish() override { m_server.reset(); }

private:
    [[nodiscard]] QString address(const char *path) const
    {
        return m_server->address() + QString::fromLatin1(path);
    }

    void load(Probe &probe, const char *path, QVImageResources &resources) const
    {
        probe.run([&](const auto &completed) { QVImageLoad::start(resources, address(path), completed); });
    }

    void load(Probe &probe, const char *path) const
    {
        probe.run([&](const auto &completed) { QVImageLoader::shared().load(address(path), completed); });
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
