#pragma once

#include <Quarvo/QuarvoExport.h>

#include <QDebug>
#include <QMetaType>
#include <QObject>
#include <QString>
#include <QVariantMap>

/// Why something failed, ready to be shown.
///
/// The domain is the message for the user, in the language in force when the failure happened; the
/// code is one of QVError::Code, or the number of a refusal that this version does not know. The extra
/// information holds "QVCustonErrorKey" when the service itself refused.
///
/// \code
/// connect(&m_verification, &QVClickManager::failed, this, [this](const QVError &error) {
///     if (error.code() == QVError::NotConnected)
///         showOffline();
/// });
/// \endcode
class QUARVO_EXPORT QVError
{
    Q_GADGET
    Q_PROPERTY(QString domain READ domain)
    Q_PROPERTY(qint64 code READ code)
    Q_PROPERTY(QVariantMap userInfo READ userInfo)

public:
    /// What a failure means. The numbers are those of the service and of the platform, and stay the same.
    enum Code : qint64 {
        UnexpectedAnswer = 0,       ///< The answer is JSON, but not an answer of the service.
        AccessDenied = 101,         ///< The service does not accept the verification id.
        RefreshTooFast = 105,       ///< New pictures were asked for too fast.
        TooManyRefreshes = 106,     ///< New pictures were asked for too often.
        TooManyAttempts = 315,      ///< Too many attempts came from this device or address.
        Expired = 1002,             ///< The picture was answered too late, or twice.
        OtherFailure = -1,          ///< Anything that has no other code, such as an answer that is too large.
        BadAddress = -1000,         ///< An address is malformed, or names no host.
        TimedOut = -1001,           ///< No answer in time, or the attempt took longer than the host allows.
        UnsupportedAddress = -1002, ///< An address is neither http nor https, or empty.
        HostNotFound = -1003,       ///< The server's name is not known.
        CannotConnect = -1004,      ///< Nobody listens at the address.
        ConnectionLost = -1005,     ///< The connection ended before the answer was there.
        NotConnected = -1009,       ///< The machine has no network.
        TlsFailed = -1200,          ///< The connection could not be secured.
        NotJson = 3840,             ///< The answer is not JSON.
        PictureNotLoaded = 10000,   ///< The picture is missing, is too large, or cannot be decoded.
        CannotBeShown = 10001,      ///< The user has to draw, but the picture cannot be shown.
    };
    Q_ENUM(Code)

    /// An error without a message, with code 0.
    QVError() = default;
    /// An error with the message \a domain, which is shown as it is.
    explicit QVError(QString domain, qint64 code = 0, QVariantMap userInfo = {});

    /// The message for the user.
    [[nodiscard]] QString domain() const { return m_domain; }
    /// What went wrong: one of Code, or an unknown number from the service.
    [[nodiscard]] qint64 code() const { return m_code; }
    /// Further information; contains "QVCustonErrorKey" if the service itself refused.
    [[nodiscard]] QVariantMap userInfo() const { return m_userInfo; }

    /// Compares domain, code and userInfo.
    friend bool operator==(const QVError &a, const QVError &b)
    {
        return a.m_domain == b.m_domain && a.m_code == b.m_code && a.m_userInfo == b.m_userInfo;
    }
    // C++17 does not derive it from operator==.
    friend bool operator!=(const QVError &a, const QVError &b) { return !(a == b); }

    /// Prints the name of the code, the code and the message.
    friend QDebug operator<<(QDebug debug, const QVError &error)
    {
        error.print(debug);
        return debug;
    }

private:
    void print(QDebug debug) const;

    QString m_domain;
    qint64 m_code = 0;
    QVariantMap m_userInfo;
};

Q_DECLARE_METATYPE(QVError)
