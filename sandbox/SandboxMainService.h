#pragma once

#include "sandbox/SandboxAnswer.h"
#include "sandbox/SandboxBehaviour.h"
#include "sandbox/SandboxChallenges.h"
#include "sandbox/SandboxQuery.h"

struct SandboxShared;

/// The main captcha service: configuration, click decision, pictures and verification.
class SandboxMainService
{
public:
    explicit SandboxMainService(SandboxShared &shared);

    [[nodiscard]] SandboxAnswer config(const SandboxQuery &query);
    [[nodiscard]] SandboxAnswer click(const SandboxQuery &query);
    /// Answers the requests get and refresh. They differ only for the client.
    [[nodiscard]] SandboxAnswer picture(const SandboxQuery &query);
    [[nodiscard]] SandboxAnswer verify(const SandboxQuery &query);

    [[nodiscard]] const SandboxChallenges &challenges() const { return m_challenges; }

    /// Path of the pictures, relative to the base address.
    [[nodiscard]] static QString picturePath();

private:
    [[nodiscard]] SandboxChallenge *challengeFor(const SandboxQuery &query);
    [[nodiscard]] SandboxAnswer newPicture(SandboxChallenge &challenge, const QString &successCode);
    [[nodiscard]] SandboxPuzzle newPuzzle(bool isCharacter);
    [[nodiscard]] SandboxAnswer judgeCharacters(SandboxChallenge &challenge, const SandboxQuery &query);
    [[nodiscard]] SandboxAnswer judgeStroke(SandboxChallenge &challenge, const SandboxQuery &query);
    [[nodiscard]] SandboxAnswer pass(const SandboxQuery &query, const QString &earnedBy, QJsonObject answer);

    SandboxShared &m_shared;
    SandboxChallenges m_challenges;
};
