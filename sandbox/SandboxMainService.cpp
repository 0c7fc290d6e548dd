#include "sandbox/SandboxMainService.h"

#include "sandbox/SandboxCurveMaker.h"
#include "sandbox/SandboxGlyphs.h"
#include "sandbox/SandboxShared.h"
#include "sandbox/SandboxTrace.h"
#include "sandbox/SandboxTraceJudge.h"

#include <QJsonArray>

#include <algorithm>

namespace {

using std::chrono::milliseconds;

// No user, only a script, asks for pictures as fast as this, or for as many.
constexpr qsizetype maximumInBurst = 10;
constexpr milliseconds burst = std::chrono::seconds(2);
constexpr qsizetype maximumInMinute = 30;
constexpr milliseconds minute = std::chrono::minutes(1);
// Clients fetch a new picture after the second wrong answer. More wrong answers than this are guesses.
constexpr int maximumWrongAnswers = 5;

QString idOf(const SandboxQuery &query)
{
    return query.value(QStringLiteral("id"));
}

QString challengeOf(const SandboxQuery &query)
{
    return query.value(QStringLiteral("challenge"));
}

// The code that refuses one more picture; empty if it is allowed.
QString refusal(SandboxChallenge &challenge, milliseconds now)
{
    auto &fetches = challenge.fetches;
    while (!fetches.isEmpty() && now - fetches.head() > minute)
        fetches.dequeue();
    const auto recent = std::ranges::count_if(fetches, [now](milliseconds at) { return now - at <= burst; });
    if (recent >= maximumInBurst)
        return SandboxCode::refreshedTooFast;
    return fetches.size() >= maximumInMinute ? SandboxCode::refreshedTooOften : QString();
}

QString newCharacters(SandboxRandom &random)
{
    const QString alphabet = SandboxGlyphs::alphabet();
    const int count = 4 + random.below(2);
    QString characters;
    while (characters.size() < count)
        characters.append(alphabet[random.below(static_cast<int>(alphabet.size()))]);
    return characters;
}

} // namespace

SandboxMainService::SandboxMainService(SandboxShared &shared)
    : m_shared(shared)
{
}

QString SandboxMainService::picturePath()
{
    return QStringLiteral("/pictures");
}

SandboxAnswer SandboxMainService::config(const SandboxQuery &query)
{
    const QString id = idOf(query);
    const SandboxBehaviour behaviour = SandboxBehaviour::of(id);
    const QString challenge = m_shared.secret.nextName();
    m_challenges.add(challenge, id, m_shared.clock());
    return SandboxAnswer::json({
        {QStringLiteral("code"), SandboxCode::success},
        {QStringLiteral("key"), m_shared.secret.nextName()},
        {QStringLiteral("type"),
         behaviour.isCharacter ? QStringLiteral("character") : QStringLiteral("draw")},
        {QStringLiteral("challenge"), challenge},
        {QStringLiteral("api_server"), m_shared.base + QStringLiteral("/app")},
        {QStringLiteral("cdn_servers"), QJsonArray{m_shared.base + picturePath()}},
        {QStringLiteral("guide"), behaviour.hasGuide},
    });
}

SandboxAnswer SandboxMainService::click(const SandboxQuery &query)
{
    SandboxChallenge *challenge = challengeFor(query);
    if (!challenge)
        return SandboxAnswer::onlyCode(SandboxCode::expired);
    if (!SandboxBehaviour::of(challenge->id).passesOnClick)
        return newPicture(*challenge, SandboxCode::wrong);
    return pass(query, QStringLiteral("click"), {});
}

SandboxAnswer SandboxMainService::picture(const SandboxQuery &query)
{
    SandboxChallenge *challenge = challengeFor(query);
    return challenge ? newPicture(*challenge, SandboxCode::success)
                     : SandboxAnswer::onlyCode(SandboxCode::expired);
}

SandboxAnswer SandboxMainService::verify(const SandboxQuery &query)
{
    SandboxChallenge *challenge = challengeFor(query);
    if (!challenge)
        return SandboxAnswer::onlyCode(SandboxCode::expired);
    if (!challenge->puzzle || challenge->wrongAnswers >= maximumWrongAnswers)
        return SandboxAnswer::onlyCode(SandboxCode::wrong);
    return challenge->puzzle->characters.isEmpty() ? judgeStroke(*challenge, query)
                                                   : judgeCharacters(*challenge, query);
}

