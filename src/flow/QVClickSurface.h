#pragma once

#include "flow/QVClickStatus.h"
#include "flow/QVModeSurface.h"

/// What the flow of a click button needs of the button on screen.
class QVClickSurface : public QVModeSurface
{
public:
    /// Shows the status and the text that the flow has now.
    virtual void showClickStatus() = 0;
    /// Tells the host of another status; it may destroy the button in answer.
    virtual void clickStatusHasChanged(QVClickStatus status) = 0;
};
