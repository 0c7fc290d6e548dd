#pragma once

#include <QChar>
#include <QPointF>
#include <QSizeF>
#include <QString>

/// How many characters one number takes in the main service's trace.
inline constexpr qsizetype traceDigitsPerNumber = 3;
/// The largest number the encoding can write.
inline constexpr quint64 traceLargestNumber = 159999;

/// Writes \a number as three digits at \a target. Throws std::out_of_range above the largest number.
void qv_writeTo20(quint64 number, QChar *target);
/// \a number as three digits of the service's own alphabet. Throws std::out_of_range above the
/// largest number.
[[nodiscard]] QString convertTo20(quint64 number);

/// The cell of a 4 by 4 grid as one hexadecimal digit; what lies outside counts as the last column or
/// row, on whichever side it lies.
[[nodiscard]] QString convertTo16X(qint64 x, qint64 y);
/// The cell in which (\a x, \a y) lies when \a size is divided into 4 by 4 cells.
[[nodiscard]] QString converTo16WithSize(QSizeF size, double x, double y);
/// The same digit for whoever puts several together.
[[nodiscard]] QChar qv_cellDigit(QSizeF size, QPointF point);

[[nodiscard]] double areaFromPointA(QPointF pointA, QPointF pointB, QPointF pointC);

/// Truncates toward zero; not-a-number becomes 0 and what does not fit the nearest number that does.
[[nodiscard]] qint64 qv_truncated(double value);
