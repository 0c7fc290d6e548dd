#include "BenchRow.h"

namespace {

QString number(double value)
{
    const double size = std::abs(value);
    return QString::number(value, 'f', size == 0 || size >= 100 ? 0 : size >= 10 ? 1 : size >= 1 ? 2 : 3);
}

QString targetText(const BenchRow &row)
{
    switch (row.target) {
    case BenchRow::Target::None:
        break;
    case BenchRow::Target::Times:
        return QStringLiteral("%1 times").arg(number(row.bound));
    case BenchRow::Target::Over:
        return QStringLiteral("%1 %2 over").arg(number(row.bound), row.unit);
    case BenchRow::Target::AtMost:
        return QStringLiteral("%1 %2").arg(number(row.bound), row.unit);
    }
    return {};
}

} // namespace

bool BenchRow::isMet() const
{
    switch (target) {
    case Target::None:
        break;
    case Target::Times:
        return ours <= limit * bound;
    case Target::Over:
        return ours <= limit + bound;
    case Target::AtMost:
        return ours <= bound;
    }
    return true;
}

QString BenchRow::toMarkdown() const
{
    const bool hasLimit = limit >= 0;
    const QString ratio = hasLimit && limit > 0 ? number(ours / limit) : QString();
    const QString met = target == Target::None ? QString()
                        : isMet()              ? QStringLiteral("yes")
                                               : QStringLiteral("**no**");
    const QString cells =
        QStringLiteral("| %1 | %2 | %3 | %4 | %5 | %6 |")
            .arg(what, number(ours) + u' ' + unit, hasLimit ? number(limit) + u' ' + unit : QString(), ratio,
                 targetText(*this), met);
    return cells;
}

QJsonObject BenchRow::toJson() const
{
    QJsonObject object{{QStringLiteral("what"), what},
                       {QStringLiteral("unit"), unit},
                       {QStringLiteral("ours"), ours},
                       {QStringLiteral("target"), int(target)},
                       {QStringLiteral("targetText"), targetText(*this)},
                       {QStringLiteral("bound"), bound},
                       {QStringLiteral("met"), isMet()}};
    if (limit >= 0)
        object.insert(QStringLiteral("limit"), limit);
    if (limit > 0)
        object.insert(QStringLiteral("ratio"), ours / limit);
    return object;
}

BenchRow BenchRow::fromJson(const QJsonObject &object)
{
    return {object.value(QStringLiteral("what")).toString(),
            object.value(QStringLiteral("unit")).toString(),
            object.value(QStringLiteral("ours")).toDouble(),
            object.value(QStringLiteral("limit")).toDouble(-1),
            Target(object.value(QStringLiteral("target")).toInt()),
            object.value(QStringLiteral("bound")).toDouble()};
}
