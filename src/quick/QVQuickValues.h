#pragma once

#include "flow/QVClickStatus.h"
#include "flow/QVCloseReason.h"
#include "platform/QVError.h"
#include "settings/QVServiceAddresses.h"

#include <QUrl>
#include <QtQml/qqmlregistration.h>

/// The address of one of the module's own files.
[[nodiscard]] inline QUrl qv_moduleFile(const QString &name)
{
    return QUrl(QStringLiteral("qrc:/qt-project.org/imports/Quarvo/qml/") + name);
}

/// A text of QVIdentity as QML sets it: an empty one stands for that of the process.
[[nodiscard]] inline QString qv_ownText(const QString &text)
{
    return text.isEmpty() ? QString() : text;
}

/// An error as QML has it: `error.code === VerifyError.TimedOut`, `error.domain` is the text for the user.
class QVQuickError
{
    Q_GADGET
    QML_VALUE_TYPE(verifyError)
    Q_PROPERTY(QString domain READ domain CONSTANT)
    Q_PROPERTY(int code READ code CONSTANT)
    Q_PROPERTY(QVariantMap userInfo READ userInfo CONSTANT)

public:
    QVQuickError() = default;
    explicit QVQuickError(QVError error)
        : m_error(std::move(error))
    {
    }

    [[nodiscard]] const QVError &error() const { return m_error; }
    [[nodiscard]] QString domain() const { return m_error.domain(); }
    [[nodiscard]] int code() const { return static_cast<int>(m_error.code()); }
    [[nodiscard]] QVariantMap userInfo() const { return m_error.userInfo(); }

private:
    QVError m_error;
};

/// Where the service lives, each address as in QVServiceAddresses.
class QVQuickAddresses : public QVServiceAddresses
{
    Q_GADGET
    QML_VALUE_TYPE(serviceAddresses)
    Q_PROPERTY(QString apiHost READ apiHost WRITE setApiHost)
    Q_PROPERTY(QString downloadHost READ downloadHost WRITE setDownloadHost)
    Q_PROPERTY(QString imageHost READ imageHost WRITE setImageHost)
    Q_PROPERTY(QString cdn READ cdn WRITE setCdn)
    Q_PROPERTY(QString helpPage READ helpPage WRITE setHelpPage)
    Q_PROPERTY(QString outageHelpPage READ outageHelpPage WRITE setOutageHelpPage)

public:
    QVQuickAddresses() = default;
    explicit QVQuickAddresses(const QVServiceAddresses &addresses)
        : QVServiceAddresses(addresses)
    {
    }
};

/// Names the codes of a verifyError.
namespace QVQuickErrorCode {
Q_NAMESPACE
QML_NAMED_ELEMENT(VerifyError)

/// See QVError::Code.
enum Code {
    UnexpectedAnswer = QVError::UnexpectedAnswer,
    AccessDenied = QVError::AccessDenied,
    RefreshTooFast = QVError::RefreshTooFast,
    TooManyRefreshes = QVError::TooManyRefreshes,
    TooManyAttempts = QVError::TooManyAttempts,
    Expired = QVError::Expired,
    OtherFailure = QVError::OtherFailure,
    BadAddress = QVError::BadAddress,
    TimedOut = QVError::TimedOut,
    UnsupportedAddress = QVError::UnsupportedAddress,
    HostNotFound = QVError::HostNotFound,
    CannotConnect = QVError::CannotConnect,
    ConnectionLost = QVError::ConnectionLost,
    NotConnected = QVError::NotConnected,
    TlsFailed = QVError::TlsFailed,
    NotJson = QVError::NotJson,
    PictureNotLoaded = QVError::PictureNotLoaded,
    CannotBeShown = QVError::CannotBeShown,
};
Q_ENUM_NS(Code)

} // namespace QVQuickErrorCode

/// How far a VerifyButton has come.
namespace QVQuickStatus {
Q_NAMESPACE
QML_NAMED_ELEMENT(VerifyStatus)

/// See QVClick::Status.
enum Status {
    Normal = QVClickStatusNormal,
    Touching = QVClickStatusTouching,
    Verifying = QVClickStatusVerifying,
    Drawing = QVClickStatusDrawing,
    Passed = QVClickStatusPassed,
    Failed = QVClickStatusFailed,
};
Q_ENUM_NS(Status)

} // namespace QVQuickStatus

/// Why an attempt ended without a result.
namespace QVQuickCloseReason {
Q_NAMESPACE
QML_NAMED_ELEMENT(CloseReason)

/// See QVClose::Reason.
enum Reason {
    User = int(QVCloseReason::User),
    HostReset = int(QVCloseReason::HostReset),
    WindowGone = int(QVCloseReason::WindowGone),
    Replaced = int(QVCloseReason::Replaced),
};
Q_ENUM_NS(Reason)

} // namespace QVQuickCloseReason
