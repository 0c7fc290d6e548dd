#pragma once

#include <QtGlobal>

#include <array>
#include <span>
#include <vector>

class QVBitReader;

/// A canonical prefix code: the lengths of its codes define it.
class QVPrefixCode
{
public:
    static constexpr int longestCode = 15;

    /// An incomplete code, which reads nothing.
    QVPrefixCode() = default;
    /// \a lengths has the length of each symbol's code; zero for a symbol that does not occur. A code
    /// of one symbol alone takes no bits.
    explicit QVPrefixCode(std::span<const quint8> lengths);

    /// Whether every sequence of bits can be read.
    [[nodiscard]] bool isComplete() const { return m_isComplete; }
    int take(QVBitReader &bits) const;

private:
    std::array<int, longestCode + 1> m_counts{};
    /// Ordered by the length of their codes, then by value.
    std::vector<int> m_symbols;
    bool m_isComplete = false;
};
