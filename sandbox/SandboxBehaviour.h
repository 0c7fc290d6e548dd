#pragma once

#include <QStringList>

/// What the service does for a verification id. Each id that begins with "test-" is for one case. For any
/// other id the user has to draw.
struct SandboxBehaviour
{
    /// If not empty, the code of the answer to every request.
    QString code;
    bool isCharacter = false;
    bool passesOnClick = false;
    bool neverAccepts = false;
    bool isSlow = false;
    bool isNotJson = false;
    bool breaksPictures = false;
    bool hasAdvertisement = false;
    bool hasGuide = false;

    [[nodiscard]] static SandboxBehaviour of(const QString &id);
    /// The ids that have a behaviour of their own, sorted.
    [[nodiscard]] static QStringList ids();
};
