#include "image/PictureBombs.h"
#include "image/QVImageDecoder.h"
#include "image/QVPictureDevice.h"
#include "image/QVTestPictures.h"
#include "support/QVMemory.h"
#include "support/QVTestCase.h"

#include <QElapsedTimer>
#include <QSemaphore>
#include <QThreadPool>

#include <ctime>
#include <malloc.h>
#include <sys/resource.h>
#include <thread>

using namespace std::chrono_literals;

namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool isMemoryTold = false;
#else
constexpr bool isMemoryTold = true;
#endif

/// Limits the memory of this process to little more than it has, until it is destroyed.
class LittleMemory
{
public:
    LittleMemory()
    {
        constexpr rlim_t room = 2 << 20;
        ::getrlimit(RLIMIT_AS, &m_usual);
        const rlimit little{rlim_t(qv_memory("VmSize")) + room, m_usual.rlim_max};
        ::setrlimit(RLIMIT_AS, &little);
    }
    ~LittleMemory() { ::setrlimit(RLIMIT_AS, &m_usual); }
    Q_DISABLE_COPY(LittleMemory)

private:
    rlimit m_usual{};
};

QImage plain(QSize size, const QColor &colour)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(colour);
    return image;
}

/// A picture with varied neighbouring pixels, so that an encoder uses all its methods.
QImage colourful(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            image.setPixel(x, y, qRgb(x % 64, y % 64, x * y % 64));
    }
    return image;
}

} // namespace

