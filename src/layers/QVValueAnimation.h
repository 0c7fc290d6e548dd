#pragma once

#include "layers/QVFrameLink.h"

#include <QEasingCurve>

#include <functional>
#include <memory>

/// Takes a number from one value to another, for what a widget moves by itself. The widget keeps its
/// final state as a plain value and asks this only for the way there.
class QVValueAnimation final : private QVTickerClient
{
public:
    using Step = std::function<void(double value)>;
    using Completion = std::function<void()>;

    /// \a widget is the one whose visibility counts. While it is hidden there are no steps, but the
    /// animation still ends in time.
    explicit QVValueAnimation(QWidget *widget = nullptr);

    void setTimingCurve(const QEasingCurve &curve) { m_curve = curve; }
    /// Calls \a step at once with \a from, then once a frame, and at the end with \a to; then
    /// \a completion, never before this call has returned. Both may destroy the animation. A start
    /// during a run replaces it, and its completion is not called.
    void start(double from, double to, double seconds, Step step, Completion completion = {});
    void stop();
    [[nodiscard]] bool isRunning() const { return m_run != nullptr; }

private:
    struct Run
    {
        double from;
        double to;
        Time start;
        Time duration;
        Step step;
        Completion completion;
    };

    void tick(Time time) override;

    QEasingCurve m_curve;
    // Shared only with a call under way, which may destroy or replace it.
    std::shared_ptr<Run> m_run;
    QVFrameLink m_link;
};
