#pragma once

#include <QByteArray>

#include <zlib.h>

/// Unpacks what a server has compressed (gzip, or deflate in its usual form), within a limit.
class QVInflater
{
public:
    /// \a limit is the largest allowed size of the unpacked data, in bytes.
    explicit QVInflater(qint64 limit);
    QVInflater(const QVInflater &) = delete;
    QVInflater &operator=(const QVInflater &) = delete;
    ~QVInflater();

    /// Unpacks the next part and appends it to \a out. Returns false if the data are broken, go on behind
    /// their end, or exceed the limit.
    [[nodiscard]] bool unpack(QByteArrayView packed, QByteArray &out);
    /// Whether the compressed data have ended.
    [[nodiscard]] bool isComplete() const { return m_isComplete; }

private:
    z_stream m_stream{};
    qint64 m_room;
    bool m_isComplete = false;
};
