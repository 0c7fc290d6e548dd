#include "settings/QVKeychainQuery.h"

#include "secrets/QVDesktopStore.h"
#include "settings/QVKeychainError.h"

#include <QCborValue>
#include <QStringDecoder>

namespace {

QString &accessibility()
{
    // Never destroyed: the store's thread may use it while the process ends.
    static auto *const type = new QString;
    return *type;
}

bool report(QVSecureStatus status, QVError *error)
{
    if (error)
        *error = qv_keychainError(status).value_or(QVError());
    return status == QVSecureStatus::Success;
}

} // namespace

QString QVKeychainQuery::accessibilityType()
{
    return accessibility();
}

void QVKeychainQuery::setAccessibilityType(const QString &type)
{
    accessibility() = type;
}

QString QVKeychainQuery::password() const
{
    if (m_passwordData.isNull())
        return {};
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(m_passwordData);
    if (decoder.hasError())
        return {};
    return text.isNull() ? QStringLiteral("") : text;
}

QVariant QVKeychainQuery::passwordObject() const
{
    // CBOR instead of QDataStream: stored data are not trusted, and the CBOR reader checks its bounds.
    QCborParserError error;
    const QCborValue value = QCborValue::fromCbor(m_passwordData, &error);
    return error.error.c == QCborError::NoError ? value.toVariant() : QVariant();
}

void QVKeychainQuery::setPasswordObject(const QVariant &object)
{
    m_passwordData = object.isValid() ? QCborValue::fromVariant(object).toCbor() : QByteArray();
}

bool QVKeychainQuery::save(QVError *error) const
{
    return report(saveIn(QVDesktopStore::shared()), error);
}

QVSecureStatus QVKeychainQuery::saveIn(QVSecureStore &store) const
{
    if (!namesAnItem() || m_passwordData.isNull())
        return QVSecureStatus::BadArguments;
    const QVSecureStatus found = store.copyMatching(query(), QVSecureStore::Return::Nothing).status;
    if (found == QVSecureStatus::Success)
        return store.update(query(), m_passwordData, accessibilityType());
    return found == QVSecureStatus::ItemNotFound ? store.add(newItem()) : found;
}

bool QVKeychainQuery::fetch(QVError *error)
{
    return report(fetchFrom(QVDesktopStore::shared()), error);
}

QVSecureStatus QVKeychainQuery::fetchFrom(QVSecureStore &store)
{
    if (!namesAnItem())
        return QVSecureStatus::BadArguments;
    const auto answer = store.copyMatching(query(), QVSecureStore::Return::Data);
    if (answer.status == QVSecureStatus::Success)
        m_passwordData = answer.items.value(0).data;
    return answer.status;
}

bool QVKeychainQuery::deleteItem(QVError *error) const
{
    const auto status =
        namesAnItem() ? QVDesktopStore::shared().deleteMatching(query()) : QVSecureStatus::BadArguments;
    return report(status, error);
}

std::optional<QList<QVSecureItem>> QVKeychainQuery::fetchAll(QVError *error) const
{
    auto answer = QVDesktopStore::shared().copyMatching(query(), QVSecureStore::Return::Attributes);
    if (!report(answer.status, error))
        return std::nullopt;
    return std::move(answer.items);
}

QVSecureQuery QVKeychainQuery::query() const
{
    return {m_service, m_account, m_accessGroup};
}

QVSecureItem QVKeychainQuery::newItem() const
{
    return {m_service, m_account, m_accessGroup, m_label, accessibilityType(), m_passwordData};
}
