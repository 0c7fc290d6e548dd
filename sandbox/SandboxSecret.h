#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// The source of everything that must not be guessed: names of challenges and pictures, tokens, and the seeds
/// of pictures. No value reveals the secret or the next value.
class SandboxSecret
{
public:
    /// With a \a seed the sequence is reproducible. Without one it is secret.
    explicit SandboxSecret(std::optional<quint64> seed);

    [[nodiscard]] QString nextName();
    [[nodiscard]] quint64 nextSeed();

private:
    [[nodiscard]] QByteArray next();

    QByteArray m_secret;
    quint64 m_count = 0;
};
