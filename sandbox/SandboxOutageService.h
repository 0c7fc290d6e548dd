#pragma once

#include "sandbox/SandboxAnswer.h"
#include "sandbox/SandboxChallenges.h"
#include "sandbox/SandboxQuery.h"

struct SandboxShared;

/// The service that replaces the main one while that is down. It has one address; the parameter "action"
/// names the request.
class SandboxOutageService
{
public:
    explicit SandboxOutageService(SandboxShared &shared);

    [[nodiscard]] SandboxAnswer answer(const SandboxQuery &query);

    [[nodiscard]] const SandboxChallenges &challenges() const { return m_challenges; }

private:
    [[nodiscard]] SandboxAnswer get();
    [[nodiscard]] SandboxAnswer verify(const SandboxQuery &query);

    SandboxShared &m_shared;
    SandboxChallenges m_challenges;
};
