#pragma once

#include <Quarvo/QuarvoExport.h>

#include <QSharedDataPointer>
#include <QString>

class QVServiceAddressesPrivate;

/// Where the captcha service lives. A new value holds the addresses chosen when the library was
/// built; a host changes those that differ and hands the value to QVSDKManager.
///
/// Hosts are given with their scheme and without a slash at the end, "https://api.quarvo.example".
class QUARVO_EXPORT QVServiceAddresses
{
public:
    QVServiceAddresses();
    QVServiceAddresses(const QVServiceAddresses &other);
    QVServiceAddresses &operator=(const QVServiceAddresses &other);
    ~QVServiceAddresses();

    /// Host that answers configuration requests and names the host for all further ones.
    [[nodiscard]] QString apiHost() const;
    void setApiHost(const QString &host);

    /// Host of the file that switches to outage mode.
    [[nodiscard]] QString downloadHost() const;
    void setDownloadHost(const QString &host);

    /// Host of the pictures shown in outage mode.
    [[nodiscard]] QString imageHost() const;
    void setImageHost(const QString &host);

    /// Base address of pictures, used where the service names none.
    [[nodiscard]] QString cdn() const;
    void setCdn(const QString &address);

    /// Page that the help button opens.
    [[nodiscard]] QString helpPage() const;
    void setHelpPage(const QString &address);

    /// Page that the help button opens in outage mode.
    [[nodiscard]] QString outageHelpPage() const;
    void setOutageHelpPage(const QString &address);

    /// Compares all six addresses.
    [[nodiscard]] bool operator==(const QVServiceAddresses &other) const;

private:
    QSharedDataPointer<QVServiceAddressesPrivate> d;
};
