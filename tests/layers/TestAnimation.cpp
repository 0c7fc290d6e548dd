#include "layers/QVAnimation.h"
#include "support/QVTestCase.h"

using Property = QVLayerProperty;

namespace {

QVAnimation lasting(double seconds, QVAnimation animation)
{
    animation.setDuration(seconds);
    return animation;
}

} // namespace

class TestAnimation : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void presentsOpacityOverTime()
    {
        // The model's opacity is 0.5, which is also what an animation that presents nothing leaves.
        QVLayerProperties model;
        model.opacity = 0.5;
        const auto check = [&](const QVAnimation &animation, const QVCases<double, double> &cases) {
            for (const auto &[time, opacity] : cases) {
                QVLayerProperties presented = model;
                animation.apply(time, model, presented);
                QVERIFY2(std::abs(presented.opacity - opacity) < 1e-5, qPrintable(QString::number(opacity)));
                presented.opacity = model.opacity;
                QCOMPARE(presented, model);
            }
        };
        const QVAnimation basic = lasting(2, QVAnimation::basic(Property::Opacity, 0.2, 0.6));
        check(basic, {{-0.1, 0.5}, {0, 0.2}, {0.5, 0.3}, {2, 0.5}});
        QVAnimation child = lasting(1, QVAnimation::basic(Property::Opacity, std::nullopt, 1.0));
        check(child, {{0.5, 0.75}});
        QVAnimation late = basic;
        late.setBeginTime(0.5);
        check(late, {{0.4, 0.5}, {1.5, 0.4}, {2.5, 0.5}});
        QVAnimation repeated = basic;
        repeated.setRepeatsForever();
        check(repeated, {{1001, 0.4}});
        check(lasting(0, repeated), {{0, 0.5}});
        const auto frames = [](const std::vector<QVLayerValue> &values, const std::vector<double> &times) {
            return lasting(1, QVAnimation::keyFrames(Property::Opacity, values, times));
        };
        check(frames({1.0, 0.3, 1.0}, {0, 0.3, 1}), {{0.15, 0.65}, {0.3, 0.3}, {0.65, 0.65}});
        check(frames({1.0, 0.9, 0.8, 0.9, 1.0}, {0, 1}), {{0.125, 0.95}, {0.75, 0.9}});
        check(frames({0.3, 0.7}, {0.4, 0.6}), {{0.1, 0.3}, {0.5, 0.5}, {0.9, 0.7}});
        child.setBeginTime(0.25);
        check(lasting(0.75, QVAnimation::group({child})), {{0.2, 0.5}, {0.65, 0.7}, {0.75, 0.5}});
    }
};

QV_TEST(TestAnimation)
#include "TestAnimation.moc"
