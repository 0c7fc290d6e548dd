#pragma once

#include "sandbox/SandboxPictureStore.h"
#include "sandbox/SandboxSecret.h"
#include "sandbox/SandboxTokens.h"

#include <chrono>
#include <functional>
#include <optional>

/// What the two services of a sandbox share.
struct SandboxShared
{
    SandboxSecret secret;
    std::function<std::chrono::milliseconds()> clock;
    SandboxTokens tokens;
    SandboxPictureStore pictures;
    /// Scheme, host and port; known once the sandbox listens.
    QString base;
    /// The puzzle of the latest picture.
    std::optional<SandboxPuzzle> latestPuzzle;

    void publish(const QString &stem, const SandboxPuzzle &puzzle)
    {
        latestPuzzle = puzzle;
        pictures.add(stem, puzzle);
    }

    [[nodiscard]] QString grant(const SandboxTokens::Grant &grant)
    {
        const QString token = secret.nextName();
        tokens.add(token, grant);
        return token;
    }
};
