#include "support/QVPixels.h"
#include "support/QVTestCase.h"
#include "views/QVOverlayLabel.h"
#include "views/QVRenderDrawOverlayView.h"

namespace {

const QColor barColor(0, 0, 100);
const QColor iconColor(0, 255, 0);

QPixmap greenIcon()
{
    QPixmap picture(20, 20);
    picture.fill(iconColor);
    return picture;
}

} // namespace

class TestRenderDrawOverlayView : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void joinsIconAndText()
    {
        const QVCases<QPixmap, QString, QString> cases{{greenIcon(), q("Hello"), q(" Hello")},
                                                       {greenIcon(), QString(), QString()},
                                                       {QPixmap(), q("Hello"), q("Hello")},
                                                       {greenIcon(), q(""), q(" ")}};
        for (const auto &[icon, text, expected] : cases) {
            QVRenderDrawOverlayView bar(barColor, Qt::white);
            bar.setOverlayImage(icon, text);
            QCOMPARE(bar.overlayLabel()->text(), expected);
            QCOMPARE(bar.overlayLabel()->text().isNull(), expected.isNull());
            QCOMPARE(bar.overlayLabel()->image().isNull(), icon.isNull());
        }
    }

    void lineIsCentred()
    {
        QVRenderDrawOverlayView bar(barColor, Qt::white);
        bar.resize(400, 30);
        bar.setOverlayImage(greenIcon(), q("Hello"));
        const QImage shot = pixelsOf(bar);
        const QRect seen = differingFrom(shot, barColor);
        QVERIFY2(qAbs(seen.left() + seen.right() - 399) <= 4, "as much free on the left as on the right");
        QCOMPARE(shot.pixelColor(seen.left(), 15), iconColor);
        QCOMPARE(shot.pixelColor(seen.left() + 19, 15), iconColor);
    }
};

QV_TEST(TestRenderDrawOverlayView)
#include "TestRenderDrawOverlayView.moc"
