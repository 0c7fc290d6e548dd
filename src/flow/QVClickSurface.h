#pragma once

#include "flow/QVClickStatus.h"
#include "flow/QVModeSurface.h"

/// The interface of QVClickFlow to the button on screen.
class QVClickSurface : public QVModeSurface
{
public:
    /// Shows the current status and text of the flow. A host that follows them may destroy the button.
    virtual void showClickStatus() = 0;
    /// Notifies the host of a changed status. The host may destroy the button meanwhile.
    virtual void clickStatusHasChanged(QVClickStatus status) = 0;
};
