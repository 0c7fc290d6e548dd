#include "flow/QVTraceEncoding.h"

#include <array>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <string_view>

namespace {

constexpr std::u16string_view alphabet = u"kqrsvj567opcd89ghiyz";
constexpr quint64 radix = alphabet.size();
constexpr double cellsPerSide = 4.0;

qint64 clampedCell(qint64 index)
{
    constexpr qint64 last = 3;
    return index >= 0 && index < last ? index : last;
}

} // namespace

// The service defines the weights: the third digit counts multiples of 8000, and the digit of weight 400 is
// never written.
QString convertTo20(quint64 number)
{
    if (number > traceLargestNumber)
        throw std::out_of_range("trace number");
    const quint64 twenties = number / radix;
    const std::array<QChar, 3> digits{alphabet[twenties / radix / radix], alphabet[twenties % radix],
                                      alphabet[number % radix]};
    return QString(digits.data(), digits.size());
}

QString convertTo16X(qint64 x, qint64 y)
{
    return QString::number(4 * clampedCell(y) + clampedCell(x), 16);
}

QString converTo16WithSize(QSizeF size, double x, double y)
{
    const double column = std::floor(x / (size.width() / cellsPerSide));
    const double row = std::floor(y / (size.height() / cellsPerSide));
    return convertTo16X(qv_truncated(column), qv_truncated(row));
}

double areaFromPointA(QPointF pointA, QPointF pointB, QPointF pointC)
{
    const double forwards = pointA.x() * pointB.y() + pointB.x() * pointC.y() + pointC.x() * pointA.y();
    const double backwards = pointA.x() * pointC.y() + pointB.x() * pointA.y() + pointC.x() * pointB.y();
    return std::abs((forwards - backwards) / 2.0);
}

qint64 qv_truncated(double value)
{
    // Exactly 2 to the power of 63, the smallest positive double that does not fit.
    constexpr double tooLarge = 9223372036854775808.0;
    if (std::isnan(value))
        return 0;
    if (value >= tooLarge)
        return std::numeric_limits<qint64>::max();
    if (value < -tooLarge)
        return std::numeric_limits<qint64>::min();
    return static_cast<qint64>(value);
}
