#include "image/QVImageDecoder.h"
#include "image/QVTestPictures.h"
#include "support/QVTestCase.h"

#include <QImageReader>

class TestImageDecoder : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void pictures_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QImage::Format>("format");
        QTest::newRow("png") << qv_testPicture({400, 230}, QColor(10, 200, 30), "png")
                             << QImage::Format_ARGB32_Premultiplied;
        QTest::newRow("jpeg") << qv_testPicture({400, 230}, QColor(10, 200, 30), "jpeg")
                              << QImage::Format_RGB32;
    }

    void pictures()
    {
        QFETCH(const QByteArray, bytes);
        QFETCH(const QImage::Format, format);
        const QImage image = qv_decodedImage(bytes);
        QCOMPARE(image.size(), QSize(400, 230));
        QCOMPARE(image.format(), format);
        const QColor seen = image.pixelColor(200, 100);
        // JPEG keeps colours only nearly.
        QVERIFY(qAbs(seen.red() - 10) < 4 && qAbs(seen.green() - 200) < 4 && qAbs(seen.blue() - 30) < 4);
    }

    void noPictures_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const QByteArray png = qv_testPicture({64, 64}, Qt::blue, "png");
        QTest::newRow("nothing") << QByteArray();
        QTest::newRow("text") << QByteArray("<html></html>");
        QTest::newRow("drawing") << QByteArray(
            "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>");
        QTest::newRow("bitmap") << qv_testPicture({8, 8}, Qt::blue, "bmp");
        QTest::newRow("magic alone") << png.left(8);
        QTest::newRow("head alone") << png.left(40);
        QTest::newRow("noise after the magic") << png.left(8) + QByteArray(5000, '\x5a');
        QTest::newRow("gif head alone") << QByteArray("GIF89a\xff\xff\xff\xff");
        QTest::newRow("webp head alone") << QByteArray("RIFF\xff\xff\xff\xffWEBPVP8 ");
    }

    void noPictures()
    {
        QFETCH(const QByteArray, bytes);
        QVERIFY(qv_decodedImage(bytes).isNull());
    }

    void cutShortJpeg()
    {
        QTest::ignoreMessage(QtWarningMsg, "JPEG datastream contains no image");
        QVERIFY(qv_decodedImage(qv_testPicture({64, 64}, Qt::blue, "jpeg").left(20)).isNull());
    }

    void giantIsNotEvenAllocated()
    {
        const QByteArray bytes = qv_giantClaim();
        QBuffer buffer;
        buffer.setData(bytes);
        QCOMPARE(QImageReader(&buffer).size(), QSize(50000, 50000));
        // Qt's own limit would warn, and a warning fails the test.
        QVERIFY(qv_decodedImage(bytes).isNull());
    }
};

QV_TEST(TestImageDecoder)
#include "TestImageDecoder.moc"
