#pragma once

#include "layers/QVFrameLink.h"

#include <QEasingCurve>

#include <functional>
#include <memory>

/// Animates a number from 0 to 1, for a widget that paints the motion itself. The widget keeps its final
/// state as a plain value, and uses this only for the steps between.
class QVValueAnimation final : private QVTickerClient
{
public:
    using Step = std::function<void(double value)>;
    using Completion = std::function<void()>;

    /// While \a widget is hidden there are no steps, but the animation still ends in time.
    explicit QVValueAnimation(QWidget &widget);

    void setTimingCurve(const QEasingCurve &curve) { m_curve = curve; }
    /// Calls \a step at once with 0, then once per frame, and at the end with 1. With reduced motion it calls
    /// \a step only with 1. Then it calls \a completion, never before this call has returned. Both may
    /// destroy the animation. A start during a run replaces that run, whose completion is not called.
    void start(Time duration, Step step, Completion completion = {});
    void stop();
    [[nodiscard]] bool isRunning() const { return m_run != nullptr; }

private:
    struct Run
    {
        Time start;
        Time duration;
        Step step;
        Completion completion;
    };

    void tick(Time time) override;

    QEasingCurve m_curve;
    // Shared only with the callback under way, which may destroy or restart the animation.
    std::shared_ptr<Run> m_run;
    QVFrameLink m_link;
};
