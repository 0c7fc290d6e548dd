#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// Source of everything that must not be guessed: names of challenges and pictures, tokens, and
/// the seeds of pictures. Nothing that it gives away leads back to it or on to the next one.
class SandboxSecret
{
public:
    /// With a seed the sequence is reproducible, without one it is secret.
    explicit SandboxSecret(std::optional<quint64> seed);

    [[nodiscard]] QString nextName();
    [[nodiscard]] quint64 nextSeed();

private:
    [[nodiscard]] QByteArray next();

    QByteArray m_secret;
    quint64 m_count = 0;
};
