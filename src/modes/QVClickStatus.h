#pragma once

#include <QtGlobal>

/// How far a click verification has come.
enum QVClickStatus : qint64 {
    QVClickStatusNormal = 0,
    QVClickStatusTouching = 1,
    QVClickStatusVerifying = 2,
    QVClickStatusDrawing = 3,
    QVClickStatusPassed = 4,
    QVClickStatusFailed = 5,
};
