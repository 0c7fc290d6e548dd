#include "modes/QVClickStatusView.h"
#include "support/QVTestCase.h"

#include <numbers>

using namespace std::chrono_literals;
using std::numbers::pi;

namespace {

bool isPale(const QVLayer &layer)
{
    return layer.strokeColor() == QColor(255, 255, 255, 128);
}

} // namespace

class TestClickStatusView : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void showsTheLogoWhenIdle()
    {
        m_view->setClickStatus(QVClickStatusNormal);
        QCOMPARE(count(), 1U);
        QVERIFY(!layer(0).contents().isNull());
        QCOMPARE(layer(0).frame().width(), 16.0);
        QCOMPARE(layer(0).frame().center(), QPointF(20, 22));
        QCOMPARE(time().pendingCount(), 0);
    }

    void pulsesWhileTouched()
    {
        m_view->setClickStatus(QVClickStatusTouching);
        QCOMPARE(count(), 1U);
        QCOMPARE(layer(0).strokeColor(), QColor(Qt::white));
        QCOMPARE(layer(0).path().boundingRect(), QRectF(7, 9, 26, 26));
        advance(500ms);
        QCOMPARE(layer(0).presented().scaleX, 0.8);
        QCOMPARE(layer(0).presented().scaleY, 0.8);
        advance(10s);
        QCOMPARE(layer(0).presented().scaleX, 0.8);
        QCOMPARE(layer(0).scaleX(), 1.0);
    }

    void spinsAnArcThatStartsAtRandom_data()
    {
        QTest::addColumn<quint32>("random");
        QTest::addColumn<double>("start");
        QTest::newRow("least") << 0U << 0.0;
        QTest::newRow("greatest remainder") << 7U << 0.7;
        QTest::newRow("wraps") << 8U << 0.0;
        QTest::newRow("greatest number") << 0xFFFFFFFFU << 0.7;
    }

    void spinsAnArcThatStartsAtRandom()
    {
        QFETCH(quint32, random);
        QFETCH(double, start);
        m_view->setRandomSource([random] { return random; });
        m_view->setClickStatus(QVClickStatusVerifying);
        QCOMPARE(count(), 2U);
        QVERIFY(isPale(layer(0)));
        QCOMPARE(layer(1).strokeStart(), start);
        QCOMPARE(layer(1).strokeEnd(), start + 0.15);
        advance(1250ms);
        QVERIFY(std::abs(layer(1).presented().rotation - pi / 2) < 1e-6);
    }

    void repeatedStatusStartsAfresh()
    {
        quint32 next = 3;
        m_view->setRandomSource([&] { return next++; });
        m_view->setClickStatus(QVClickStatusVerifying);
        advance(400ms);
        m_view->setClickStatus(QVClickStatusVerifying);
        QCOMPARE(count(), 2U);
        QCOMPARE(layer(1).strokeStart(), 0.4);
        QCOMPARE(layer(1).presented().rotation, 0.0);
    }

    void fillsTheRingThenPulsesTheDotToAskForADrawing()
    {
        m_view->setClickStatus(QVClickStatusDrawing);
        QCOMPARE(count(), 4U);
        QCOMPARE(layer(2).fillColor(), QColor(255, 255, 255, 128));
        QCOMPARE(layer(3).lineWidth(), 8.0);
        advance(500ms);
        QCOMPARE(layer(1).presented().strokeEnd, 0.5);
        QCOMPARE(layer(3).presented().strokeEnd, 0.5);
        QCOMPARE(layer(3).presented().scaleX, 1.0);
        advance(1s);
        QCOMPARE(layer(1).presented().strokeEnd, 1.0);
        QVERIFY(layer(1).animationKeys().isEmpty());
        QCOMPARE(layer(3).presented().scaleX, 0.8);
    }

    void lateSecondStepPulsesAnEmptyLayer()
    {
        m_view->setClickStatus(QVClickStatusDrawing);
        advance(900ms);
        m_view->setClickStatus(QVClickStatusNormal);
        QCOMPARE(count(), 1U);
        advance(100ms);
        QCOMPARE(count(), 2U);
        QVERIFY(layer(1).path().isEmpty());
        QCOMPARE(layer(1).animationKeys(), QStringList{QString()});
        QCOMPARE(time().pendingCount(), 0);
        m_view->setClickStatus(QVClickStatusTouching);
        QCOMPARE(count(), 1U);
    }

    void lateSecondStepTakesOverTheTick()
    {
        m_view->setClickStatus(QVClickStatusDrawing);
        advance(800ms);
        m_view->setClickStatus(QVClickStatusPassed);
        advance(700ms);
        QCOMPARE(layer(2).presented().strokeEnd, 1.0);
        QCOMPARE(layer(2).presented().scaleX, 0.8);
    }

    void secondStepOutlivesNoView()
    {
        m_view->setClickStatus(QVClickStatusDrawing);
        m_view.reset();
        advance(2s);
        QCOMPARE(time().pendingCount(), 0);
    }

    void revealsTickAndCross_data()
    {
        QTest::addColumn<qint64>("status");
        QTest::addColumn<QRectF>("box");
        QTest::newRow("tick") << qint64(QVClickStatusPassed) << QRectF(14.5, 17.75, 13, 6.5);
        QTest::newRow("cross") << qint64(QVClickStatusFailed) << QRectF(12, 14, 16, 16);
    }

    void revealsTickAndCross()
    {
        QFETCH(qint64, status);
        QFETCH(QRectF, box);
        m_view->setClickStatus(static_cast<QVClickStatus>(status));
        QCOMPARE(count(), 3U);
        QVERIFY(isPale(layer(0)));
        QCOMPARE(layer(2).path().boundingRect(), box);
        QCOMPARE(layer(2).rotation(), -pi / 4);
        QCOMPARE(layer(2).lineCap(), Qt::RoundCap);
        QCOMPARE(layer(2).lineWidth(), 2.0);
        QCOMPARE(layer(2).presented().strokeEnd, 0.0);
        advance(250ms);
        QCOMPARE(layer(2).presented().strokeEnd, 0.5);
        advance(250ms);
        QCOMPARE(layer(2).presented().strokeEnd, 1.0);
        QCOMPARE(time().pendingCount(), 0);
    }

    void unknownStatusLeavesTheStripEmpty()
    {
        m_view->setClickStatus(QVClickStatusFailed);
        m_view->setClickStatus(static_cast<QVClickStatus>(6));
        QCOMPARE(count(), 0U);
        QCOMPARE(qint64(m_view->clickStatus()), 6);
    }

    void keepsToTheMiddleWhenResized()
    {
        m_view->setClickStatus(QVClickStatusTouching);
        m_view->resize(40, 60);
        QCOMPARE(m_view->layers().frame().topLeft(), QPointF(0, 8));
        m_view->setClickStatus(QVClickStatusTouching);
        QCOMPARE(m_view->layers().frame().topLeft(), QPointF(0, 0));
        QCOMPARE(layer(0).path().boundingRect().center(), QPointF(20, 30));
    }

    void paintsOverATranslucentStrip()
    {
        QWidget bar;
        bar.resize(40, 44);
        bar.setPalette(QColor(65, 141, 251));
        QVClickStatusView view(&bar);
        view.resize(40, 44);
        view.setClickStatus(QVClickStatusTouching);
        const QImage image = bar.grab().toImage();
        // 70 % of the bar's blue shows through.
        QCOMPARE(image.pixelColor(2, 2), QColor(45, 98, 175));
        QCOMPARE(image.pixelColor(20, 9), QColor(Qt::white));
    }

private:
    void prepare() override
    {
        m_view = std::make_unique<QVClickStatusView>();
        m_view->resize(QVClickStatusView::defaultWidth(), 44);
        m_view->show();
    }
    void finish() override { m_view.reset(); }

    [[nodiscard]] std::size_t count() const { return m_view->layers().sublayers().size(); }
    [[nodiscard]] const QVLayer &layer(std::size_t index) const
    {
        return *m_view->layers().sublayers().at(index);
    }

    std::unique_ptr<QVClickStatusView> m_view;
};

QV_TEST(TestClickStatusView)
#include "TestClickStatusView.moc"
