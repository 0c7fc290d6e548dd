#include "flow/QVRenderTrace.h"

#include "flow/QVTraceCorners.h"
#include "flow/QVTraceEncoding.h"

#include <QLoggingCategory>

#include <algorithm>
#include <cmath>

namespace {

// Debug messages are off by default, so that they do not fill the log of the host.
Q_LOGGING_CATEGORY(logDraw, "quarvo.draw", QtInfoMsg)

constexpr double pictureWidth = 400.0;
constexpr double pictureHeight = 230.0;
constexpr double longestTrace = 8000.0;
constexpr double millisecondsPerSecond = 1000.0;

QPointF clampedPoint(QPointF point)
{
    // In this order NaN becomes 0, too.
    return {std::max(0.0, point.x()), std::max(0.0, point.y())};
}

bool isFarEnough(QPointF from, QPointF to)
{
    return std::abs(from.x() - to.x()) >= QVRenderTrace::screeningDistance ||
           std::abs(from.y() - to.y()) >= QVRenderTrace::screeningDistance;
}

double encodable(double value)
{
    return value > 0 ? std::min(value, static_cast<double>(traceLargestNumber)) : 0.0;
}

} // namespace

void QVRenderTrace::handlePanGesturePoint(QPointF point, double panTime)
{
    const QPointF position = clampedPoint(point);
    m_originalRenderPoints.push_back(position);
    const double milliseconds = (panTime - m_panGestureStartTime) * millisecondsPerSecond;
    if (!m_screeningRenderPoints.empty()) {
        if (!isFarEnough(m_screeningRenderPoints.back(), position) || !(milliseconds < longestTrace))
            return;
    }
    m_screeningRenderPoints.push_back(position);
    addRenderSource(position, milliseconds);
}

void QVRenderTrace::addRenderSource(QPointF point, double changeTime)
{
    // The vertical factor differs from the horizontal one: the service expects 230 units for the view's
    // width. The order of the operations matters, since the result is truncated.
    const double width = m_frame.width();
    const double height = m_frame.height();
    const double scaledHeight = pictureHeight * height / width;
    const double x = (point.x() - m_frame.x()) * (pictureWidth / width);
    const double y = (point.y() - m_frame.y()) * (scaledHeight / height);
    m_renderSource.push_back(
        QVRenderDrawPointModel::modelWithPointX(encodable(x), encodable(y), encodable(changeTime)));
}

void QVRenderTrace::resetDataSource()
{
    m_originalRenderPoints.clear();
    m_screeningRenderPoints.clear();
    m_renderSource.clear();
}

bool QVRenderTrace::isAcceptable() const
{
    constexpr std::size_t fewest = 10;
    constexpr std::size_t most = 80;
    return m_renderSource.size() >= fewest && m_renderSource.size() <= most;
}

QString QVRenderTrace::getRenderSource_v() const
{
    QString columns;
    QString rows;
    QString times;
    for (const QVRenderDrawPointModel &point : m_renderSource) {
        columns += point.convertPointXTo20();
        rows += point.convertPointYTo20();
        times += point.convertPointTimeIntervalTo20();
    }
    qCDebug(logDraw, "%lld %lld %lld", qint64(columns.size()), qint64(rows.size()), qint64(times.size()));
    return columns + rows + times;
}

QString QVRenderTrace::getRender_drawtime() const
{
    return m_renderSource.empty() ? QString() : QString::number(m_renderSource.back().pointTimeInterval());
}

QString QVRenderTrace::getRenderOutage_v(const QRectF &imageFrame) const
{
    if (m_screeningRenderPoints.empty())
        return {};
    QString v;
    for (const QPointF corner : qv_traceCorners(m_screeningRenderPoints)) {
        const QPointF inPicture = corner - imageFrame.topLeft();
        v += converTo16WithSize(imageFrame.size(), inPicture.x(), inPicture.y());
    }
    return v;
}
