#pragma once

#include <Quarvo/QuarvoExport.h>

#include <QSharedDataPointer>
#include <QString>

class QVServiceAddressesPrivate;

/// The addresses of the captcha service. A new value has the addresses chosen when the library was built. A
/// host changes those that differ and passes the value to QVSDKManager::setServiceAddresses().
///
/// Hosts are given with their scheme and without a slash at the end: "https://api.quarvo.example". They are
/// not checked: a request to a wrong address fails. Different values may be used on different threads.
///
/// \code
/// QVServiceAddresses addresses;
/// addresses.setApiHost(QStringLiteral("https://captcha.example.org"));
/// QVSDKManager::setServiceAddresses(addresses);
/// \endcode
class QUARVO_EXPORT QVServiceAddresses
{
public:
    QVServiceAddresses();
    /// Copies the addresses of \a other.
    QVServiceAddresses(const QVServiceAddresses &other);
    /// Copies the addresses of \a other.
    QVServiceAddresses &operator=(const QVServiceAddresses &other);
    ~QVServiceAddresses();

    /// A service on one host, such as the local one: apiHost(), downloadHost() and imageHost() are \a host,
    /// the others are as in a new value.
    ///
    /// \code
    /// QVSDKManager::setServiceAddresses(QVServiceAddresses::at(QStringLiteral("http://127.0.0.1:8300")));
    /// \endcode
    [[nodiscard]] static QVServiceAddresses at(const QString &host);

    /// Host that answers configuration requests. Its answers name the host for all further requests.
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

    /// Base address of pictures, used if the service names none.
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
