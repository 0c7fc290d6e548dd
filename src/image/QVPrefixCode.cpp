#include "image/QVPrefixCode.h"

#include "image/QVBitReader.h"

QVPrefixCode::QVPrefixCode(std::span<const quint8> lengths)
{
    for (int length = 1; length <= longestCode; ++length) {
        for (std::size_t symbol = 0; symbol < lengths.size(); ++symbol) {
            if (lengths[symbol] != length)
                continue;
            m_symbols.push_back(int(symbol));
            ++m_counts[std::size_t(length)];
        }
    }
    int unused = 1;
    for (int length = 1; length <= longestCode; ++length)
        unused = 2 * unused - m_counts[std::size_t(length)];
    m_isComplete = unused == 0 || m_symbols.size() == 1;
}

int QVPrefixCode::take(QVBitReader &bits) const
{
    if (m_symbols.size() == 1)
        return m_symbols.front();
    // The codes of one length are consecutive numbers. The first is the number after the last shorter code,
    // with a zero bit appended.
    int code = 0;
    int first = 0;
    int index = 0;
    for (const int count : std::span(m_counts).subspan(1)) {
        code |= int(bits.take(1));
        if (code - first < count)
            return m_symbols[std::size_t(index + code - first)];
        index += count;
        first = 2 * (first + count);
        code *= 2;
    }
    return 0;
}
