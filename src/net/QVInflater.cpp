#include "net/QVInflater.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::size_t sliceSize = 1 << 14;
// The largest window, and either of the two formats by its own header.
constexpr int windowOfEitherFormat = MAX_WBITS + 32;

} // namespace

QVInflater::QVInflater(qint64 limit)
    : m_room(limit)
{
    // Where there is no memory for it the first call to inflate() says so.
    (void)inflateInit2(&m_stream, windowOfEitherFormat);
}

QVInflater::~QVInflater()
{
    inflateEnd(&m_stream);
}

bool QVInflater::unpack(QByteArrayView packed, QByteArray &out)
{
    std::array<char, sliceSize> slice{};
    // zlib reads it only, whatever the type says.
    m_stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(packed.data()));
    m_stream.avail_in = static_cast<uInt>(packed.size());
    do {
        if (m_isComplete)
            return m_stream.avail_in == 0;
        m_stream.next_out = reinterpret_cast<Bytef *>(slice.data());
        m_stream.avail_out = static_cast<uInt>(slice.size());
        const int result = inflate(&m_stream, Z_NO_FLUSH);
        m_isComplete = result == Z_STREAM_END;
        // Z_BUF_ERROR: there was nothing left to do.
        if (result != Z_OK && result != Z_STREAM_END && result != Z_BUF_ERROR)
            return false;
        const qsizetype unpacked = static_cast<qsizetype>(slice.size() - m_stream.avail_out);
        if (unpacked > m_room)
            return false;
        m_room -= unpacked;
        out.append(slice.data(), unpacked);
    } while (m_stream.avail_in > 0 || m_stream.avail_out == 0);
    return true;
}
