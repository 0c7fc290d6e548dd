#pragma once

#include "layers/QVLayer.h"

/// Three dots in a row that pulse one after another.
class QVRenderDrawImageViewLoadingLayer final : public QVLayer
{
public:
    void startLoading();
    void stopLoading();
    /// Puts the dots into the middle of the bounds, as they are now.
    void centerDots();
};
