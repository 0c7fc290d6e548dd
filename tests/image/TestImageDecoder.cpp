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
        const auto row = addColumns<QByteArray, QImage::Format>({"bytes", "format"});
        row("png", qv_testPicture({400, 230}, QColor(10, 200, 30), "png"),
            QImage::Format_ARGB32_Premultiplied);
        row("jpeg", qv_testPicture({400, 230}, QColor(10, 200, 30), "jpeg"), QImage::Format_RGB32);
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
        const auto row = addColumns<QByteArray>({"bytes"});
        const QByteArray png = qv_testPicture({64, 64}, Qt::blue, "png");
        row("text", QByteArray("<html></html>"));
        row("drawing", QByteArray("<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>"));
        row("bitmap", qv_testPicture({8, 8}, Qt::blue, "bmp"));
        row("magic alone", png.left(8));
        row("noise after the magic", png.left(8) + QByteArray(5000, '\x5a'));
    }

    void noPictures()
    {
        QFETCH(const QByteArray, bytes);
        QVERIFY(qv_decodedImage(bytes).isNull());
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
