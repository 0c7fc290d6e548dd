#include "layers/QVValueAnimation.h"
#include "support/QVStillStyle.h"
#include "support/QVTestCase.h"

#include <QWidget>

using namespace std::chrono_literals;

class TestValueAnimation : public QVTestCase
{
    Q_OBJECT

private Q_SLOTS:

    void restartAndStopForgetTheFirstCompletion()
    {
        QVValueAnimation animation;
        animation.start(0, 1, 0.1, {}, [&] { m_completions += 100; });
        advance(50ms);
        animation.start(1, 0, 0.1, step(), completion());
        advance(1s);
        QCOMPARE(m_completions, 1);
        animation.start(0, 1, 0.1, step(), completion());
        animation.stop();
        advance(1s);
        QCOMPARE(m_completions, 1);
    }

    void hiddenWidgetTakesNoStepsButTheEndComes()
    {
        QWidget widget;
        QVValueAnimation animation(&widget);
        animation.start(0, 1, 0.2, step(), completion());
        QVERIFY(!QVTicker::shared().isRunning());
        advance(199ms);
        QCOMPARE(m_values, std::vector<double>{0});
        QCOMPARE(m_completions, 0);
        advance(1ms);
        QCOMPARE(m_values, (std::vector<double>{0, 1}));
        QCOMPARE(m_completions, 1);
        QCOMPARE(time().pendingCount(), 0);
    }

    void reducedMotionJumpsAndStillCompletesLater()
    {
        const QVStillStyle still;
        QVValueAnimation animation;
        animation.start(0, 1, 0.2, step(), completion());
        QCOMPARE(m_values, std::vector<double>{1});
        QCOMPARE(m_completions, 0);
        advance(17ms);
        QCOMPARE(m_completions, 1);
        QCOMPARE(m_values.back(), 1.0);
    }

private:
    void prepare() override
    {
        m_values.clear();
        m_completions = 0;
    }

    QVValueAnimation::Step step()
    {
        return [this](double value) {
            m_values.push_back(value);
        };
    }

    QVValueAnimation::Completion completion()
    {
        return [this] {
            ++m_completions;
        };
    }

    std::vector<double> m_values;
    int m_completions = 0;
};

QV_TEST(TestValueAnimation)
#include "TestValueAnimation.moc"
