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
        QTest::addColumn<bool>("hasIcon");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected");
        QTest::newRow("both") << true << "Hello"
                              << " Hello";
        QTest::newRow("icon alone") << true << QString() << QString();
        QTest::newRow("text alone") << false << "Hello"
                                    << "Hello";
        QTest::newRow("neither") << false << QString() << QString();
        QTest::newRow("empty text") << true << ""
                                    << " ";
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

    void labelIsInset()
    {
        QVRenderDrawOverlayView bar(barColor, Qt::white);
        bar.resize(400, 30);
        bar.show();
        QCOMPARE(bar.overlayLabel()->geometry(), QRect(10, 0, 380, 30));
    }

    void lineIsCentred()
    {
        QVRenderDrawOverlayView bar(barColor, Qt::white);
        bar.resize(400, 30);
        bar.setOverlayImage(greenIcon(), QStringLiteral("Hello"));
        const QImage shot = pixelsOf(bar);
        const QRect seen = differingFrom(shot, barColor);
        QVERIFY2(qAbs(seen.left() + seen.right() - 399) <= 4, "as much free on the left as on the right");
        const QRect iconSeen = iconRect(shot);
        QCOMPARE(iconSeen.size(), QSize(20, 20));
        QCOMPARE(iconSeen.left(), seen.left());
        QVERIFY(iconSeen.top() >= 3 && iconSeen.bottom() <= 27);
    }

    void iconReachesBelowTheBaseline()
    {
        QVRenderDrawOverlayView bar(barColor, Qt::white);
        bar.resize(400, 30);
        bar.setOverlayImage(greenIcon(), QStringLiteral("HHH"));
        const QImage shot = pixelsOf(bar);
        const QRect iconSeen = iconRect(shot);
        const QRect text = differingFrom(shot.copy(iconSeen.right() + 1, 0, 200, 30), barColor);
        QCOMPARE(iconSeen.bottom() - text.bottom(), 4);
    }

    void elidesWhatDoesNotFit_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("long") << QStringLiteral("A sentence that is much too long for a bar this narrow");
        QTest::newRow("endless") << QString(1 << 20, u'W');
        QTest::newRow("lines") << QStringLiteral("Several\nlines\r\nthat are\u2028too long for a bar");
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

    void markupIsText()
    {
        QVRenderDrawOverlayView plain(barColor, Qt::white);
        plain.resize(300, 30);
        plain.setOverlayImage({}, QStringLiteral("<h1>x</h1>"));
        QVRenderDrawOverlayView shortened(barColor, Qt::white);
        shortened.resize(300, 30);
        shortened.setOverlayImage({}, QStringLiteral("x"));
        QVERIFY(differingFrom(pixelsOf(plain), barColor).width() >
                4 * differingFrom(pixelsOf(shortened), barColor).width());
    }
};

QV_TEST(TestRenderDrawOverlayView)
#include "TestRenderDrawOverlayView.moc"
