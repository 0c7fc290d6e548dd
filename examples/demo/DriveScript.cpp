#include "demo/DriveScript.h"

#include "demo/WindowSize.h"

#include <QFile>
#include <QKeySequence>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>

namespace {

using Kind = DriveAction::Kind;

constexpr qint64 largestFile = qint64{64} * 1024;
constexpr qsizetype mostActions = 1000;
constexpr qsizetype mostPoints = 500;
constexpr double farthest = 10000;
constexpr int longestMilliseconds = 600000;
constexpr int strokeMilliseconds = 600;

std::optional<int> durationFrom(const QString &word)
{
    bool isNumber = false;
    const int value = word.toInt(&isNumber);
    if (!isNumber || value < 0 || value > longestMilliseconds)
        return std::nullopt;
    return value;
}

std::optional<QPointF> pointFrom(const QString &word)
{
    const QStringList parts = word.split(u',');
    bool isX = false;
    bool isY = false;
    const QPointF point(parts.value(0).toDouble(&isX), parts.value(1).toDouble(&isY));
    // With <= a NaN, which the text may contain, is refused as well.
    const bool isNear = std::abs(point.x()) <= farthest && std::abs(point.y()) <= farthest;
    if (parts.size() != 2 || !isX || !isY || !isNear)
        return std::nullopt;
    return point;
}

QString parseWait(const QStringList &words, DriveAction &action)
{
    static const QStringList events{QStringLiteral("ready"), QStringLiteral("token"), QStringLiteral("error"),
                                    QStringLiteral("wrong"), QStringLiteral("closed")};
    if (words.size() != 2)
        return QStringLiteral("wait takes one event or a number of milliseconds");
    if (events.contains(words[1])) {
        action.kind = Kind::WaitEvent;
        action.text = words[1];
        return {};
    }
    const auto milliseconds = durationFrom(words[1]);
    if (!milliseconds)
        return QStringLiteral("cannot wait for '%1'").arg(words[1]);
    action.kind = Kind::WaitTime;
    action.milliseconds = *milliseconds;
    return {};
}

QString parseStroke(QStringList words, DriveAction &action)
{
    action.kind = words[0] == QLatin1String("hold") ? Kind::Hold : Kind::Stroke;
    action.milliseconds = strokeMilliseconds;
    if (const qsizetype over = words.indexOf(QLatin1String("over")); over >= 0) {
        const auto milliseconds = durationFrom(words.value(over + 1));
        if (!milliseconds || over + 2 != words.size())
            return QStringLiteral("'over' takes a number of milliseconds at the end of the line");
        action.milliseconds = *milliseconds;
        words.resize(over);
    }
    if (words.size() < 3 || words.size() - 1 > mostPoints)
        return QStringLiteral("a stroke takes 2 to %1 points").arg(mostPoints);
    for (const QString &word : words.mid(1)) {
        const auto point = pointFrom(word);
        if (!point)
            return QStringLiteral("'%1' is no point X,Y").arg(word);
        action.points.append(*point);
    }
    return {};
}

QString parseKeys(const QStringList &words, DriveAction &action)
{
    action.kind = Kind::Keys;
    for (const QString &word : words.mid(1)) {
        const QString name = word.section(u'*', 0, 0);
        const auto key = QKeySequence::fromString(name, QKeySequence::PortableText);
        const int times = word.contains(u'*') ? word.section(u'*', 1).toInt() : 1;
        if (key.count() != 1 || key[0].key() == Qt::Key_unknown || times < 1 || times > mostPoints)
            return QStringLiteral("'%1' is no key, nor one with its number of times").arg(word.left(40));
        action.keys.append(QVector<int>(times, key[0].key()));
    }
    return action.keys.isEmpty() ? QStringLiteral("keys takes names of keys") : QString();
}

QString parseShot(const QStringList &words, DriveAction &action)
{
    // A name, not a path, so that the file is in the screenshots folder.
    static const QRegularExpression name(QStringLiteral("^[A-Za-z0-9][A-Za-z0-9._-]{0,99}$"));
    if (words.size() != 2 || !name.match(words[1]).hasMatch())
        return QStringLiteral("shot takes a name of letters, digits, dots and dashes");
    action.kind = Kind::Shot;
    action.text = words[1];
    return {};
}

QString parseResize(const QStringList &words, DriveAction &action)
{
    const auto size = windowSizeFrom(words.value(1));
    if (!size || words.size() != 2)
        return QStringLiteral("resize takes WIDTHxHEIGHT, each %1 to %2").arg(smallestSide).arg(largestSide);
    action.kind = Kind::Resize;
    action.size = *size;
    return {};
}

QString parsePlain(const QStringList &words, DriveAction &action)
{
    static const std::pair<const char *, Kind> plain[] = {
        {"tap", Kind::Tap},     {"press", Kind::Press},     {"start", Kind::Start}, {"solve", Kind::Solve},
        {"done", Kind::Done},   {"refresh", Kind::Refresh}, {"retry", Kind::Retry}, {"close", Kind::Close},
        {"reset", Kind::Reset}, {"disable", Kind::Disable}, {"lift", Kind::Lift},   {"end", Kind::End},
    };
    const auto found = std::ranges::find_if(
        plain, [&](const auto &entry) { return words[0] == QLatin1String(entry.first); });
    if (found == std::end(plain))
        return QStringLiteral("unknown action '%1'").arg(words[0].left(40));
    if (words.size() != 1)
        return QStringLiteral("%1 takes nothing").arg(words[0]);
    action.kind = found->second;
    return {};
}

QString parseLine(const QString &line, DriveAction &action)
{
    const QStringList words = line.split(u' ', Qt::SkipEmptyParts);
    if (words[0] == QLatin1String("wait"))
        return parseWait(words, action);
    if (words[0] == QLatin1String("stroke") || words[0] == QLatin1String("hold"))
        return parseStroke(words, action);
    if (words[0] == QLatin1String("shot"))
        return parseShot(words, action);
    if (words[0] == QLatin1String("keys"))
        return parseKeys(words, action);
    if (words[0] == QLatin1String("resize"))
        return parseResize(words, action);
    if (words[0] != QLatin1String("type"))
        return parsePlain(words, action);
    if (words.size() < 2)
        return QStringLiteral("type takes a text");
    action.kind = Kind::Type;
    action.text = line.mid(line.indexOf(u' ') + 1);
    return {};
}

} // namespace

