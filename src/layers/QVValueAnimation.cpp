#include "layers/QVValueAnimation.h"

#include "layers/QVMotion.h"

#include <QWidget>

#include <algorithm>
#include <utility>

QVValueAnimation::QVValueAnimation(QWidget &widget)
    : m_link(*this, widget)
{
}

void QVValueAnimation::start(double from, double to, double seconds, Step step, Completion completion)
{
    const bool jumps = seconds <= 0 || QVMotion::isReduced();
    const auto duration = std::chrono::round<Time>(std::chrono::duration<double>(jumps ? 0 : seconds));
    const Time now = QVTicker::shared().time();
    const auto run = std::make_shared<Run>(
        Run{jumps ? to : from, to, now, duration, std::move(step), std::move(completion)});
    m_run = run;
    m_link.run(now + duration);
    if (run->step)
        run->step(run->from);
}

void QVValueAnimation::stop()
{
    m_run.reset();
    m_link.stop();
}

void QVValueAnimation::tick(Time time)
{
    const std::shared_ptr<Run> run = m_run;
    const Time passed = std::max(time - run->start, Time::zero());
    if (passed < run->duration) {
        const double progress =
            m_curve.valueForProgress(double(passed.count()) / double(run->duration.count()));
        if (run->step)
            run->step(run->from + (run->to - run->from) * progress);
        return;
    }
    if (run->step)
        run->step(run->to);
    if (run.use_count() == 1)
        return; // The step has destroyed, stopped or restarted this animation.
    stop();
    if (run->completion)
        run->completion();
}
