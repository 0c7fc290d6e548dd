#pragma once

#include <QString>

/// The verification id and the scene of one front-end. A null text means that of the process.
struct QVIdentity
{
    QString ownVid;
    QString ownScene;

    [[nodiscard]] QString vid() const;
    [[nodiscard]] QString scene() const;
};
