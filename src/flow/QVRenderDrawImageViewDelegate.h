#pragma once

#include "platform/QVDelegate.h"

/// Hears what happens to the picture's error bar.
class QVRenderDrawImageViewDelegate : public QVDelegate
{
public:
    /// The user has tapped the error bar. It stays up.
    virtual void renderDrawImageViewErrorDidClickedAction() {}
    /// An error bar that cannot be tapped has gone by itself.
    virtual void renderDrawImageViewHiddenDelayErrorCompleted() {}
};
