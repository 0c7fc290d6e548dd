#pragma once

#include <QString>

/// A text that tells this installation of this host apart from all others, made once and then kept in
/// the user's secure store.
class QVDeviceIdentifier
{
public:
    QVDeviceIdentifier() = delete;

    /// The stored identifier as it is, else a new one, which is stored if the store lets us. Asks the
    /// store each time.
    [[nodiscard]] static QString getDeviceId();

    /// The host's name in reverse-domain form, "example.quarvo.demo".
    [[nodiscard]] static QString bundleIdentifier();
    /// The device as this component's vendor knows it: 32 lower-case hexadecimal digits.
    [[nodiscard]] static QString vendorIdentifier();
};
