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
    /// Shares the addresses until one of the two is changed.
    QVServiceAddresses(const QVServiceAddresses &other);
    /// Takes over the addresses of \a other.
    QVServiceAddresses &operator=(const QVServiceAddresses &other);
    ~QVServiceAddresses();

    /// A service on one host, as the local one is: apiHost() and downloadHost() are \a host, the others are
    /// as in a new value. Example:
    /// \code
    /// QVSDKManager::setServiceAddresses(QVServiceAddresses::at(QStringLiteral("http://127.0.0.1:8300")));
    /// \endcode
    [[nodiscard]] static QVServiceAddresses at(const QString &host);

    /// Host that answers configuration requests and names the host for all further ones.
    [[nodiscard]] QString apiHost() const;
    /// Changes apiHost().
    void setApiHost(const QString &host);

    /// Host of the file that switches to outage mode.
    [[nodiscard]] QString downloadHost() const;
    /// Changes downloadHost().
    void setDownloadHost(const QString &host);

    /// Host of the pictures shown in outage mode.
    [[nodiscard]] QString imageHost() const;
    /// Changes imageHost().
    void setImageHost(const QString &host);

    /// Base address of pictures, used where the service names none.
    [[nodiscard]] QString cdn() const;
    /// Changes cdn().
    void setCdn(const QString &address);

    /// Page that the help button opens.
    [[nodiscard]] QString helpPage() const;
    /// Changes helpPage().
    void setHelpPage(const QString &address);

    /// Page that the help button opens in outage mode.
    [[nodiscard]] QString outageHelpPage() const;
    /// Changes outageHelpPage().
    void setOutageHelpPage(const QString &address);

    /// Compares all six addresses.
    [[nodiscard]] bool operator==(const QVServiceAddresses &other) const;

private:
    QSharedDataPointer<QVServiceAddressesPrivate> d;
};
