#include "modes/QVClickWaterRippleView.h"
#include "support/QVTestCase.h"

using namespace std::chrono_literals;

class TestClickWaterRippleView : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void spreadsFromTheTouchAndVanishesAtOnce()
    {
        m_view->beganWaterRippleAnimationAtPoint({10, 20});
        const QVLayer &ripple = *m_view->waterRippleLayer();
        QVERIFY(std::abs(ripple.presented().path.boundingRect().width() - 0.2) < 1e-6);
        advance(250ms);
        const QRectF half = ripple.presented().path.boundingRect();
        QCOMPARE(half.center(), QPointF(10, 20));
        QVERIFY(std::abs(half.width() - 250.1) < 0.01);
        advance(250ms);
        QVERIFY(ripple.presented().path.isEmpty());
        QVERIFY(ripple.animationKeys().isEmpty());
        QCOMPARE(time().pendingCount(), 0);
    }

    void reachesTheFarCorner_data()
    {
        QTest::addColumn<QPoint>("touch");
        QTest::addColumn<QPoint>("corner");
        QTest::newRow("top left") << QPoint(0, 0) << QPoint(199, 149);
        QTest::newRow("top right") << QPoint(199, 0) << QPoint(0, 149);
        QTest::newRow("bottom right") << QPoint(199, 149) << QPoint(0, 0);
    }

    void reachesTheFarCorner()
    {
        QFETCH(QPoint, touch);
        QFETCH(QPoint, corner);
        const auto start = time().now();
        m_view->beganWaterRippleAnimationAtPoint(touch);
        const QVLayer &ripple = *m_view->waterRippleLayer();
        QVERIFY(!ripple.presentedAt(start + 480ms).path.contains(corner));
        QVERIFY(ripple.presentedAt(start + 499ms).path.contains(corner));
        advance(490ms);
        QCOMPARE(alphaAt(touch), 51);
        advance(11ms);
        QCOMPARE(alphaAt(touch), 0);
    }

    void nextTouchCutsOffTheRipple()
    {
        m_view->beganWaterRippleAnimationAtPoint({10, 20});
        advance(400ms);
        m_view->beganWaterRippleAnimationAtPoint({180, 100});
        QCOMPARE(alphaAt({10, 20}), 0);
        advance(400ms);
        QVERIFY(!m_view->waterRippleLayer()->presented().path.isEmpty());
    }

private:
    void prepare() override
    {
        m_view = std::make_unique<QVClickWaterRippleView>();
        m_view->resize(200, 150);
        m_view->show();
    }
    void finish() override { m_view.reset(); }

    [[nodiscard]] int alphaAt(QPoint point) const
    {
        QImage image(m_view->size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        m_view->render(&image, {}, {}, QWidget::RenderFlags());
        return image.pixelColor(point).alpha();
    }

    std::unique_ptr<QVClickWaterRippleView> m_view;
};

QV_TEST(TestClickWaterRippleView)
#include "TestClickWaterRippleView.moc"
