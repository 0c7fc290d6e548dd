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

QRect iconRect(const QImage &shot)
{
    QRect result;
    for (int y = 0; y < shot.height(); ++y) {
        for (int x = 0; x < shot.width(); ++x) {
            if (shot.pixelColor(x, y) == iconColor)
                result |= QRect(x, y, 1, 1);
        }
    }
    return result;
}

} // namespace

class TestRenderDrawOverlayView : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void joinsIconAndText_data()
    {
        const auto row = addColumns<bool, QString, QString>({"hasIcon", "text", "expected"});
        row("both", true, "Hello", " Hello");
        row("icon alone", true, QString(), QString());
        row("text alone", false, "Hello", "Hello");
        row("empty text", true, "", " ");
    }

    void joinsIconAndText()
    {
        QFETCH(bool, hasIcon);
        QFETCH(QString, text);
        QFETCH(QString, expected);
        QVRenderDrawOverlayView bar(barColor, Qt::white);
        bar.setOverlayImage(hasIcon ? greenIcon() : QPixmap(), text);
        QCOMPARE(bar.overlayLabel()->text(), expected);
        QCOMPARE(bar.overlayLabel()->text().isNull(), expected.isNull());
        QCOMPARE(bar.overlayLabel()->image().isNull(), !hasIcon);
    }

    void lineIsCentred()
    {
        QVRenderDrawOverlayView bar(barColor, Qt::white);
        bar.resize(400, 30);
        bar.setOverlayImage(greenIcon(), q("Hello"));
        const QImage shot = pixelsOf(bar);
        const QRect seen = differingFrom(shot, barColor);
        QVERIFY2(qAbs(seen.left() + seen.right() - 399) <= 4, "as much free on the left as on the right");
        const QRect iconSeen = iconRect(shot);
        QCOMPARE(iconSeen.size(), QSize(20, 20));
        QCOMPARE(iconSeen.left(), seen.left());
        QVERIFY(iconSeen.top() >= 3 && iconSeen.bottom() <= 27);
    }

    void elidesWhatDoesNotFit_data()
    {
        const auto row = addColumns<QString>({"text"});
        row("endless", QString(1 << 20, u'W'));
        row("lines", q("Several\nlines\r\nthat are\u2028too long for a bar"));
    }

    void elidesWhatDoesNotFit()
    {
        QFETCH(QString, text);
        QVRenderDrawOverlayView bar(barColor, Qt::white);
        bar.resize(160, 30);
        bar.setOverlayImage(greenIcon(), text);
        const QRect seen = differingFrom(pixelsOf(bar), barColor);
        QVERIFY(seen.left() >= 10);
        QVERIFY(seen.right() < 150);
        QVERIFY2(seen.right() > 130, "it uses the room that there is");
        QCOMPARE(iconRect(pixelsOf(bar)).size(), QSize(20, 20));
    }
};

QV_TEST(TestRenderDrawOverlayView)
#include "TestRenderDrawOverlayView.moc"
