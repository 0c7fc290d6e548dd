#pragma once

#include <QString>

#include <functional>

/// A text that identifies this installation of this host. It is made once and then kept in the user's secure
/// store.
class QVDeviceIdentifier
{
public:
    QVDeviceIdentifier() = delete;

    /// The stored identifier, unchanged. If there is none, the vendor identifier, which is stored if the
    /// store allows it. Each call asks the store, and waits for its answer.
    [[nodiscard]] static QString getDeviceId();
    /// Does the same without waiting. \a completion is called on the thread of the call, once, later or
    /// before this call returns.
    static void requestDeviceId(const std::function<void(const QString &)> &completion);

    /// The host's name in reverse-domain form, such as "example.quarvo.demo".
    [[nodiscard]] static QString bundleIdentifier();
    /// Identifies the device to this component's vendor: 32 lower-case hexadecimal digits.
    [[nodiscard]] static QString vendorIdentifier();
};
