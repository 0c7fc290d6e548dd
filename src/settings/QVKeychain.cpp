#include "settings/QVKeychain.h"

#include "settings/QVKeychainQuery.h"

namespace {

QVKeychainQuery queryFor(const QString &service, const QString &account)
{
    QVKeychainQuery query;
    query.setService(service);
    query.setAccount(account);
    return query;
}

} // namespace

QString QVKeychain::passwordForService(const QString &service, const QString &account, QVError *error)
{
    QVKeychainQuery query = queryFor(service, account);
    return query.fetch(error) ? query.password() : QString();
}

bool QVKeychain::setPassword(const QString &password, const QString &service, const QString &account,
                             QVError *error)
{
    QVKeychainQuery query = queryFor(service, account);
    query.setPassword(password);
    return query.save(error);
}

QByteArray QVKeychain::passwordDataForService(const QString &service, const QString &account, QVError *error)
{
    QVKeychainQuery query = queryFor(service, account);
    return query.fetch(error) ? query.passwordData() : QByteArray();
}

bool QVKeychain::setPasswordData(const QByteArray &data, const QString &service, const QString &account,
                                 QVError *error)
{
    QVKeychainQuery query = queryFor(service, account);
    query.setPasswordData(data);
    return query.save(error);
}

bool QVKeychain::deletePasswordForService(const QString &service, const QString &account, QVError *error)
{
    return queryFor(service, account).deleteItem(error);
}

std::optional<QList<QVSecureItem>> QVKeychain::allAccounts(QVError *error)
{
    return accountsForService(QString(), error);
}

std::optional<QList<QVSecureItem>> QVKeychain::accountsForService(const QString &service, QVError *error)
{
    return queryFor(service, QString()).fetchAll(error);
}

QString QVKeychain::accessibilityType()
{
    return QVKeychainQuery::accessibilityType();
}

void QVKeychain::setAccessibilityType(const QString &type)
{
    QVKeychainQuery::setAccessibilityType(type);
}
