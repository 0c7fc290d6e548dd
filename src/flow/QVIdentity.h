#pragma once

#include <QString>

/// Who asks for a verification: the id and the scene of one front-end. A null text stands for the one
/// that holds for the whole process.
struct QVIdentity
{
    QString ownVid;
    QString ownScene;

    [[nodiscard]] QString vid() const;
    [[nodiscard]] QString scene() const;
};
