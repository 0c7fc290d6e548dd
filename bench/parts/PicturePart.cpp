#include "image/QVImageDecoder.h"
#include "parts/PartTools.h"
#include "views/QVRenderDrawImageView.h"

#include <QApplication>
#include <QBuffer>
#include <QPainter>
#include <QRandomGenerator>

namespace {

QByteArray jpegOf(int width)
{
    QImage image(width, width * 23 / 40, QImage::Format_RGB32);
    QRandomGenerator random(1);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            image.setPixelColor(x, y, QColor::fromHsv((x + y) % 360, 90, 150 + int(random.bounded(60u))));
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "JPG", 80);
    return bytes;
}

class BarePicture : public QWidget
{
public:
    using QWidget::QWidget;

    void setImage(const QImage &image)
    {
        m_image = image;
        update();
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        if (!m_image.isNull())
            QPainter(this).drawImage(rect(), m_image);
    }

private:
    QImage m_image;
};

template<class Widget>
double costOfPainting(Widget &widget, const QImage &image)
{
    widget.setImage({});
    QCoreApplication::sendPostedEvents(widget.window(), QEvent::UpdateRequest);
    const double start = benchNow();
    widget.setImage(image);
    QCoreApplication::sendPostedEvents(widget.window(), QEvent::UpdateRequest);
    return (benchNow() - start) / nanosecondsPerMillisecond;
}

} // namespace

void runPicturePart(const PartOptions &options)
{
    constexpr QSize size(400, 230);
    QWidget window;
    window.resize(size.width(), 2 * size.height());
    QVRenderDrawImageView ours(&window);
    ours.resize(size);
    BarePicture bare(&window);
    bare.setGeometry(QRect(QPoint(0, size.height()), size));
    window.show();
    turnFor(100);
    const double ratio = qApp->devicePixelRatio();
    for (const int width : {400, 800, 1600}) {
        const QByteArray bytes = jpegOf(width);
        const QImage image = qv_decodedImage(bytes);
        if (ratio == 1) {
            const BenchPair decoding = benchInTurn(
                options.rounds(9, 1), [&] { return benchCostPerCall([&] { (void)qv_decodedImage(bytes); }); },
                [&] { return benchCostPerCall([&] { (void)QImage::fromData(bytes); }); });
            tellRow({QStringLiteral("decoding a picture %1 wide, beside QImage").arg(width),
                     QStringLiteral("ms"), decoding.ours / nanosecondsPerMillisecond,
                     decoding.limit / nanosecondsPerMillisecond});
        }
        const BenchPair painting = benchInTurn(
            options.rounds(15, 1), [&] { return costOfPainting(ours, image); },
            [&] { return costOfPainting(bare, image); });
        tellRow({QStringLiteral("first paint of a picture %1 wide at %2x, beside an unsmoothed one")
                     .arg(width)
                     .arg(ratio),
                 QStringLiteral("ms"), painting.ours, painting.limit});
    }
}
