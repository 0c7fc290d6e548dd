#include "image/QVImageDecoder.h"
#include "image/QVImageLoad.h"
#include "image/QVImageLoader.h"
#include "image/QVImageResources.h"
#include "image/QVTestPictures.h"
#include "support/QVCompletionProbe.h"
#include "support/QVMemory.h"
#include "support/QVScriptedServer.h"
#include "support/QVTestCase.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QImageReader>
#include <QScopeGuard>
#include <QSemaphore>
#include <QThreadPool>

#include <ctime>
#include <malloc.h>
#include <sys/resource.h>

using namespace std::chrono_literals;

namespace {

using Probe = QVCompletionProbe<QVPicture>;

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool isMemoryTold = false;
#else
constexpr bool isMemoryTold = true;
#endif

QByteArray fileNamed(const QString &name)
{
    QFile file(q(QUARVO_TEST_PICTURES) + name);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no such picture: %s", qPrintable(name));
    return name.endsWith(q(".z")) ? qUncompress(file.readAll()) : file.readAll();
}

QVScript picture()
{
    return QVScript::answer(qv_testPicture({40, 23}, Qt::green, "png"));
}

} // namespace

class TestImageLoader : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        for (const char *format : {"png", "jpeg", "gif", "webp"})
            QVERIFY2(qv_decoderReads(format), format);
        // Decoders log messages about broken files. They must not fail the test.
        static const QtMessageHandler usual = qInstallMessageHandler(nullptr);
        qInstallMessageHandler([](QtMsgType type, const QMessageLogContext &context, const QString &message) {
            if (!QByteArrayView(context.category).startsWith("qt.gui.imageio") &&
                !message.startsWith(q("libpng")))
                usual(type, context, message);
        });
    }

    // The first function, since memory that others have freed would be used again.
    void noPictures()
    {
        const QByteArray magic = fileNamed(q("small.png")).left(8);
        const QByteArray drawing = "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>";
        for (const QByteArray &bytes :
             {QByteArray(), QByteArray("<html></html>"), drawing, magic,
              qv_testPicture({8, 8}, Qt::blue, "bmp"), magic + QByteArray(5000, 'Z')})
            QVERIFY2(qv_decodedImage(bytes).isNull(), bytes.left(20).constData());
        // Files that end too early.
        for (const char *name : {"small.png", "small.jpg", "small.gif", "small.webp"}) {
            const QByteArray file = fileNamed(q(name));
            for (qsizetype length = file.size() - 13; length > 0; length -= 9)
                QVERIFY2(qv_decodedImage(file.left(length)).isNull(), qPrintable(QString::number(length)));
        }
        if (!isMemoryTold)
            return;
        // Pictures for which there is no memory.
        const QList<QByteArray> files{fileNamed(q("limit.png.z")), fileNamed(q("limit.jpg.z")),
                                      fileNamed(q("limit.gif")), fileNamed(q("limit.webp.z")),
                                      fileNamed(q("small.jpg")) + QByteArray(8 << 20, 'x')};
        ::malloc_trim(0);
        rlimit usual{};
        ::getrlimit(RLIMIT_AS, &usual);
        const rlimit little{rlim_t(qv_memory("VmSize")) + (2 << 20), usual.rlim_max};
        ::setrlimit(RLIMIT_AS, &little);
        const auto restore = qScopeGuard([&usual] { ::setrlimit(RLIMIT_AS, &usual); });
        for (const QByteArray &file : files)
            QVERIFY2(qv_decodedImage(file).isNull(), qPrintable(QString::number(file.size())));
    }

    void files_data()
    {
        // A file of the folder, the size of its picture and the colour in the middle.
        const auto rowOf = addColumns<QSize, QColor>({"size", "colour"});
        const auto usual = [&rowOf](const char *name, const QColor &colour) {
            rowOf(name, QSize(400, 230), colour);
        };
        const auto refused = [&rowOf](const char *name) {
            rowOf(name, QSize(), QColor());
        };
        const QSize limit(2048, 2048);
        const QSize small(16, 16);
        const QColor green(10, 200, 30);
        const QColor glass(10, 200, 30, 51);
        usual("plain.png", green);
        usual("glass.png", glass);
        usual("palette.png", glass);
        usual("16-bits.png", green);
        usual("plain.jpg", green);
        usual("grey.jpg", Qt::gray);
        usual("many-scans.jpg", Qt::red);
        usual("on-its-side.jpg", green);
        usual("9-frames.gif", QColor(64, 64, 64));
        usual("transparent.gif", Qt::transparent);
        usual("plain.webp", green);
        usual("glass.webp", glass);
        rowOf("lossless.webp", QSize(385, 257), QColor(8, 51, 24));
        usual("palette.webp", glass);
        usual("2-frames.webp", green);
        rowOf("limit.png.z", limit, QColor(Qt::transparent));
        rowOf("texts.png.z", small, QColor(Qt::transparent));
        for (const char *name : {"above.png.z", "wide.png", "tall.png", "surplus.png.z"})
            refused(name);
        rowOf("limit.jpg.z", limit, QColor(Qt::red));
        rowOf("comment.jpg.z", small, QColor(Qt::red));
        for (const char *name : {"above.jpg.z", "claim.jpg", "65-scans.jpg", "6000-scans.jpg.z"})
            refused(name);
        rowOf("limit.gif", limit, QColor(64, 64, 64));
        rowOf("frames.gif.z", limit, QColor(64, 64, 64));
        for (const char *name : {"above.gif", "above-in-a-frame.gif", "codes.gif.z"})
            refused(name);
        rowOf("limit.webp.z", limit, QColor(Qt::black));
        rowOf("frames.webp.z", limit, QColor(Qt::transparent));
        for (const char *name : {"above.webp.z", "groups.webp", "groups-of-alpha.webp"})
            refused(name);
    }

    void files()
    {
        QFETCH(const QColor, colour);
        const QByteArray file = fileNamed(q(QTest::currentDataTag()));
        m_server->enqueue(QVScript::answer(file));
        ::malloc_trim(0);
        qv_forgetPeakOfMemory();
        const qint64 before = qv_memory("VmRSS");
        const std::clock_t start = std::clock();
        Probe probe;
        load(probe, "/a");
        const QImage image = outcome(probe, colour.isValid() ? 0 : -1);
        QVERIFY(std::clock() - start < 2 * CLOCKS_PER_SEC);
        // The file has copies in the server, the sockets and the cache.
        const qint64 most = (64 << 20) + 4 * file.size();
        const qint64 peak = qv_memory("VmHWM") - before - image.sizeInBytes();
        QVERIFY2(!isMemoryTold || peak < most, qPrintable(QString::number(peak)));
        QFETCH(const QSize, size);
        QCOMPARE(image.size(), size.isValid() ? size : QSize(0, 0));
        if (image.isNull())
            return;
        QVERIFY(image.format() == QImage::Format_RGB32 ||
                image.format() == QImage::Format_ARGB32_Premultiplied);
        const QColor seen = image.pixelColor(image.width() / 2, image.height() / 2);
        // Lossy formats change colours slightly.
        for (const auto part : {&QColor::red, &QColor::green, &QColor::blue, &QColor::alpha})
            QVERIFY2(qAbs((seen.*part)() - (colour.*part)()) < 6, qPrintable(seen.name(QColor::HexArgb)));
    }

    /// The first frame of a file is what a reader of whole files makes of it.
    void allKinds()
    {
        const QDir folder(q(QUARVO_TEST_PICTURES "kinds"));
        for (const QString &name : folder.entryList(QDir::Files)) {
            QImageReader reader(folder.filePath(name));
            reader.setAutoTransform(true);
            const QImage whole = reader.read().convertToFormat(QImage::Format_ARGB32_Premultiplied);
            const QImage image = qv_decodedImage(fileNamed(q("kinds/") + name));
            QVERIFY2(image.convertToFormat(whole.format()) == whole && !whole.isNull(), qPrintable(name));
        }
    }

    void waitsForNobodysThreads()
    {
        QThreadPool &pool = *QThreadPool::globalInstance();
        QSemaphore blocker;
        const int threads = pool.maxThreadCount();
        for (int thread = 0; thread < threads; ++thread)
            pool.start([&] { blocker.tryAcquire(1, 10000); });
        QElapsedTimer timer;
        timer.start();
        QVERIFY(!qv_decodedImage(qv_testPicture({800, 460}, QColor(1, 2, 3, 4), "png")).isNull());
        QVERIFY(timer.elapsed() < 5000);
        blocker.release(threads);
        QVERIFY(pool.waitForDone(5000));
    }

    void remembersTwoInMemoryAndTheOthersOnDisk()
    {
        QVImageResources resources;
        m_server->setResponder([](const QVReceivedRequest &) { return picture(); });
        const auto loadAll = [&](const QList<const char *> &paths) {
            for (const char *path : paths) {
                Probe probe;
                load(probe, path, resources);
                QCOMPARE(outcome(probe, 0).pixelColor(5, 5), QColor(Qt::green));
            }
        };
        loadAll({"/a", "/a", "/b", "/c"});
        QVERIFY(resources.remembered(m_server->address() + q("/a")).isNull());
        QVERIFY(!resources.remembered(m_server->address() + q("/b")).isNull());
        loadAll({"/a"});
        QCOMPARE(m_server->requests().size(), 3);
        QVERIFY(waitFor([&] { return resources.children().isEmpty(); }));
        QCOMPARE(time().pendingCount(), 0);
    }

    void failures()
    {
        const QByteArray bytes = fileNamed(q("small.png"));
        const QVCases<QVScript, qint64> cases{{QVScript::answer("no picture"), -1},
                                              {QVScript::answer(bytes, 404), -1},
                                              {QVScript::answer(bytes + QByteArray(8 << 20, 'x')), -1},
                                              {QVScript().close(), -1005},
                                              // A failure is not cached: the next load sends a request again.
                                              {picture(), 0}};
        for (const auto &[script, code] : cases) {
            m_server->enqueue(script);
            Probe probe;
            load(probe, "/b.png");
            (void)outcome(probe, code);
        }
    }

    void decodingThatTakesLong()
    {
        for (const bool isTooLate : {true, false}) {
            std::optional<QVImageResources> resources(std::in_place);
            // Decoding this would take minutes.
            m_server->enqueue(QVScript::answer(fileNamed(q("codes.gif.z"))));
            Probe probe;
            load(probe, "/a.gif", *resources);
            QVERIFY(waitFor([&] { return resources->isWorking(); }));
            // A slow decoder does not block other loads.
            m_server->enqueue(picture());
            Probe other;
            load(other, "/b.png", *resources);
            (void)outcome(other, 0);
            QVERIFY(resources->isWorking() && !probe.isDone());

            const std::clock_t start = std::clock();
            if (isTooLate) {
                advance(15s);
                (void)outcome(probe, -1001);
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
    static constexpr QSize wanted{30, 20};

    void load(Probe &probe, const char *path, QVImageResources &resources) const
    {
        probe.run([&](const auto &completed) {
            QVImageLoad::start(resources, m_server->address() + QString::fromLatin1(path), wanted, completed);
        });
    }

    void load(Probe &probe, const char *path) const
    {
        probe.run([&](const auto &completed) {
            QVImageLoader::shared().load(m_server->address() + QString::fromLatin1(path), wanted, completed);
        });
    }

    /// Waits for the end of a load, which must have \a code. Returns its picture; null if it failed.
    static QImage outcome(const Probe &probe, qint64 code)
    {
        [&] {
            QVERIFY(waitFor([&] { return probe.isDone(); }));
            QCOMPARE(probe.fault(), QString());
            QCOMPARE(probe.code(), code);
            QCOMPARE(probe.result().image.isNull(), code != 0);
            // Unless the picture was remembered.
            QVERIFY(probe.result().scaled.isNull() || probe.result().scaled.size() == wanted);
        }();
        return probe.result().image;
    }

    std::unique_ptr<QVScriptedServer> m_server;
};

QV_TEST(TestImageLoader)
#include "TestImageLoader.moc"
