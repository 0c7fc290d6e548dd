#include "image/QVImageDecoder.h"
#include "image/QVTestPictures.h"
#include "support/QVTestCase.h"

#include <QImageReader>

class TestImageDecoder : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void pictures()
    {
        for (const char *format : {"png", "jpeg"}) {
            const QImage image = qv_decodedImage(qv_testPicture({400, 230}, QColor(10, 200, 30), format));
            QCOMPARE(image.size(), QSize(400, 230));
            QCOMPARE(image.hasAlphaChannel(), qstrcmp(format, "png") == 0);
            const QColor seen = image.pixelColor(200, 100);
            // JPEG keeps colours only nearly.
            QVERIFY(qAbs(seen.red() - 10) < 4 && qAbs(seen.green() - 200) < 4 && qAbs(seen.blue() - 30) < 4);
        }
    }

    void noPictures()
    {
        const QByteArray magic = qv_testPicture({64, 64}, Qt::blue, "png").left(8);
        const QByteArray drawing = "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>";
        for (const QByteArray &bytes :
             {QByteArray(), QByteArray("<html></html>"), drawing, magic,
              qv_testPicture({8, 8}, Qt::blue, "bmp"), magic + QByteArray(5000, 'Z')})
            QVERIFY2(qv_decodedImage(bytes).isNull(), bytes.left(20).constData());
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
