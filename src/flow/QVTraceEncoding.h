#pragma once

#include <QPointF>
#include <QSizeF>
#include <QString>

/// The largest number the encoding can write.
inline constexpr quint64 traceLargestNumber = 159999;

/// \a number as three digits of the service's own alphabet. Throws std::out_of_range above the
/// largest number.
[[nodiscard]] QString convertTo20(quint64 number);

/// The cell of a 4 by 4 grid as one hexadecimal digit; what lies outside counts as the last column or
/// row, on whichever side it lies.
[[nodiscard]] QString convertTo16X(qint64 x, qint64 y);
/// The cell in which (\a x, \a y) lies when \a size is divided into 4 by 4 cells.
[[nodiscard]] QString converTo16WithSize(QSizeF size, double x, double y);

[[nodiscard]] double areaFromPointA(QPointF pointA, QPointF pointB, QPointF pointC);

/// Truncates toward zero; not-a-number becomes 0 and what does not fit the nearest number that does.
[[nodiscard]] qint64 qv_truncated(double value);
