#include "demo/DemoServices.h"

#include "sandbox/QVSandbox.h"

#include <Quarvo/Quarvo.h>

namespace {

/// The scheme, host and port of \a address. If the command line names a service, this is used for the
/// addresses that it does not name, instead of the sandbox in this process.
QString origin(const QString &address)
{
    return QUrl(address).adjusted(QUrl::RemovePath | QUrl::RemoveQuery | QUrl::RemoveFragment).toString();
}

QString firstGiven(std::initializer_list<QString> addresses)
{
    for (const QString &address : addresses) {
        if (!address.isNull())
            return address;
    }
    return {};
}

} // namespace

DemoServices::DemoServices(std::optional<quint64> seed)
    : m_seed(seed)
{
}

DemoServices::~DemoServices() = default;

bool DemoServices::start(const DemoOptions &options, QString &problem)
{
    const bool isElsewhere = !options.apiHost.isNull() || !options.downloadHost.isNull();
    if (!isElsewhere && !startSandbox(problem))
        return false;
    const QVSandboxAddresses local = m_sandbox ? m_sandbox->addresses() : QVSandboxAddresses();
    const bool isOutageId = options.vid == QLatin1String("test-outage");
    const QString localDownload = isOutageId ? local.outageDownloadHost : local.downloadHost;
    const QString given = firstGiven({options.apiHost, options.downloadHost});
    const QString elsewhere = given.isNull() ? QString() : origin(given);
    const QString outageServer =
        firstGiven({options.outageServer, isElsewhere ? QString() : local.outageServer});

    QVServiceAddresses addresses;
    addresses.setApiHost(firstGiven({options.apiHost, isElsewhere ? elsewhere : local.apiHost}));
    addresses.setDownloadHost(firstGiven({options.downloadHost, isElsewhere ? elsewhere : localDownload}));
    addresses.setCdn(firstGiven({options.cdn, isElsewhere ? elsewhere : local.cdn}));
    // The pictures of an outage server are on the same host, unless another one is given.
    addresses.setImageHost(firstGiven(
        {options.imageHost, options.outageServer.isNull() ? QString() : origin(options.outageServer),
         isElsewhere ? elsewhere : local.imageHost}));
    QVSDKManager::setServiceAddresses(addresses);
    QVSDKManager::setOutageServer(outageServer);
    if (!options.outageServer.isNull())
        m_solutionServices.append(QUrl(options.outageServer));
    m_solutionServices.append(QUrl(addresses.apiHost()));
    return true;
}

bool DemoServices::startSandbox(QString &problem)
{
    QVSandboxOptions options;
    options.seed = m_seed;
    m_sandbox = std::make_unique<QVSandbox>(std::move(options));
    if (m_sandbox->listen())
        return true;
    problem = QStringLiteral("the local service cannot start: ") + m_sandbox->errorString();
    return false;
}
