#pragma once

#include "secrets/QVSecureItem.h"

#include <optional>

class QVError;

/// Passwords in the user's secure store, by service and account. Each operation can also say, through
/// its last argument, why it failed.
class QVKeychain
{
public:
    QVKeychain() = delete;

    /// The stored text, null where there is none.
    [[nodiscard]] static QString passwordForService(const QString &service, const QString &account,
                                                    QVError *error = nullptr);
    static bool setPassword(const QString &password, const QString &service, const QString &account,
                            QVError *error = nullptr);

    /// The stored bytes, null where there are none.
    [[nodiscard]] static QByteArray passwordDataForService(const QString &service, const QString &account,
                                                           QVError *error = nullptr);
    static bool setPasswordData(const QByteArray &data, const QString &service, const QString &account,
                                QVError *error = nullptr);

    static bool deletePasswordForService(const QString &service, const QString &account,
                                         QVError *error = nullptr);

    /// What is stored, without the passwords; absent where nothing is or the store failed.
    [[nodiscard]] static std::optional<QList<QVSecureItem>> allAccounts(QVError *error = nullptr);
    [[nodiscard]] static std::optional<QList<QVSecureItem>> accountsForService(const QString &service,
                                                                               QVError *error = nullptr);

    /// When stored passwords may be read, in the store's own words; null leaves that to the store.
    [[nodiscard]] static QString accessibilityType();
    static void setAccessibilityType(const QString &type);
};
