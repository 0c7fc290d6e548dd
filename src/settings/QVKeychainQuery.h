#pragma once

#include "secrets/QVSecureItem.h"

#include <QVariant>

#include <optional>

class QVError;
class QVSecureStore;

/// Whether the query is about items that are synchronised between the user's devices. No key chain of this
/// platform synchronises any.
enum class QVSynchronizationMode { Any = 0, No = 1, Yes = 2 };

/// One operation on the secure store. Set the fields, then call the operation. It returns whether it
/// succeeded, and sets \a error, if that is given.
class QVKeychainQuery
{
public:
    /// See QVKeychain::accessibilityType(). Applies to every item that is stored.
    [[nodiscard]] static QString accessibilityType();
    static void setAccessibilityType(const QString &type);

    [[nodiscard]] QString service() const { return m_service; }
    void setService(const QString &service) { m_service = service; }

    [[nodiscard]] QString account() const { return m_account; }
    void setAccount(const QString &account) { m_account = account; }

    [[nodiscard]] QString label() const { return m_label; }
    void setLabel(const QString &label) { m_label = label; }

    [[nodiscard]] QString accessGroup() const { return m_accessGroup; }
    void setAccessGroup(const QString &accessGroup) { m_accessGroup = accessGroup; }

    [[nodiscard]] QVSynchronizationMode synchronizationMode() const { return m_synchronizationMode; }
    void setSynchronizationMode(QVSynchronizationMode mode) { m_synchronizationMode = mode; }

    [[nodiscard]] QByteArray passwordData() const { return m_passwordData; }
    void setPasswordData(const QByteArray &data) { m_passwordData = data; }

    /// The data as text; null if there are none or they are not UTF-8.
    [[nodiscard]] QString password() const;
    void setPassword(const QString &password) { m_passwordData = password.toUtf8(); }

    /// The data as a value that CBOR can hold; invalid if there are none or they are not CBOR.
    [[nodiscard]] QVariant passwordObject() const;
    void setPasswordObject(const QVariant &object);

    /// Stores the data in the item of this service and account, or in a new one if there is none.
    bool save(QVError *error = nullptr) const;
    /// Reads the data of the item of this service and account.
    [[nodiscard]] bool fetch(QVError *error = nullptr);
    /// Removes the item of this service and account.
    bool deleteItem(QVError *error = nullptr) const;
    /// All items that match the fields that are set, without their data.
    [[nodiscard]] std::optional<QList<QVSecureItem>> fetchAll(QVError *error = nullptr) const;

    /// As fetch() and save(), in \a store. For calls on the store's own thread.
    [[nodiscard]] QVSecureStatus fetchFrom(QVSecureStore &store);
    [[nodiscard]] QVSecureStatus saveIn(QVSecureStore &store) const;

private:
    [[nodiscard]] bool namesAnItem() const { return !m_service.isNull() && !m_account.isNull(); }
    [[nodiscard]] QVSecureQuery query() const;
    [[nodiscard]] QVSecureItem newItem() const;

    QString m_service;
    QString m_account;
    QString m_label;
    QString m_accessGroup;
    QVSynchronizationMode m_synchronizationMode = QVSynchronizationMode::Any;
    QByteArray m_passwordData;
};
