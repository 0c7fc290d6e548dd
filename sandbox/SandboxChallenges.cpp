#include "sandbox/SandboxChallenges.h"

namespace {

// Clients replace a picture one second earlier.
constexpr std::chrono::minutes lifetime(3);
constexpr qsizetype maximumChallenges = 1000;

} // namespace

SandboxChallenge &SandboxChallenges::add(const QString &name, const QString &id, Time now)
{
    m_order.enqueue(name);
    if (m_order.size() > maximumChallenges)
        m_challenges.remove(m_order.dequeue());
    SandboxChallenge &challenge = m_challenges[name];
    challenge.id = id;
    challenge.renewedAt = now;
    return challenge;
}

SandboxChallenge *SandboxChallenges::find(const QString &name, Time now)
{
    const auto found = m_challenges.find(name);
    if (found == m_challenges.end())
        return nullptr;
    if (now - found->renewedAt <= lifetime)
        return &*found;
    m_challenges.erase(found);
    return nullptr;
}

const SandboxChallenge *SandboxChallenges::peek(const QString &name) const
{
    const auto found = m_challenges.constFind(name);
    return found == m_challenges.constEnd() ? nullptr : &*found;
}

void SandboxChallenges::remove(const QString &name)
{
    m_challenges.remove(name);
}
