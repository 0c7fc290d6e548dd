#pragma once

#include <QtGlobal>

#include <random>

/// Random numbers that are the same for the same seed on every platform. Those of the standard library's
/// distributions are not.
class SandboxRandom
{
public:
    explicit SandboxRandom(quint64 seed);

    /// From \a low up to, but not including, \a high.
    [[nodiscard]] double real(double low, double high);
    /// From 0 to \a count - 1.
    [[nodiscard]] int below(int count);
    /// Approximately normally distributed around 0, with this standard deviation.
    [[nodiscard]] double normal(double deviation);

private:
    std::mt19937_64 m_engine;
};
