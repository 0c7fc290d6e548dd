#include "settings/QVDeviceIdentifier.h"

#include "settings/QVKeychain.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSysInfo>
#include <QUuid>

#include <algorithm>

namespace {

// Ours alone, so that the result tells nobody the machine's own id.
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
    // Kept: reading the machine's id takes a file, and what stands in for it must not change.
    static const QString identifier = makeDeviceUuid().toString(QUuid::Id128);
    return identifier;
}