SandboxChallenge *SandboxMainService::challengeFor(const SandboxQuery &query)
{
    SandboxChallenge *challenge = m_challenges.find(challengeOf(query), m_shared.clock());
    return challenge && challenge->id == idOf(query) ? challenge : nullptr;
}

SandboxAnswer SandboxMainService::newPicture(SandboxChallenge &challenge, const QString &successCode)
{
    const milliseconds now = m_shared.clock();
    if (const QString code = refusal(challenge, now); !code.isEmpty())
        return SandboxAnswer::onlyCode(code);
    const SandboxBehaviour behaviour = SandboxBehaviour::of(challenge.id);
    challenge.fetches.enqueue(now);
    challenge.renewedAt = now;
    challenge.wrongAnswers = 0;
    challenge.puzzle = newPuzzle(behaviour.isCharacter);
    const QString name = m_shared.secret.nextName();
    const QString stem = picturePath() + u'/' + name;
    if (behaviour.breaksPictures)
        m_shared.pictures.addBroken(stem);
    else
        m_shared.publish(stem, *challenge.puzzle);
    QJsonObject answer{{QStringLiteral("code"), successCode},
                       {QStringLiteral("img"), name + QStringLiteral(".jpg")},
                       {QStringLiteral("frequency"), static_cast<double>(challenge.fetches.size())}};
    if (behaviour.hasAdvertisement) {
        answer.insert(QStringLiteral("adlinkword"), QStringLiteral("Sandbox news"));
        answer.insert(QStringLiteral("adlink"), m_shared.base + QStringLiteral("/sandbox/advertisement"));
    }
    return SandboxAnswer::json(answer);
}

SandboxPuzzle SandboxMainService::newPuzzle(bool isCharacter)
{
    SandboxPuzzle puzzle;
    puzzle.seed = m_shared.secret.nextSeed();
    if (isCharacter) {
        SandboxRandom random(puzzle.seed);
        puzzle.characters = newCharacters(random);
    } else {
        puzzle.curve = SandboxCurveMaker(puzzle.seed).make();
    }
    return puzzle;
}

SandboxAnswer SandboxMainService::judgeCharacters(SandboxChallenge &challenge, const SandboxQuery &query)
{
    const QString typed = query.value(QStringLiteral("v")).trimmed();
    if (typed.compare(challenge.puzzle->characters, Qt::CaseInsensitive) == 0)
        return pass(query, QStringLiteral("character"), {});
    ++challenge.wrongAnswers;
    return SandboxAnswer::onlyCode(SandboxCode::wrong);
}

SandboxAnswer SandboxMainService::judgeStroke(SandboxChallenge &challenge, const SandboxQuery &query)
{
    const auto trace = SandboxTrace::decode(query.value(QStringLiteral("v")));
    const bool isWhole = trace && trace->agreesWithDrawtime(query.value(QStringLiteral("drawtime")));
    const int score = isWhole ? SandboxTraceJudge(challenge.puzzle->curve).score(trace->points) : 0;
    QJsonObject answer{{QStringLiteral("score"), QString::number(score)},
                       {QStringLiteral("passline"), QString::number(SandboxTraceJudge::passLine)},
                       {QStringLiteral("frequency"), static_cast<double>(challenge.fetches.size())}};
    if (score >= SandboxTraceJudge::passLine && !SandboxBehaviour::of(challenge.id).neverAccepts)
        return pass(query, QStringLiteral("draw"), std::move(answer));
    ++challenge.wrongAnswers;
    answer.insert(QStringLiteral("code"), SandboxCode::wrong);
    return SandboxAnswer::json(answer);
}

SandboxAnswer SandboxMainService::pass(const SandboxQuery &query, const QString &earnedBy, QJsonObject answer)
{
    // A challenge can be passed only once.
    m_challenges.remove(challengeOf(query));
    answer.insert(QStringLiteral("code"), SandboxCode::success);
    answer.insert(QStringLiteral("token"), m_shared.grant({idOf(query), earnedBy}));
    return SandboxAnswer::json(answer);
}
