#include "service/QVClickResponseModel.h"

QVClickResponseModel::QVClickResponseModel()
    : QVGetRefreshResponseModel(staticMetaObject)
{
}

bool QVClickResponseModel::responseSuccess() const
{
    return QVGetRefreshResponseModel::responseSuccess() || code() == QLatin1String("0104");
}
