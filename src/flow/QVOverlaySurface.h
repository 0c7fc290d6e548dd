#pragma once

#include "platform/QVDelegate.h"
#include "settings/QVText.h"

#include <chrono>

/// The three bars that slide up over the picture's lower edge, as a screen shows them.
class QVOverlaySurface : public QVDelegate
{
public:
    enum class Bar { Prompt, Error, Success };
    /// How long a bar takes.
    static constexpr std::chrono::milliseconds slideDuration{200};

    /// Lays \a bar over the others. One that takes no touches lets them through to what lies below.
    virtual void slideIn(Bar bar, const QVText &text, bool acceptsTouches) = 0;
    virtual void slideOut(Bar bar) = 0;
};
