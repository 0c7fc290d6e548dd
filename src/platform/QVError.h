#pragma once

#include <Quarvo/QuarvoExport.h>

#include <QMetaType>
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
public:
    QVError() = default;
    explicit QVError(QString domain, qint64 code = 0, QVariantMap userInfo = {});

    [[nodiscard]] QString domain() const { return m_domain; }
    [[nodiscard]] qint64 code() const { return m_code; }
    [[nodiscard]] QVariantMap userInfo() const { return m_userInfo; }

    friend bool operator==(const QVError &, const QVError &) = default;

private:
    QString m_domain;
    qint64 m_code = 0;
    QVariantMap m_userInfo;
};

Q_DECLARE_METATYPE(QVError)
