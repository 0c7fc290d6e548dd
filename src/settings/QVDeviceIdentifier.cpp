#include "settings/QVDeviceIdentifier.h"

#include "secrets/QVDesktopStore.h"
#include "settings/QVKeychainQuery.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSysInfo>
#include <QUuid>

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace {

// A namespace of the component's own, so that the result does not reveal the machine's id.
constexpr QUuid vendorNamespace(0x8f0c6c1e, 0x4b7d, 0x4f5a, 0x9a, 0x3e, 0x52, 0x1d, 0x7b, 0xc0, 0x64, 0xe9);

QString reversedDomain(const QString &domain)
{
    QStringList labels = domain.split(u'.', Qt::SkipEmptyParts);
    std::ranges::reverse(labels);
    return labels.join(u'.');
}

QUuid makeDeviceUuid()
{
    const QByteArray machine = QSysInfo::machineUniqueId();
    if (!machine.isEmpty())
        return QUuid::createUuidV5(vendorNamespace, machine);
    return QUuid::createUuid();
}

QVKeychainQuery storedIdentifier()
{
    QVKeychainQuery query;
    query.setService(QStringLiteral("com.quarvo.qv"));
    query.setAccount(QVDeviceIdentifier::bundleIdentifier());
    return query;
}

/// Reads the stored identifier, or stores a new one. \a identifier is valid whatever the status is.
QVSecureStatus fetchOrStore(QVSecureStore &store, QVKeychainQuery query, QString &identifier)
{
    const QVSecureStatus status = query.fetchFrom(store);
    identifier = query.password();
    if (!identifier.isEmpty())
        return status;
    identifier = QVDeviceIdentifier::vendorIdentifier();
    query.setPassword(identifier);
    return status == QVSecureStatus::NotAvailable ? status : query.saveIn(store);
}

} // namespace

QString QVDeviceIdentifier::getDeviceId()
{
    QString identifier;
    (void)fetchOrStore(QVDesktopStore::shared(), storedIdentifier(), identifier);
    return identifier;
}

void QVDeviceIdentifier::requestDeviceId(const std::function<void(const QString &)> &completion)
{
    using Waiting = std::vector<std::function<void(const QString &)>>;
    // Requests that come while the store is being asked share its answer. The store owns the list, so that it
    // is forgotten if the store is destroyed before it answers.
    static std::weak_ptr<Waiting> underWay;
    if (const auto waiting = underWay.lock())
        return waiting->push_back(completion);
    const auto waiting = std::make_shared<Waiting>(1, completion);
    underWay = waiting;
    const auto identifier = std::make_shared<QString>();
    QVDesktopStore::shared().post(
        [identifier, query = storedIdentifier()](QVSecureStore &store) {
            return fetchOrStore(store, query, *identifier);
        },
        [identifier, waiting](QVSecureStatus status) {
            underWay.reset();
            // A store that failed or was given up may still be writing to the text.
            const QString answer = status == QVSecureStatus::Success ? *identifier : vendorIdentifier();
            for (const auto &completed : std::exchange(*waiting, {}))
                completed(answer);
        });
}

QString QVDeviceIdentifier::bundleIdentifier()
{
    const QString domain = reversedDomain(QCoreApplication::organizationDomain());
    const QString name = QCoreApplication::applicationName();
    if (domain.isEmpty() || name.isEmpty())
        return QFileInfo(QCoreApplication::applicationFilePath()).fileName();
    return domain + u'.' + name;
}

QString QVDeviceIdentifier::vendorIdentifier()
{
    // Read once: the machine's id is read from a file, and the random one that replaces a missing id must not
    // change. Never destroyed: the store's thread may use it while the process ends.
    static const auto *const identifier = new QString(makeDeviceUuid().toString(QUuid::Id128));
    return *identifier;
}
