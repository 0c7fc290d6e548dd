#pragma once

#include <QPointF>
#include <QSizeF>
#include <QString>

/// The largest number that can be encoded.
inline constexpr quint64 traceLargestNumber = 159999;

/// \a number as three digits of the service's alphabet. Throws std::out_of_range if it is larger than
/// traceLargestNumber.
[[nodiscard]] QString convertTo20(quint64 number);

/// The cell of a 4 by 4 grid as one hexadecimal digit. A position outside counts as the last column or row,
/// even if it is left of or above the grid.
[[nodiscard]] QString convertTo16X(qint64 x, qint64 y);
/// The cell that contains (\a x, \a y) if \a size is divided into 4 by 4 cells.
[[nodiscard]] QString converTo16WithSize(QSizeF size, double x, double y);

[[nodiscard]] double areaFromPointA(QPointF pointA, QPointF pointB, QPointF pointC);

/// Truncates toward zero. NaN becomes 0. A value out of range becomes the nearest number in range.
[[nodiscard]] qint64 qv_truncated(double value);
