#include "flow/QVRenderDrawPointModel.h"

#include "flow/QVTraceEncoding.h"

#include <algorithm>

QVRenderDrawPointModel QVRenderDrawPointModel::modelWithPointX(double pointX, double pointY,
                                                               double changedTime)
{
    QVRenderDrawPointModel model;
    model.m_pointX = qv_truncated(pointX);
    model.m_pointY = qv_truncated(pointY);
    model.m_pointTimeInterval = static_cast<quint64>(std::max<qint64>(qv_truncated(changedTime), 0));
    return model;
}

QString QVRenderDrawPointModel::convertPointXTo20() const
{
    return convertTo20(static_cast<quint64>(m_pointX));
}

QString QVRenderDrawPointModel::convertPointYTo20() const
{
    return convertTo20(static_cast<quint64>(m_pointY));
}

QString QVRenderDrawPointModel::convertPointTimeIntervalTo20() const
{
    return convertTo20(m_pointTimeInterval);
}
