#pragma once

#include "BenchClock.h"
#include "BenchRow.h"

#include <QJsonObject>
#include <QString>

#include <functional>

/// How this process was started.
struct PartOptions
{
    QJsonObject addresses;
    bool isShort = false;
    qint64 keyring = 0;

    [[nodiscard]] int rounds(int whole, int shortened) const { return isShort ? shortened : whole; }
};

inline constexpr double nanosecondsPerMicrosecond = 1e3;
inline constexpr double nanosecondsPerMillisecond = 1e6;

/// Hands a row to the driver.
void tellRow(const BenchRow &row);
/// Points the component at the sandbox, with a key chain that answers at once.
void configureService(const PartOptions &options, const QString &vid);
/// Turns the event loop until it is so; ends the process where that takes too long.
void turnUntil(const std::function<bool()> &condition);
/// Turns the event loop for a time.
void turnFor(int milliseconds);

void runAnimationPart(const PartOptions &options);
void runArtworkPart(const PartOptions &options);
void runCountPart(const PartOptions &options);
void runIdleButton(const PartOptions &options);
void runIdlePanel(const PartOptions &options);
void runIdlePopup(const PartOptions &options);
void runKeychainPart(const PartOptions &options);
void runMappingPart(const PartOptions &options);
void runPicturePart(const PartOptions &options);
void runStrokePart(const PartOptions &options);
void runTracePart(const PartOptions &options);
void runTransportPart(const PartOptions &options);
