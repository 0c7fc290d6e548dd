#include "modes/QVPopupGeometry.h"
#include "support/QVTestCase.h"

class TestPopupGeometry : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void screenOfSurface_data()
    {
        QTest::addColumn<QSize>("surface");
        QTest::addColumn<QVPopupPresentation>("presentation");
        QTest::addColumn<QRect>("screen");
        QTest::addColumn<bool>("isCard");
        const auto automatic = QVPopupPresentation::Automatic;
        QTest::newRow("phone") << QSize(320, 568) << automatic << QRect(0, 0, 320, 568) << false;
        QTest::newRow("widest whole") << QSize(480, 800) << automatic << QRect(0, 0, 480, 800) << false;
        QTest::newRow("narrowest with a card")
            << QSize(481, 800) << automatic << QRect(33, 140, 414, 520) << true;
        QTest::newRow("desktop") << QSize(1280, 720) << automatic << QRect(433, 100, 414, 520) << true;
        QTest::newRow("low") << QSize(1280, 300) << automatic << QRect(433, 0, 414, 300) << true;
        QTest::newRow("nothing") << QSize(0, 0) << automatic << QRect(0, 0, 0, 0) << false;
        QTest::newRow("whole window")
            << QSize(1280, 720) << QVPopupPresentation::WholeWindow << QRect(0, 0, 1280, 720) << false;
        QTest::newRow("whole screen")
            << QSize(1920, 1080) << QVPopupPresentation::WholeScreen << QRect(0, 0, 1920, 1080) << false;
    }

    void screenOfSurface()
    {
        QFETCH(QSize, surface);
        QFETCH(QVPopupPresentation, presentation);
        const QVPopupGeometry geometry(surface, presentation);
        QTEST(geometry.screen(), "screen");
        QTEST(geometry.isCard(), "isCard");
    }
};

QV_TEST(TestPopupGeometry)
#include "TestPopupGeometry.moc"
