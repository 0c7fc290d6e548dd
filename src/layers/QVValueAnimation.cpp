#include "layers/QVValueAnimation.h"

#include "layers/QVMotion.h"

#include <QWidget>

#include <utility>

QVValueAnimation::QVValueAnimation(QWidget &widget)
    : m_link(*this, widget)
{
}

void QVValueAnimation::start(Time duration, Step step, Completion completion)
{
    const bool jumps = QVMotion::isReduced();
    const Time now = QVTicker::shared().time();
    const auto run = std::make_shared<Run>(
        Run{now, jumps ? Time::zero() : duration, std::move(step), std::move(completion)});
    m_run = run;
    m_link.run(now + run->duration);
    run->step(jumps ? 1 : 0);
}

void QVValueAnimation::stop()
{
    m_run.reset();
    m_link.stop();
}

void QVValueAnimation::tick(Time time)
{
    const std::shared_ptr<Run> run = m_run;
    const Time passed = time - run->start;
    if (passed < run->duration) {
        run->step(m_curve.valueForProgress(double(passed.count()) / double(run->duration.count())));
        return;
    }
    run->step(1);
    if (run.use_count() == 1)
        return; // The step has destroyed, stopped or restarted this animation.
    stop();
    if (run->completion)
        run->completion();
}
