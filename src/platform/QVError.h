#pragma once

#include <Quarvo/QuarvoExport.h>

#include <QMetaType>
#include <QObject>
#include <QString>
#include <QVariantMap>

/// Why something failed, ready to be shown.
///
/// The domain is the message for the user, in the language in force when the failure happened; the
/// code is the service's own (101, 104, 1002 …) or the platform's (-1001 timed out, -1005
/// connection lost, 3840 not JSON …). The extra information holds "QVCustonErrorKey" when the
/// service itself refused.
class QUARVO_EXPORT QVError
{
    Q_GADGET
    Q_PROPERTY(QString domain READ domain)
    Q_PROPERTY(qint64 code READ code)
    Q_PROPERTY(QVariantMap userInfo READ userInfo)

public:
    /// No message, code 0.
    QVError() = default;
    /// An error as it is to be shown.
    explicit QVError(QString domain, qint64 code = 0, QVariantMap userInfo = {});

    /// The message for the user.
    [[nodiscard]] QString domain() const { return m_domain; }
    /// What went wrong, for the host.
    [[nodiscard]] qint64 code() const { return m_code; }
    /// What else is known.
    [[nodiscard]] QVariantMap userInfo() const { return m_userInfo; }

    /// Compares all three.
    friend bool operator==(const QVError &a, const QVError &b)
    {
        return a.m_domain == b.m_domain && a.m_code == b.m_code && a.m_userInfo == b.m_userInfo;
    }
    // C++17 does not make it from the one above.
    friend bool operator!=(const QVError &a, const QVError &b) { return !(a == b); }

private:
    QString m_domain;
    qint64 m_code = 0;
    QVariantMap m_userInfo;
};

Q_DECLARE_METATYPE(QVError)
