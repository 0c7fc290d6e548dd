#pragma once

#include "secrets/QVSecureItem.h"

#include <optional>

class QVError;

/// Passwords in the user's secure store, by service and account. Each operation reports why it failed through
/// its last argument, if that is given.
class QVKeychain
{
public:
    QVKeychain() = delete;

    /// The stored text; null if there is none.
    [[nodiscard]] static QString passwordForService(const QString &service, const QString &account,
                                                    QVError *error = nullptr);
    static bool setPassword(const QString &password, const QString &service, const QString &account,
                            QVError *error = nullptr);

    /// The stored bytes; null if there are none.
    [[nodiscard]] static QByteArray passwordDataForService(const QString &service, const QString &account,
                                                           QVError *error = nullptr);
    static bool setPasswordData(const QByteArray &data, const QString &service, const QString &account,
                                QVError *error = nullptr);

    static bool deletePasswordForService(const QString &service, const QString &account,
                                         QVError *error = nullptr);

    /// The stored items, without the passwords; empty if there are none or the store failed.
    [[nodiscard]] static std::optional<QList<QVSecureItem>> allAccounts(QVError *error = nullptr);
    [[nodiscard]] static std::optional<QList<QVSecureItem>> accountsForService(const QString &service,
                                                                               QVError *error = nullptr);

    /// When stored passwords may be read, in the store's own terms. Null leaves that to the store.
    [[nodiscard]] static QString accessibilityType();
    static void setAccessibilityType(const QString &type);
};
