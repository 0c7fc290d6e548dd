#pragma once

#include <QByteArrayView>

/// Reads numbers of any count of bits from bytes, the lowest bit first.
class QVBitReader
{
public:
    explicit QVBitReader(QByteArrayView bytes)
        : m_bytes(bytes)
    {
    }

    /// Whether more was read than there is. Bits behind the end are zero.
    [[nodiscard]] bool hasFailed() const { return m_position > m_bytes.size() * bitsPerByte; }

    quint32 take(int count)
    {
        quint32 number = 0;
        for (int bit = 0; bit < count; ++bit)
            number |= takeBit() << bit;
        return number;
    }

private:
    static constexpr int bitsPerByte = 8;

    quint32 takeBit()
    {
        const qsizetype byte = m_position / bitsPerByte;
        const int bit = int(m_position++ % bitsPerByte);
        return byte < m_bytes.size() ? quint8(m_bytes[byte]) >> bit & 1U : 0;
    }

    QByteArrayView m_bytes;
    qsizetype m_position = 0;
};
