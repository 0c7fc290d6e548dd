#include "support/QVTestCase.h"
#include "views/QVColors.h"
#include "views/QVReadable.h"
#include "views/QVRenderDrawOverlayView.h"
#include "views/QVSystemFont.h"

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <algorithm>

using namespace QVReadable;

class TestReadable : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void contrastIsThatOfTheGuidelines()
    {
        QCOMPARE(contrast(Qt::black, Qt::white), 21.0);
        QCOMPARE(contrast(Qt::white, Qt::white), 1.0);
        // The lightest grey that passes on white, by the guidelines' own examples.
        QVERIFY(contrast(QColor(0x76, 0x76, 0x76), Qt::white) >= 4.5);
        QVERIFY(contrast(QColor(0x77, 0x77, 0x77), Qt::white) < 4.5);
    }

    void everythingIsSetOff_data()
    {
        QTest::addColumn<QColor>("color");
        QTest::addColumn<QColor>("ground");
        QTest::newRow("prompt") << QVColors::secondaryText << QVColors::promptBar;
        QTest::newRow("error") << QColor(Qt::white) << QVColors::errorBar;
        QTest::newRow("success") << QColor(Qt::white) << QVColors::successBar;
        QTest::newRow("click button") << QColor(Qt::white) << QVColors::accent;
        QTest::newRow("done") << QVColors::accent << QVColors::strip;
        QTest::newRow("placeholder") << QVColors::lightGray << QColor(Qt::white);
        QTest::newRow("support") << QColor(205, 205, 206) << QColor(255, 255, 255, 242);
        QTest::newRow("badge and advertisement") << QColor(Qt::white) << QVColors::badge;
    }

    void everythingIsSetOff()
    {
        QFETCH(QColor, color);
        QFETCH(QColor, ground);
        for (const double wanted : {textContrast, iconContrast}) {
            const QColor shade = halo(color, ground, wanted);
            if (shade.isValid()) {
                QVERIFY(contrast(color, shade) >= wanted);
                continue;
            }
            for (const QColor below : {QColor(Qt::black), QColor(Qt::white)})
                QVERIFY(contrast(color, over(below, ground)) >= wanted);
        }
    }

    void aBarPaintsTheHalo()
    {
        QVRenderDrawOverlayView bar(QVColors::successBar, Qt::white);
        bar.resize(300, 30);
        bar.setOverlayImage({}, QStringLiteral("Passed"));
        const QImage picture = bar.grab().toImage();
        double strongest = 1;
        for (int x = 0; x < picture.width(); ++x) {
            for (int y = 0; y < picture.height(); ++y)
                strongest = std::max(strongest, contrast(picture.pixelColor(x, y), Qt::white));
        }
        QVERIFY(contrast(picture.pixelColor(2, 2), Qt::white) < textContrast);
        QVERIFY(strongest >= 0.9 * textContrast);
    }

    void textGrowsWithThePlatforms_data()
    {
        QTest::addColumn<int>("platform");
        QTest::addColumn<double>("scale");
        QTest::newRow("usual") << 13 << 1.0;
        QTest::newRow("half as large again") << 23 << 23 / 15.0;
        QTest::newRow("twice") << 30 << 2.0;
        QTest::newRow("more") << 90 << 2.0;
    }

    void textGrowsWithThePlatforms()
    {
        QFETCH(int, platform);
        QFETCH(double, scale);
        QFont font = QApplication::font();
        font.setPixelSize(platform);
        QApplication::setFont(font);
        QCOMPARE(qv_textScale(), scale);
        QCOMPARE(qv_systemFont(14).pixelSize(), qRound(14 * scale));
        QCOMPARE(QVRenderDrawOverlayView::defaultHeight(), qRound(30 * scale));
        const QString line = QStringLiteral("Draw along the curve in the picture");
        const QSizeF room(300, 60);
        const QFont fitting = qv_systemFont(14, line, room);
        QVERIFY(QFontMetricsF(fitting).horizontalAdvance(line) <= room.width());
        QVERIFY(fitting.pixelSize() >= 14);
    }

private:
    void prepare() override { m_font = QApplication::font(); }
    void finish() override { QApplication::setFont(m_font); }

    static QColor over(const QColor &below, const QColor &ground)
    {
        QImage pixel(1, 1, QImage::Format_RGB32);
        pixel.fill(below);
        QPainter(&pixel).fillRect(0, 0, 1, 1, ground);
        return pixel.pixelColor(0, 0);
    }

    QFont m_font;
};

QV_TEST(TestReadable)
#include "TestReadable.moc"
