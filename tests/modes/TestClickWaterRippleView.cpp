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
        QVERIFY(!ripple.animations().isRunning());
        QCOMPARE(time().pendingCount(), 0);
    }

    void reachesTheFarCorner()
    {
        m_view->beganWaterRippleAnimationAtPoint({0, 0});
        advance(460ms);
        QCOMPARE(alphaAt({191, 143}), 0);
        advance(35ms);
        QCOMPARE(alphaAt({191, 143}), 51);
        QCOMPARE(alphaAt({0, 0}), 51);
        advance(6ms);
        QCOMPARE(alphaAt({0, 0}), 0);
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
