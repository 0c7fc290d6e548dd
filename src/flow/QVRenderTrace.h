#pragma once

#include "flow/QVRenderDrawPointModel.h"
#include "platform/QuarvoCoreExport.h"

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>

#include <vector>

/// The stroke as data: what was reported, what of it is kept, and the texts the services take for it.
///
/// Nothing a pointer can report makes it fail: whatever cannot be written in picture units is moved to
/// the nearest value that can.
class QUARVO_CORE_EXPORT QVRenderTrace
{
public:
    /// A position is kept only this far, on one axis at least, from the last kept one.
    static constexpr double screeningDistance = 5.0;

    /// What the picture units are counted from, and by whose width: in the coordinates of the positions.
    void setFrame(const QRectF &frame) { m_frame = frame; }
    [[nodiscard]] QRectF frame() const { return m_frame; }
    /// Seconds since 1970 at which the stroke began.
    void setPanGestureStartTime(double time) { m_panGestureStartTime = time; }
    [[nodiscard]] double panGestureStartTime() const { return m_panGestureStartTime; }

    /// Takes a reported position and the time, in seconds since 1970, at which it was read.
    void handlePanGesturePoint(QPointF point, double panTime);
    void resetDataSource();

    [[nodiscard]] const std::vector<QPointF> &originalRenderPoints() const { return m_originalRenderPoints; }
    [[nodiscard]] const std::vector<QPointF> &screeningRenderPoints() const
    {
        return m_screeningRenderPoints;
    }
    [[nodiscard]] const std::vector<QVRenderDrawPointModel> &renderSource() const { return m_renderSource; }

    /// Whether the stroke is long enough, and not too long, to be judged by a service.
    [[nodiscard]] bool isAcceptable() const;

    /// The trace for the main service: all x, then all y, then all times.
    [[nodiscard]] QString getRenderSource_v() const;
    /// Milliseconds of the last kept point; absent when nothing was kept.
    [[nodiscard]] QString getRender_drawtime() const;
    /// The trace for the outage service: the grid cells of the stroke's ends and two sharpest corners.
    [[nodiscard]] QString getRenderOutage_v(const QRectF &imageFrame) const;

private:
    void addRenderSource(QPointF point, double changeTime);

    QRectF m_frame;
    double m_panGestureStartTime = 0;
    std::vector<QPointF> m_originalRenderPoints;
    std::vector<QPointF> m_screeningRenderPoints;
    std::vector<QVRenderDrawPointModel> m_renderSource;
};
