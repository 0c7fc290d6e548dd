#pragma once

#include "layers/QVLayer.h"

/// Three dots in a row that pulse one after another.
class QVRenderDrawImageViewLoadingLayer final : public QVLayer
{
public:
    void startLoading();
    void stopLoading();
    /// Moves the dots to the middle of the current bounds.
    void centerDots();
};
