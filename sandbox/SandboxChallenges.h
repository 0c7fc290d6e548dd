#pragma once

#include "sandbox/SandboxPuzzle.h"

#include <QHash>
#include <QQueue>

#include <chrono>
#include <optional>

/// One captcha, from its configuration until it is passed or expires.
struct SandboxChallenge
{
    QString id;
    std::optional<SandboxPuzzle> puzzle;
    /// The number of wrong answers to the current picture.
    int wrongAnswers = 0;
    std::chrono::milliseconds renewedAt{};
    /// The times at which pictures were fetched within the last minute.
    QQueue<std::chrono::milliseconds> fetches;
};

/// The open challenges, by name.
class SandboxChallenges
{
public:
    using Time = std::chrono::milliseconds;

    SandboxChallenge &add(const QString &name, const QString &id, Time now);
    /// Null if there is no challenge with that name, or if it has expired.
    [[nodiscard]] SandboxChallenge *find(const QString &name, Time now);
    [[nodiscard]] const SandboxChallenge *peek(const QString &name) const;
    void remove(const QString &name);

private:
    QHash<QString, SandboxChallenge> m_challenges;
    QQueue<QString> m_order;
};