std::optional<DriveScript> DriveScript::parse(const QByteArray &source, QString &problem)
{
    DriveScript script;
    const QStringList lines = QString::fromUtf8(source).split(u'\n');
    for (qsizetype index = 0; index < lines.size(); ++index) {
        const QString line = lines[index].trimmed().replace(u'\t', u' ');
        if (line.isEmpty() || line.startsWith(u'#'))
            continue;
        DriveAction action;
        action.line = static_cast<int>(index + 1);
        problem = script.m_actions.size() < mostActions
                      ? parseLine(line, action)
                      : QStringLiteral("more than %1 actions").arg(mostActions);
        if (!problem.isEmpty()) {
            problem.prepend(QStringLiteral("line %1: ").arg(action.line));
            return std::nullopt;
        }
        script.m_actions.append(action);
    }
    return script;
}

std::optional<DriveScript> DriveScript::read(const QString &path, QString &problem)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        problem = QStringLiteral("cannot read %1: %2").arg(path, file.errorString());
        return std::nullopt;
    }
    const QByteArray source = file.read(largestFile + 1);
    if (source.size() > largestFile) {
        problem = QStringLiteral("%1 is larger than %2 bytes").arg(path).arg(largestFile);
        return std::nullopt;
    }
    auto script = parse(source, problem);
    if (!script)
        problem.prepend(path + QStringLiteral(", "));
    return script;
}

bool DriveScript::takesPictures() const
{
    return std::ranges::any_of(m_actions,
                               [](const DriveAction &action) { return action.kind == Kind::Shot; });
}
