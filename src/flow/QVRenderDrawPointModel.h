#pragma once

#include <QString>

/// One point of a trace: its position in picture units, and its time in milliseconds after the start.
class QVRenderDrawPointModel
{
public:
    /// Truncates all three toward zero; a negative time becomes 0.
    [[nodiscard]] static QVRenderDrawPointModel modelWithPointX(double pointX, double pointY,
                                                                double changedTime);

    [[nodiscard]] qint64 pointX() const { return m_pointX; }
    void setPointX(qint64 pointX) { m_pointX = pointX; }
    [[nodiscard]] qint64 pointY() const { return m_pointY; }
    void setPointY(qint64 pointY) { m_pointY = pointY; }
    [[nodiscard]] quint64 pointTimeInterval() const { return m_pointTimeInterval; }
    void setPointTimeInterval(quint64 interval) { m_pointTimeInterval = interval; }

    [[nodiscard]] QString convertPointXTo20() const;
    [[nodiscard]] QString convertPointYTo20() const;
    [[nodiscard]] QString convertPointTimeIntervalTo20() const;

private:
    qint64 m_pointX = 0;
    qint64 m_pointY = 0;
    quint64 m_pointTimeInterval = 0;
};
