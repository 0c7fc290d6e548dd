#include "service/QVGetRefreshResponseModel.h"

#include "service/QVServiceLog.h"

QVGetRefreshResponseModel::QVGetRefreshResponseModel()
    : QVGetRefreshResponseModel(staticMetaObject)
{
}

QVGetRefreshResponseModel::QVGetRefreshResponseModel(const QMetaObject &type)
    : m_handler(this)
    , m_className(type.className())
{
}

QVGetRefreshResponseModel::~QVGetRefreshResponseModel()
{
    endTimeDown();
    qCDebug(qv_serviceLog, "%s dealloc", m_className);
}

void QVGetRefreshResponseModel::startTimeDown()
{
    endTimeDown();
    m_handler.start();
}

void QVGetRefreshResponseModel::endTimeDown()
{
    // The countdown may be the last owner of the record.
    const auto alive = weak_from_this().lock();
    m_handler.end();
}

void QVGetRefreshResponseModel::getRefreshResponseTimeDownHandle()
{
    endTimeDown();
    // A copy, since the action may set another one.
    if (const auto fire = m_fireTimeDown)
        fire();
}
