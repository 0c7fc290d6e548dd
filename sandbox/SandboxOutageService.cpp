#include "sandbox/SandboxOutageService.h"

#include "sandbox/SandboxCellJudge.h"
#include "sandbox/SandboxCurveMaker.h"
#include "sandbox/SandboxShared.h"

namespace {

// Few attempts, since a trace of four cells is soon guessed.
constexpr int maximumWrongCells = 3;

} // namespace

SandboxOutageService::SandboxOutageService(SandboxShared &shared)
    : m_shared(shared)
{
}

SandboxAnswer SandboxOutageService::answer(const SandboxQuery &query)
{
    const QString action = query.value(QStringLiteral("action"));
    if (action == QLatin1String("get"))
        return get();
    if (action == QLatin1String("verify"))
        return verify(query);
    return SandboxAnswer::failure(400, QStringLiteral("action must be get or verify"));
}

SandboxAnswer SandboxOutageService::get()
{
    SandboxPuzzle puzzle;
    puzzle.seed = m_shared.secret.nextSeed();
    puzzle.curve = SandboxCurveMaker(puzzle.seed).make([](const SandboxPath &curve) {
        return SandboxCellJudge(curve).isClear();
    });
    const QString name = m_shared.secret.nextName();
    const QString challenge = m_shared.secret.nextName();
    m_challenges.add(challenge, {}, m_shared.clock()).puzzle = puzzle;
    m_shared.publish(u'/' + name, puzzle);
    return SandboxAnswer::json({{QStringLiteral("code"), SandboxCode::success},
                                {QStringLiteral("imgid"), name},
                                {QStringLiteral("challenge"), challenge}});
}

SandboxAnswer SandboxOutageService::verify(const SandboxQuery &query)
{
    const QString name = query.value(QStringLiteral("challenge"));
    SandboxChallenge *challenge = m_challenges.find(name, m_shared.clock());
    if (!challenge)
        return SandboxAnswer::onlyCode(SandboxCode::expired);
    const bool isRight = challenge->wrongAnswers < maximumWrongCells &&
                         SandboxCellJudge(challenge->puzzle->curve).accepts(query.value(QStringLiteral("v")));
    if (!isRight) {
        ++challenge->wrongAnswers;
        return SandboxAnswer::onlyCode(SandboxCode::wrong);
    }
    m_challenges.remove(name);
    return SandboxAnswer::json(
        {{QStringLiteral("code"), SandboxCode::success},
         {QStringLiteral("token"), m_shared.grant({QString(), QStringLiteral("outage")})}});
}
