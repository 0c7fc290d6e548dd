#pragma once

#include "sandbox/SandboxPuzzle.h"

#include <QHash>
#include <QQueue>

#include <chrono>
#include <optional>

/// One captcha from its configuration until it is passed or given up.
struct SandboxChallenge
{
    QString id;
    std::optional<SandboxPuzzle> puzzle;
    /// Wrong answers to the current picture.
    int wrongAnswers = 0;
    std::chrono::milliseconds renewedAt{};
    /// When pictures were fetched, within the last minute.
    QQueue<std::chrono::milliseconds> fetches;
};

/// The challenges that are open, by their names.
class SandboxChallenges
{
public:
    using Time = std::chrono::milliseconds;

    SandboxChallenge &add(const QString &name, const QString &id, Time now);
    /// Null where there is none of that name, or it has grown too old.
    [[nodiscard]] SandboxChallenge *find(const QString &name, Time now);
    [[nodiscard]] const SandboxChallenge *peek(const QString &name) const;
    void remove(const QString &name);

private:
    QHash<QString, SandboxChallenge> m_challenges;
    QQueue<QString> m_order;
};
