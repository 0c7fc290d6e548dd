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

QVScript picture()
{
    return QVScript::answer(qv_testPicture({40, 23}, Qt::green, "png"));
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
            expectPicture(probe);
        }
        QVERIFY(resources.remembered(address("/a")).isNull());
        QVERIFY(!resources.remembered(address("/b")).isNull() &&
                !resources.remembered(address("/c")).isNull());
        Probe probe;
        load(probe, "/a", resources);
        expectPicture(probe);
        QCOMPARE(m_server->requests().size(), 3);
        QVERIFY(waitFor([&] { return resources.children().isEmpty(); }));
        QCOMPARE(time().pendingCount(), 0);
    }

    void failures()
    {
        const QByteArray bytes = qv_testPicture({40, 23}, Qt::green, "png");
        const QVCases<QVScript, qint64> cases{{QVScript::answer("no picture"), -1},
                                              {QVScript::answer(bytes, 404), -1},
                                              {QVScript::answer(bytes + QByteArray(8 << 20, 'x')), -1},
                                              {QVScript().close(), -1005}};
        for (const auto &[script, code] : cases) {
            m_server->setResponder([answer = script](const QVReceivedRequest &) { return answer; });
            Probe probe;
            load(probe, "/a.png");
            expectFailure(probe, code);
        }
        // A failure is not cached: the next load sends a request again.
        m_server->enqueue(picture());
        Probe probe;
        load(probe, "/a.png");
        expectPicture(probe);
    }

    void decodingThatTakesLong()
    {
        // Decoding this would take minutes.
        const QByteArray bomb = PictureBombs::gif({16, 16}, {16, 16}, 5 << 20, 1);
        for (const bool isTooLate : {true, false}) {
            std::optional<QVImageResources> resources(std::in_place);
            m_server->enqueue(QVScript::answer(bomb));
            Probe probe;
            load(probe, "/a.gif", *resources);
            QVERIFY(waitFor([&] { return resources->isWorking(); }));
            // A slow decoder does not block other loads.
            m_server->enqueue(picture());
            Probe other;
            load(other, "/b.png", *resources);
            expectPicture(other);
            QVERIFY(resources->isWorking() && !probe.isDone());

            const std::clock_t start = std::clock();
            if (isTooLate) {
                advance(15s);
                expectFailure(probe, -1001);
                QVERIFY(waitFor([&] { return !resources->isWorking(); }));
            } else {
                resources.reset();
            }
            // The decoder was stopped long before the limit of a second.
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

    void expectPicture(const Probe &probe) const
    {
        QVERIFY(waitFor([&] { return probe.isDone(); }));
        QCOMPARE(probe.fault(), QString());
        QCOMPARE(probe.code(), 0);
        QVERIFY(!probe.result().isNull());
        QCOMPARE(probe.result().pixelColor(5, 5), QColor(Qt::green));
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
