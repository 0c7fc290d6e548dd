#include "service/QVResponseModel.h"

QVResponseModel::~QVResponseModel() = default;

bool QVResponseModel::responseSuccess() const
{
    return m_code == successCode;
}
