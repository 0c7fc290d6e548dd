#include "sandbox/SandboxRandom.h"

SandboxRandom::SandboxRandom(quint64 seed)
    : m_engine(seed)
{
}

double SandboxRandom::real(double low, double high)
{
    // 53 bits are what a double holds.
    const double fraction = static_cast<double>(m_engine() >> 11) * 0x1.0p-53;
    return low + fraction * (high - low);
}

int SandboxRandom::below(int count)
{
    return static_cast<int>(real(0.0, count));
}

double SandboxRandom::normal(double deviation)
{
    // The sum of twelve has variance one, and needs no function that differs between libraries.
    constexpr int terms = 12;
    double sum = -terms / 2.0;
    for (int i = 0; i < terms; ++i)
        sum += real(0.0, 1.0);
    return sum * deviation;
}
