#pragma once

#include <QString>

/// What the service does for a verification id. The ids that begin with "test-" each show one case;
/// any other id is asked to draw.
struct SandboxBehaviour
{
    /// Answered to every request when not empty.
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
};
