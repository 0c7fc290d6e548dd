#include "settings/QVUnavailableStore.h"

std::unique_ptr<QVSecureStore> QVSecureStore::create(std::chrono::milliseconds)
{
    return std::make_unique<QVUnavailableStore>();
}

QVSecureStore::Answer QVUnavailableStore::copyMatching(const QVSecureQuery &, Return)
{
    return {QVSecureStatus::NotAvailable, {}};
}

QVSecureStatus QVUnavailableStore::add(const QVSecureItem &)
{
    return QVSecureStatus::NotAvailable;
}

QVSecureStatus QVUnavailableStore::update(const QVSecureQuery &, const QByteArray &, const QString &)
{
    return QVSecureStatus::NotAvailable;
}

QVSecureStatus QVUnavailableStore::deleteMatching(const QVSecureQuery &)
{
    return QVSecureStatus::NotAvailable;
}
