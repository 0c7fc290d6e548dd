#include "net/QVInflater.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::size_t sliceSize = 1 << 14;
// The largest window. Adding 32 makes zlib detect by the header whether the data are gzip or deflate.
constexpr int windowOfEitherFormat = MAX_WBITS + 32;

} // namespace

QVInflater::QVInflater(qint64 limit)
    : m_room(limit)
{
    // If there is no memory, the first call of inflate() fails.
    (void)inflateInit2(&m_stream, windowOfEitherFormat);
}

QVInflater::~QVInflater()
{
    inflateEnd(&m_stream);
}

bool QVInflater::unpack(QByteArrayView packed, QByteArray &out)
{
    std::array<char, sliceSize> slice{};
    // zlib only reads its input, although the type is not const.
    m_stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(packed.data()));
    m_stream.avail_in = static_cast<uInt>(packed.size());
    do {
        if (m_isComplete)
            return m_stream.avail_in == 0;
        m_stream.next_out = reinterpret_cast<Bytef *>(slice.data());
        m_stream.avail_out = static_cast<uInt>(slice.size());
        const int result = inflate(&m_stream, Z_NO_FLUSH);
        m_isComplete = result == Z_STREAM_END;
        // Z_BUF_ERROR is not a failure: there was nothing left to do.
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
