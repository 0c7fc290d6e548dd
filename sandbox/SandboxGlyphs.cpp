#include "sandbox/SandboxGlyphs.h"

#include <QHash>

#include <algorithm>

namespace SandboxGlyphs {

namespace {

struct Stroke
{
    SandboxPath points;
    bool isSmooth = false;
};

using Table = QHash<QChar, QList<Stroke>>;

const Table &table()
{
    static const Table glyphs{
        {u'A', {{{{0, 1}, {.5, 0}, {1, 1}}}, {{{.2, .64}, {.8, .64}}}}},
        {u'C', {{{{.9, .14}, {.62, 0}, {.2, .14}, {.02, .5}, {.2, .86}, {.62, 1}, {.9, .86}}, true}}},
        {u'E', {{{{.9, 0}, {.08, 0}, {.08, 1}, {.92, 1}}}, {{{.08, .48}, {.76, .48}}}}},
        {u'F', {{{{.92, 0}, {.1, 0}, {.1, 1}}}, {{{.1, .48}, {.76, .48}}}}},
        {u'H', {{{{.06, 0}, {.06, 1}}}, {{{.94, 0}, {.94, 1}}}, {{{.06, .5}, {.94, .5}}}}},
        {u'K', {{{{.08, 0}, {.08, 1}}}, {{{.92, 0}, {.08, .58}}}, {{{.36, .4}, {.96, 1}}}}},
        {u'L', {{{{.1, 0}, {.1, 1}, {.9, 1}}}}},
        {u'M', {{{{0, 1}, {.1, 0}, {.5, .7}, {.9, 0}, {1, 1}}}}},
        {u'N', {{{{.06, 1}, {.06, 0}, {.94, 1}, {.94, 0}}}}},
        {u'P', {{{{.1, 1}, {.1, 0}}}, {{{.1, .01}, {.58, .02}, {.9, .28}, {.58, .54}, {.1, .55}}, true}}},
        {u'R',
         {{{{.1, 1}, {.1, 0}}},
          {{{.1, .01}, {.58, .02}, {.88, .26}, {.58, .5}, {.1, .51}}, true},
          {{{.48, .52}, {.94, 1}}}}},
        {u'T', {{{{.02, 0}, {.98, 0}}}, {{{.5, 0}, {.5, 1}}}}},
        {u'W', {{{{0, 0}, {.22, 1}, {.5, .28}, {.78, 1}, {1, 0}}}}},
        {u'X', {{{{.04, 0}, {.96, 1}}}, {{{.96, 0}, {.04, 1}}}}},
        {u'Y', {{{{.02, 0}, {.5, .5}, {.98, 0}}}, {{{.5, .5}, {.5, 1}}}}},
        {u'3',
         {{{{.1, .12}, {.45, 0}, {.84, .16}, {.8, .38}, {.42, .48}}, true},
          {{{.42, .48}, {.84, .58}, {.9, .82}, {.5, 1}, {.06, .88}}, true}}},
        {u'4', {{{{.72, 1}, {.72, 0}, {.04, .68}, {.98, .68}}}}},
        {u'7', {{{{.04, 0}, {.94, 0}, {.38, 1}}}}},
    };
    return glyphs;
}

// Straight strokes are divided, too, so that a distortion of the picture bends them.
SandboxPath dense(const Stroke &stroke)
{
    constexpr int stepsBetween = 8;
    if (stroke.isSmooth)
        return SandboxGeometry::splineThrough(stroke.points, stepsBetween);
    SandboxPath result{stroke.points.first()};
    for (qsizetype i = 1; i < stroke.points.size(); ++i) {
        for (int step = 1; step <= stepsBetween; ++step)
            result.append(stroke.points[i - 1] +
                          (stroke.points[i] - stroke.points[i - 1]) * step / stepsBetween);
    }
    return result;
}

} // namespace

QString alphabet()
{
    QString characters;
    for (auto it = table().cbegin(); it != table().cend(); ++it)
        characters.append(it.key());
    // The order of a hash differs from run to run.
    std::ranges::sort(characters);
    return characters;
}

QList<SandboxPath> strokes(QChar character)
{
    QList<SandboxPath> result;
    for (const Stroke &stroke : table().value(character))
        result.append(dense(stroke));
    return result;
}

} // namespace SandboxGlyphs
