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
        QCOMPARE(layer(0).frame().center(), QPointF(20, 22));
    }

    void pulsesWhileTouched()
    {
        m_view->setClickStatus(QVClickStatusTouching);
        QCOMPARE(count(), 1U);
        QCOMPARE(layer(0).strokeColor(), QColor(Qt::white));
        QCOMPARE(layer(0).path().boundingRect(), QRectF(7, 9, 26, 26));
        advance(500ms);
        QCOMPARE(layer(0).presented().scale, 0.8);
        advance(10s);
        QCOMPARE(layer(0).presented().scale, 0.8);
        QCOMPARE(layer(0).scale(), 1.0);
    }

    void spinsAnArcThatStartsAtRandom()
    {
        m_view->setRandomSource([] { return 0xFFFFFFFFU; });
        m_view->setClickStatus(QVClickStatusVerifying);
        QCOMPARE(count(), 2U);
        QVERIFY(isPale(layer(0)));
        QCOMPARE(layer(1).strokeStart(), 0.7);
        QCOMPARE(layer(1).strokeEnd(), 0.7 + 0.15);
        advance(1250ms);
        QVERIFY(std::abs(layer(1).presented().rotation - pi / 2) < 1e-6);
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
        QCOMPARE(layer(3).presented().scale, 1.0);
        advance(1s);
        QCOMPARE(layer(1).presented().strokeEnd, 1.0);
        QVERIFY(!layer(1).animations().isRunning());
        QCOMPARE(layer(3).presented().scale, 0.8);
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
        QVERIFY(layer(1).animations().isRunning());
        QCOMPARE(time().pendingCount(), 0);
        m_view->setClickStatus(QVClickStatusTouching);
        QCOMPARE(count(), 1U);
    }

    void revealsTickAndCross()
    {
        const QVCases<QVClickStatus, QRectF> cases{{QVClickStatusPassed, {14.5, 17.75, 13, 6.5}},
                                                   {QVClickStatusFailed, {12, 14, 16, 16}}};
        for (const auto &[status, box] : cases) {
            m_view->setClickStatus(status);
            QCOMPARE(count(), 3U);
            QCOMPARE(layer(2).path().boundingRect(), box);
            QCOMPARE(layer(2).rotation(), -pi / 4);
            QCOMPARE(layer(2).presented().strokeEnd, 0.0);
            advance(250ms);
            QCOMPARE(layer(2).presented().strokeEnd, 0.5);
            advance(250ms);
            QCOMPARE(layer(2).presented().strokeEnd, 1.0);
            QCOMPARE(time().pendingCount(), 0);
        }
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
