#pragma once

#include "platform/QVDelegate.h"

/// Receives the events of the picture's error bar.
class QVRenderDrawImageViewDelegate : public QVDelegate
{
public:
    /// The user has tapped the error bar. It stays up.
    virtual void renderDrawImageViewErrorDidClickedAction() {}
    /// An error bar that cannot be tapped has disappeared by itself.
    virtual void renderDrawImageViewHiddenDelayErrorCompleted() {}
};
