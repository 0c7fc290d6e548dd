#pragma once

#include "flow/QVRenderDrawPointModel.h"
#include "platform/QuarvoCoreExport.h"

#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QString>

#include <vector>

/// The data of a stroke: the reported positions, those that are kept, and the texts for the services.
///
/// It accepts any position: values that cannot be encoded are replaced by the nearest ones that can.
class QUARVO_CORE_EXPORT QVRenderTrace
{
public:
    /// A position is kept only if it is at least this far from the last kept one, on one axis or both.
    static constexpr double screeningDistance = 5.0;

    /// Sets the origin and the scale of the picture units, in the coordinates of the positions: the top left
    /// corner and the width of \a frame.
    void setFrame(const QRectF &frame) { m_frame = frame; }
    [[nodiscard]] QRectF frame() const { return m_frame; }
    /// The time at which the stroke began, in seconds since 1970.
    void setPanGestureStartTime(double time) { m_panGestureStartTime = time; }
    [[nodiscard]] double panGestureStartTime() const { return m_panGestureStartTime; }

    /// Adds a reported position and its time, in seconds since 1970.
    void handlePanGesturePoint(QPointF point, double panTime);
    void resetDataSource();

    [[nodiscard]] const std::vector<QPointF> &originalRenderPoints() const { return m_originalRenderPoints; }
    [[nodiscard]] const std::vector<QPointF> &screeningRenderPoints() const
    {
        return m_screeningRenderPoints;
    }
    [[nodiscard]] const std::vector<QVRenderDrawPointModel> &renderSource() const { return m_renderSource; }

    /// Whether the stroke is neither too short nor too long for a service.
    [[nodiscard]] bool isAcceptable() const;

    /// The trace for the main service: all x, then all y, then all times.
    [[nodiscard]] QString getRenderSource_v() const;
    /// The time of the last kept point, in milliseconds. Null if there is none.
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
