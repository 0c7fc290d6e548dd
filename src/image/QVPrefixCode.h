#pragma once

#include <QtGlobal>

#include <array>
#include <span>
#include <vector>

class QVBitReader;

/// A prefix code told by the lengths of its codes, as packed files have them.
class QVPrefixCode
{
public:
    static constexpr int longestCode = 15;

    /// A broken code, which reads nothing.
    QVPrefixCode() = default;
    /// \a lengths has the length of each symbol's code; zero for a symbol that does not occur. A code
    /// of one symbol alone takes no bits.
    explicit QVPrefixCode(std::span<const quint8> lengths);

    /// Whether each row of bits is a code.
    [[nodiscard]] bool isComplete() const { return m_isComplete; }
    int take(QVBitReader &bits) const;

private:
    std::array<int, longestCode + 1> m_counts{};
    /// By length of their codes, then by value.
    std::vector<int> m_symbols;
    bool m_isComplete = false;
};
