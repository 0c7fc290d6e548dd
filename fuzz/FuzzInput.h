#pragma once

#include <QByteArray>

#include <cstdint>
#include <cstdlib>

/// A copy of the fuzzer's bytes, so that a sanitizer notices reads behind them.
inline QByteArray fuzzBytes(const std::uint8_t *data, std::size_t size)
{
    return {reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)};
}

/// Reports a finding by ending the process if \a holds is false.
inline void fuzzRequire(bool holds)
{
    if (!holds)
        std::abort();
}
