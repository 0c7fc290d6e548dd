#pragma once

#include <QByteArray>

#include <cstdint>
#include <cstdlib>
#include <cstring>

/// Takes a fuzzer's bytes apart into values, from the front; zeros where they have run out.
class FuzzInput
{
public:
    FuzzInput(const std::uint8_t *data, std::size_t size)
        : m_bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size))
    {
    }

    [[nodiscard]] bool isEmpty() const { return m_position >= m_bytes.size(); }

    template<class Value>
    [[nodiscard]] Value take()
    {
        Value value{};
        const auto count = std::min<qsizetype>(sizeof value, m_bytes.size() - m_position);
        std::memcpy(&value, m_bytes.constData() + m_position, static_cast<std::size_t>(count));
        m_position += count;
        return value;
    }

    /// Up to the next zero byte, which is left out.
    [[nodiscard]] QByteArray takeText()
    {
        const qsizetype found = m_bytes.indexOf('\0', m_position);
        const qsizetype end = found < 0 ? m_bytes.size() : found;
        const QByteArray text = m_bytes.mid(m_position, end - m_position);
        m_position = std::min(end + 1, m_bytes.size());
        return text;
    }

    [[nodiscard]] QByteArray rest() const { return m_bytes.mid(m_position); }

private:
    QByteArray m_bytes;
    qsizetype m_position = 0;
};

/// Ends the run as found when two things that must agree do not.
inline void fuzzRequire(bool holds)
{
    if (!holds)
        std::abort();
}
