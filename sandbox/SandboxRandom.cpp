#include "sandbox/SandboxRandom.h"

SandboxRandom::SandboxRandom(quint64 seed)
    : m_engine(seed)
{
}

double SandboxRandom::real(double low, double high)
{
    // A double has 53 bits.
    const double fraction = static_cast<double>(m_engine() >> 11) * 0x1.0p-53;
    return low + fraction * (high - low);
}

int SandboxRandom::below(int count)
{
    return static_cast<int>(real(0.0, count));
}

double SandboxRandom::normal(double deviation)
{
    // The sum of twelve uniform numbers has the variance one. It needs no function whose results differ
    // between libraries.
    constexpr int terms = 12;
    double sum = -terms / 2.0;
    for (int i = 0; i < terms; ++i)
        sum += real(0.0, 1.0);
    return sum * deviation;
}
