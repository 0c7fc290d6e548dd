#pragma once

#include "flow/QVClickStatus.h"
#include "flow/QVModeSurface.h"

#include <chrono>

/// The interface of QVClickFlow to the button on screen.
class QVClickSurface : public QVModeSurface
{
public:
    /// How long the ring takes to close while a popup is shown.
    static constexpr std::chrono::milliseconds ringDuration{1000};
    /// How long the mark of an attempt that has ended takes to be drawn.
    static constexpr std::chrono::milliseconds markDuration{500};
    /// How long the ripple of a press takes to spread.
    static constexpr std::chrono::milliseconds rippleDuration{500};

    /// Shows the current status and text of the flow. A host that follows them may destroy the button.
    virtual void showClickStatus() = 0;
    /// Notifies the host of a changed status. The host may destroy the button meanwhile.
    virtual void clickStatusHasChanged(QVClickStatus status) = 0;
};
