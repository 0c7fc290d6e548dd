#pragma once

#include "platform/QVDelegate.h"
#include "settings/QVText.h"

#include <chrono>

/// The interface to the three bars that slide up over the picture's lower edge.
class QVOverlaySurface : public QVDelegate
{
public:
    enum class Bar { Prompt, Error, Success };
    /// The time that a bar takes to slide.
    static constexpr std::chrono::milliseconds slideDuration{200};
    /// With one line of text of the usual size, in logical pixels.
    static constexpr int barHeight = 30;
    /// At both ends of a bar, and before the mark on one that accepts touches.
    static constexpr int barInset = 10;
    static constexpr int retrySide = 16;

    /// Shows \a bar above the others. If it accepts no touches, they go to the widget below.
    virtual void slideIn(Bar bar, const QVText &text, bool acceptsTouches) = 0;
    virtual void slideOut(Bar bar) = 0;
};
