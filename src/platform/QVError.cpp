#include "platform/QVError.h"

#include <utility>

QVError::QVError(QString domain, qint64 code, QVariantMap userInfo)
    : m_domain(std::move(domain))
    , m_code(code)
    , m_userInfo(std::move(userInfo))
{
}
