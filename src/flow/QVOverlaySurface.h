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

    /// Shows \a bar above the others. If it accepts no touches, they go to the widget below.
    virtual void slideIn(Bar bar, const QVText &text, bool acceptsTouches) = 0;
    virtual void slideOut(Bar bar) = 0;
};