class TestImageDecoder : public QVTestCase
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

    void pictures_data()
    {
        const auto row = addColumns<QByteArray, QColor>({"file", "colour"});
        const QSize size(400, 230);
        const QColor green(10, 200, 30);
        const QColor glass(10, 200, 30, 51);
        row("png", qv_testPicture(size, green, "png"), green);
        row("png with transparency", qv_testPicture(size, glass, "png"), glass);
        QImage palette(size, QImage::Format_Indexed8);
        palette.setColorTable({glass.rgba()});
        palette.fill(0);
        row("png with a palette", qv_fileOf(palette, "png"), glass);
        row("png of 16 bits", qv_fileOf(plain(size, green).convertToFormat(QImage::Format_RGBX64), "png"),
            green);
        row("jpeg", qv_testPicture(size, green, "jpeg"), green);
        row("grey jpeg", qv_fileOf(plain(size, Qt::gray).convertToFormat(QImage::Format_Grayscale8), "jpeg"),
            QColor(Qt::gray));
        row("jpeg of many scans", PictureBombs::jpeg(size, 64), QColor(Qt::red));
        row("jpeg on its side",
            PictureBombs::withSegment(
                qv_testPicture(size.transposed(), green, "jpeg"), '\xe1',
                QByteArrayLiteral("Exif\0\0MM\0\x2a\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01"
                                  "\0\x06\0\0\0\0\0\0")),
            green);
        row("first of 9 gif frames", PictureBombs::gif(size, size, 500, 9), QColor(64, 64, 64));
        constexpr qsizetype gifHead = 13 + 768;
        row("gif with transparency",
            PictureBombs::gif(size, size, 500, 1).insert(gifHead, QByteArrayLiteral("!\xf9\4\1\0\0\0\0")),
            QColor(Qt::transparent));
        row("webp", qv_testPicture(size, green, "webp"), green);
        row("webp with transparency", qv_testPicture(size, glass, "webp"), glass);
        constexpr int withoutLoss = 100;
        row("webp without loss", qv_fileOf(colourful(size), "webp", withoutLoss), QColor(8, 36, 32));
        row("webp with a palette", qv_fileOf(palette, "webp", withoutLoss), glass);
        row("first of 2 webp frames",
            PictureBombs::webPAnimation(
                size, {qv_testPicture(size, green, "webp"), qv_testPicture(size, Qt::red, "webp")}),
            green);
    }

    void pictures()
    {
        QFETCH(const QByteArray, file);
        QFETCH(const QColor, colour);
        const QImage image = qv_decodedImage(file);
        QCOMPARE(image.size(), QSize(400, 230));
        QVERIFY(image.format() == QImage::Format_RGB32 ||
                image.format() == QImage::Format_ARGB32_Premultiplied);
        const QColor seen = image.pixelColor(200, 100);
        // Lossy formats change colours slightly.
        for (const auto part : {&QColor::red, &QColor::green, &QColor::blue, &QColor::alpha})
            QVERIFY2(qAbs((seen.*part)() - (colour.*part)()) < 6, qPrintable(seen.name(QColor::HexArgb)));
    }

    void noPictures()
    {
        const QByteArray magic = qv_testPicture({64, 64}, Qt::blue, "png").left(8);
        const QByteArray drawing = "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>";
        for (const QByteArray &bytes :
             {QByteArray(), QByteArray("<html></html>"), drawing, magic,
              qv_testPicture({8, 8}, Qt::blue, "bmp"), magic + QByteArray(5000, 'Z')})
            QVERIFY2(qv_decodedImage(bytes).isNull(), bytes.left(20).constData());
        // Cut short anywhere.
        const QSize size(40, 23);
        for (const QByteArray &file :
             {qv_testPicture(size, Qt::blue, "png"), qv_testPicture(size, Qt::blue, "jpeg"),
              PictureBombs::gif(size, size, 50, 1), qv_testPicture(size, Qt::blue, "webp")}) {
            for (qsizetype length = file.size() - 13; length > 0; length -= 9)
                QVERIFY2(qv_decodedImage(file.left(length)).isNull(), qPrintable(QString::number(length)));
        }
    }

    void bounds_data()
    {
        using namespace PictureBombs;
        const auto row = addColumns<QByteArray, bool>({"file", "isPicture"});
        const QSize small(16, 16);
        const QSize above = limit + QSize(0, 1);
        row("png: limit", png(limit, 16), true);
        row("png: above", png(above, 8), false);
        row("png: wide", png({8193, 1}, 8), false);
        row("png: tall", png({1, 8193}, 8), false);
        row("png: texts", png(small, 8, packedTexts(7 << 20, 27)), true);
        row("png: pixels", png(small, 8, {}, 1 << 30), false);
        row("jpeg: limit", jpeg(limit, 64), true);
        row("jpeg: above", qv_testPicture(above, Qt::red, "jpeg"), false);
        row("jpeg: claim", qv_giantClaim(), false);
        row("jpeg: a scan more", jpeg(small, 65), false);
        row("jpeg: scans", jpeg(limit, 6000), false);
        row("jpeg: comments", withSegment(jpeg(small, 10), '\xfe', QByteArray(65000, 'x')), true);
        row("gif: limit", gif(limit, limit, 4000, 1), true);
        row("gif: above", gif(above, small, 10, 1), false);
        row("gif: above in a frame", gif(small, above, 10, 1), false);
        row("gif: codes", gif(small, small, 5 << 20, 1), false);
        row("gif: frames", gif(limit, small, 10, 100000), true);
        row("webp: limit", webP(limit, 1000), true);
        row("webp: above", webP(above, 1), false);
        row("webp: codes", webP({1024, 1024}, 65536), false);
        row("webp: transparency", webPAlpha({1024, 1024}, 65536), false);
        row("webp: frames", webPAnimation(limit, {webP(limit, 1000), webP(limit, 1000)}), true);
    }

    void bounds()
    {
        QFETCH(const QByteArray, file);
        QFETCH(const bool, isPicture);
        constexpr qint64 mostBytes = 8 << 20;
        constexpr qint64 mostMemory = 64 << 20;
        QVERIFY(file.size() <= mostBytes);
        ::malloc_trim(0);
        qv_forgetPeakOfMemory();
        const qint64 before = qv_memory("VmRSS");
        const auto start = qv_processorTime();
        const QImage image = qv_decodedImage(file);
        const auto time = qv_processorTime() - start;
        const qint64 peak = qv_memory("VmHWM") - before - image.sizeInBytes();
        QCOMPARE(!image.isNull(), isPicture);
        QVERIFY2(time < 2s, qPrintable(QString::number(time.count())));
        QVERIFY2(!isMemoryTold || peak < mostMemory, qPrintable(QString::number(peak)));
    }

    void memoryThatIsNotToBeHad()
    {
        if (!isMemoryTold)
            QSKIP("a sanitizer's own memory cannot be limited");
        const QList<QByteArray> files{PictureBombs::png(PictureBombs::limit, 16),
                                      PictureBombs::jpeg(PictureBombs::limit, 64),
                                      PictureBombs::gif(PictureBombs::limit, PictureBombs::limit, 10, 1),
                                      PictureBombs::webP(PictureBombs::limit, 1000),
                                      qv_testPicture({16, 16}, Qt::red, "jpeg") + QByteArray(8 << 20, 'x')};
        ::malloc_trim(0);
        const LittleMemory little;
        for (const QByteArray &file : files)
            QVERIFY(qv_decodedImage(file).isNull());
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

    void stopsWhenAsked()
    {
        const QSize small(16, 16);
        for (const QByteArray &file :
             {PictureBombs::png(small, 8, {}, 1 << 30), PictureBombs::gif(small, small, 5 << 20, 1),
              PictureBombs::jpeg(PictureBombs::limit, 64)}) {
            QImage image;
            QSemaphore started;
            std::jthread decoder([&](const std::stop_token &stop) {
                started.release();
                image = qv_decodedImage(file, stop);
            });
            started.acquire();
            const std::clock_t start = std::clock();
            decoder.request_stop();
            decoder.join();
            QVERIFY(std::clock() - start < CLOCKS_PER_SEC / 2);
            QVERIFY(image.isNull());
        }
    }
};

QV_TEST(TestImageDecoder)
#include "TestImageDecoder.moc"
