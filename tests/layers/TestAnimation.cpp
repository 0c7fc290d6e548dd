#include "layers/QVAnimation.h"
#include "support/QVTestCase.h"

#include <map>

using Property = QVLayerProperty;

namespace {

std::map<QString, QVAnimation> animations()
{
    std::map<QString, QVAnimation> all;
    const auto put = [&](const char *name, const QVAnimation &animation) {
        all.emplace(QString::fromLatin1(name), animation);
    };
    QVAnimation basic = QVAnimation::basic(Property::Opacity, 0.2, 0.6);
    basic.setDuration(2);
    put("basic", basic);
    QVAnimation fromModel = QVAnimation::basic(Property::Opacity, std::nullopt, 1.0);
    fromModel.setDuration(1);
    put("fromModel", fromModel);
    QVAnimation late = basic;
    late.setBeginTime(0.5);
    put("late", late);
    QVAnimation repeated = basic;
    repeated.setRepeatCount(1.5);
    put("repeated", repeated);
    QVAnimation endless = basic;
    endless.setRepeatsForever();
    put("endless", endless);
    QVAnimation eased = basic;
    eased.setTimingCurve(QVTimingCurve::easeIn());
    put("eased", eased);
    QVAnimation frames = QVAnimation::keyFrames(Property::Opacity, {1.0, 0.3, 1.0}, {0, 0.3, 1});
    frames.setDuration(1);
    put("frames", frames);
    QVAnimation evenFrames = QVAnimation::keyFrames(Property::Opacity, {1.0, 0.9, 0.8, 0.9, 1.0}, {0, 1});
    evenFrames.setDuration(1);
    put("evenFrames", evenFrames);
    QVAnimation lateFrames = QVAnimation::keyFrames(Property::Opacity, {0.3, 0.7}, {0.4, 0.6});
    lateFrames.setDuration(1);
    put("lateFrames", lateFrames);
    QVAnimation instant = basic;
    instant.setDuration(0);
    instant.setRepeatsForever();
    put("instant", instant);
    QVAnimation child = fromModel;
    child.setBeginTime(0.25);
    QVAnimation group = QVAnimation::group({child});
    group.setDuration(0.75);
    put("group", group);
    return all;
}

} // namespace

class TestAnimation : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:
    void presentsOpacityOverTime_data()
    {
        // The model's opacity is 0.5, which is also what an animation that presents nothing leaves.
        addColumns<double, double>({"time", "opacity"});
        const auto row = [](const char *name, double time, double opacity) {
            QTest::addRow("%s at %g", name, time) << time << opacity;
        };
        row("basic", 0, 0.2);
        row("basic", 0.5, 0.3);
        row("basic", 2, 0.5);
        row("fromModel", 0.5, 0.75);
        row("late", 0.4, 0.5);
        row("late", 1.5, 0.4);
        row("late", 2.5, 0.5);
        row("repeated", 2.5, 0.3);
        row("endless", 1001, 0.4);
        row("eased", 1, 0.2 + 0.4 * 0.315357);
        row("frames", 0.15, 0.65);
        row("frames", 0.65, 0.65);
        row("evenFrames", 0.125, 0.95);
        row("lateFrames", 0.5, 0.5);
        row("instant", 0, 0.5);
        row("group", 0.2, 0.5);
        row("group", 0.65, 0.7);
        row("group", 0.75, 0.5);
    }

    void presentsOpacityOverTime()
    {
        QFETCH(double, time);
        QFETCH(double, opacity);
        const QString name = QString::fromLatin1(QTest::currentDataTag()).section(u' ', 0, 0);
        QVLayerProperties model;
        model.opacity = 0.5;
        QVLayerProperties presented = model;
        animations().at(name).apply(time, model, presented);
        QVERIFY2(std::abs(presented.opacity - opacity) < 1e-5,
                 qPrintable(QString::number(presented.opacity)));
        presented.opacity = model.opacity;
        QCOMPARE(presented, model);
    }

    void reachesEveryProperty()
    {
        QPainterPath line;
        line.lineTo(10, 0);
        QPainterPath lower = line.translated(0, 8);
        QVAnimation all = QVAnimation::group({
            QVAnimation::basic(Property::Frame, std::nullopt, QRectF(10, 20, 30, 40)),
            QVAnimation::basic(Property::Path, std::nullopt, lower),
            QVAnimation::basic(Property::StrokeStart, std::nullopt, 0.5),
            QVAnimation::basic(Property::StrokeEnd, std::nullopt, 0.6),
            QVAnimation::basic(Property::Rotation, std::nullopt, 3.0),
            QVAnimation::basic(Property::Scale, std::nullopt, 3.0),
        });
        QVLayerProperties model;
        model.path = line;
        model.scaleY = 2;
        QVLayerProperties presented = model;
        all.apply(0.125, model, presented);
        QCOMPARE(presented.frame, QRectF(5, 10, 15, 20));
        QCOMPARE(presented.path, line.translated(0, 4));
        QCOMPARE(presented.strokeStart, 0.25);
        QCOMPARE(presented.strokeEnd, 0.8);
        QCOMPARE(presented.rotation, 1.5);
        QCOMPARE(presented.scaleX, 2.0);
        QCOMPARE(presented.scaleY, 2.5);
    }
};

QV_TEST(TestAnimation)
#include "TestAnimation.moc"
