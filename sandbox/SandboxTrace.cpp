#include "sandbox/SandboxTrace.h"

#include <QList>
#include <QStringView>

#include <cmath>

namespace {

constexpr QStringView digits = u"kqrsvj567opcd89ghiyz";
constexpr qsizetype digitsPerNumber = 3;
constexpr qsizetype minimumPoints = 10;
constexpr qsizetype maximumPoints = 80;
// The digit of weight 400 is not sent, so numbers are known only up to multiples of 400.
constexpr qint64 wrap = 400;
constexpr qint64 longestStroke = 8000;

std::optional<qint64> decodedNumber(QStringView text)
{
    constexpr qint64 radix = 20;
    constexpr qint64 weights[digitsPerNumber] = {radix * radix * radix, radix, 1};
    qint64 number = 0;
    for (qsizetype i = 0; i < digitsPerNumber; ++i) {
        const qsizetype digit = digits.indexOf(text[i]);
        if (digit < 0)
            return std::nullopt;
        number += digit * weights[i];
    }
    return number;
}

std::optional<QList<qint64>> decodedNumbers(QStringView text)
{
    QList<qint64> numbers;
    for (qsizetype at = 0; at < text.size(); at += digitsPerNumber) {
        const auto number = decodedNumber(text.mid(at, digitsPerNumber));
        if (!number)
            return std::nullopt;
        numbers.append(*number);
    }
    return numbers;
}

// A finger does not move by half a picture between two points: a larger jump is a lost multiple.
void unwrapPositions(QList<qint64> &numbers)
{
    for (qsizetype i = 1; i < numbers.size(); ++i) {
        const auto jump = static_cast<double>(numbers[i] - numbers[i - 1]);
        numbers[i] -= static_cast<qint64>(std::round(jump / static_cast<double>(wrap))) * wrap;
    }
}

// Times never decrease: where they seem to, a multiple was lost.
void unwrapTimes(QList<qint64> &numbers)
{
    for (qsizetype i = 1; i < numbers.size(); ++i) {
        while (numbers[i] < numbers[i - 1])
            numbers[i] += wrap;
    }
}

// If only the first point was beyond the edge, unwrapPositions() has moved all others out of the picture,
// too.
void shiftIntoPicture(QList<qint64> &columns)
{
    double sum = 0.0;
    for (const qint64 column : columns)
        sum += static_cast<double>(column);
    const double mean = sum / static_cast<double>(columns.size());
    const auto shift = static_cast<qint64>(std::floor(mean / static_cast<double>(wrap))) * wrap;
    for (qint64 &column : columns)
        column -= shift;
}

} // namespace

std::optional<SandboxTrace> SandboxTrace::decode(const QString &text)
{
    constexpr qsizetype perPoint = 3 * digitsPerNumber;
    const qsizetype count = text.size() / perPoint;
    if (text.size() % perPoint != 0 || count < minimumPoints || count > maximumPoints)
        return std::nullopt;
    const qsizetype third = text.size() / 3;
    auto columns = decodedNumbers(QStringView(text).left(third));
    auto rows = decodedNumbers(QStringView(text).mid(third, third));
    auto times = decodedNumbers(QStringView(text).right(third));
    if (!columns || !rows || !times)
        return std::nullopt;
    unwrapPositions(*columns);
    unwrapPositions(*rows);
    unwrapTimes(*times);
    shiftIntoPicture(*columns);

    // Clients scale x to 400 and y to 230, both by the width of the view.
    constexpr double rowScale = SandboxGeometry::pictureWidth / SandboxGeometry::pictureHeight;
    SandboxTrace trace;
    for (qsizetype i = 0; i < count; ++i) {
        trace.points.append({static_cast<double>((*columns)[i]), static_cast<double>((*rows)[i]) * rowScale});
    }
    trace.duration = times->last();
    return trace;
}

bool SandboxTrace::agreesWithDrawtime(const QString &drawtime) const
{
    bool isNumber = false;
    const qint64 time = drawtime.toLongLong(&isNumber);
    return isNumber && time >= duration && time < longestStroke && (time - duration) % wrap == 0;
}
