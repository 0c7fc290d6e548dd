#pragma once

#include <QByteArrayView>

/// Reads the bytes of a file from the front. A read behind the end gives zero or nothing, and hasFailed() is
/// true from then on.
class QVByteReader
{
public:
    explicit QVByteReader(QByteArrayView bytes)
        : m_bytes(bytes)
    {
    }

    [[nodiscard]] bool isAtEnd() const { return m_position == m_bytes.size(); }
    [[nodiscard]] bool hasFailed() const { return m_hasFailed; }
    [[nodiscard]] qsizetype position() const { return m_position; }

    QByteArrayView take(qint64 count)
    {
        if (count > m_bytes.size() - m_position) {
            m_hasFailed = true;
            m_position = m_bytes.size();
            return {};
        }
        const QByteArrayView taken = m_bytes.sliced(m_position, qsizetype(count));
        m_position += qsizetype(count);
        return taken;
    }

    quint8 byte()
    {
        const QByteArrayView taken = take(1);
        return taken.isEmpty() ? 0 : quint8(taken.front());
    }

    /// A number of \a count bytes, its highest byte first.
    quint32 bigEndian(int count)
    {
        quint32 number = 0;
        for (const char taken : take(count))
            number = number << 8 | quint8(taken);
        return number;
    }

    /// A number of \a count bytes, its lowest byte first.
    quint32 littleEndian(int count)
    {
        quint32 number = 0;
        int shift = 0;
        for (const char taken : take(count)) {
            number |= quint32(quint8(taken)) << shift;
            shift += 8;
        }
        return number;
    }

private:
    QByteArrayView m_bytes;
    qsizetype m_position = 0;
    bool m_hasFailed = false;
};
