#include "platform/QVError.h"

#include "platform/QVErrorName.h"

#include <QDebug>
#include <QMetaEnum>

#include <utility>

QVError::QVError(QString domain, qint64 code, QVariantMap userInfo)
    : m_domain(std::move(domain))
    , m_code(code)
    , m_userInfo(std::move(userInfo))
{
}

const char *qv_errorName(const QVError &error)
{
    const char *const name = QMetaEnum::fromType<QVError::Code>().valueToKey(static_cast<int>(error.code()));
    return name ? name : "the service refused";
}

void QVError::print(QDebug debug) const
{
    const QDebugStateSaver saver(debug);
    debug.nospace() << "QVError(" << qv_errorName(*this) << ", " << m_code << ", " << m_domain << ')';
}
