#include "settings/QVServiceAddresses.h"

#include "QVBuildChoices.h"

#include <QSharedData>

class QVServiceAddressesPrivate : public QSharedData
{
public:
    bool operator==(const QVServiceAddressesPrivate &other) const
    {
        return apiHost == other.apiHost && downloadHost == other.downloadHost &&
               imageHost == other.imageHost && cdn == other.cdn && helpPage == other.helpPage &&
               outageHelpPage == other.outageHelpPage;
    }

    QString apiHost = QVBuildChoices::apiHost.toString();
    QString downloadHost = QVBuildChoices::downloadHost.toString();
    QString imageHost = QVBuildChoices::imageHost.toString();
    QString cdn = QVBuildChoices::cdn.toString();
    QString helpPage = QVBuildChoices::helpPage.toString();
    QString outageHelpPage = QVBuildChoices::outageHelpPage.toString();
};

QVServiceAddresses::QVServiceAddresses()
    : d(new QVServiceAddressesPrivate)
{
}

QVServiceAddresses::QVServiceAddresses(const QVServiceAddresses &other) = default;
QVServiceAddresses &QVServiceAddresses::operator=(const QVServiceAddresses &other) = default;
QVServiceAddresses::~QVServiceAddresses() = default;

QVServiceAddresses QVServiceAddresses::at(const QString &host)
{
    QVServiceAddresses addresses;
    addresses.setApiHost(host);
    addresses.setDownloadHost(host);
    addresses.setImageHost(host);
    return addresses;
}

QString QVServiceAddresses::apiHost() const
{
    return d->apiHost;
}

void QVServiceAddresses::setApiHost(const QString &host)
{
    d->apiHost = host;
}

QString QVServiceAddresses::downloadHost() const
{
    return d->downloadHost;
}

void QVServiceAddresses::setDownloadHost(const QString &host)
{
    d->downloadHost = host;
}

QString QVServiceAddresses::imageHost() const
{
    return d->imageHost;
}

void QVServiceAddresses::setImageHost(const QString &host)
{
    d->imageHost = host;
}

QString QVServiceAddresses::cdn() const
{
    return d->cdn;
}

void QVServiceAddresses::setCdn(const QString &address)
{
    d->cdn = address;
}

QString QVServiceAddresses::helpPage() const
{
    return d->helpPage;
}

void QVServiceAddresses::setHelpPage(const QString &address)
{
    d->helpPage = address;
}

QString QVServiceAddresses::outageHelpPage() const
{
    return d->outageHelpPage;
}

void QVServiceAddresses::setOutageHelpPage(const QString &address)
{
    d->outageHelpPage = address;
}

bool QVServiceAddresses::operator==(const QVServiceAddresses &other) const
{
    return *d == *other.d;
}
