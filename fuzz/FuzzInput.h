#pragma once

#include <QByteArray>

#include <cstdint>
#include <cstdlib>

/// A fuzzer's bytes, a copy of their own so that reading behind them is noticed.
inline QByteArray fuzzBytes(const std::uint8_t *data, std::size_t size)
{
    return {reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)};
}

/// Ends the run as found when two things that must agree do not.
inline void fuzzRequire(bool holds)
{
    if (!holds)
        std::abort();
}
