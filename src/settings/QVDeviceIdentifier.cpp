#include "settings/QVDeviceIdentifier.h"

#include "settings/QVKeychain.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSysInfo>
#include <QUuid>

#include <algorithm>

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

} // namespace

QString QVDeviceIdentifier::getDeviceId()
{
    const QString service = QStringLiteral("com.quarvo.qv");
    const QString account = bundleIdentifier();
    const QString stored = QVKeychain::passwordForService(service, account);
    if (!stored.isEmpty())
        return stored;
    const QString created = vendorIdentifier();
    QVKeychain::setPassword(created, service, account);
    return created;
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
    // change.
    static const QString identifier = makeDeviceUuid().toString(QUuid::Id128);
    return identifier;
}
