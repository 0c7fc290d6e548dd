#pragma once

#include <QByteArray>

#include <zlib.h>

/// Unpacks what a server has compressed (gzip, or deflate in its usual form), within a limit.
class QVInflater
{
public:
    /// \a limit is the most bytes that may come out.
    explicit QVInflater(qint64 limit);
    QVInflater(const QVInflater &) = delete;
    QVInflater &operator=(const QVInflater &) = delete;
    ~QVInflater();

    /// Unpacks the next part and appends it to \a out. False where it is broken, continues behind its end
    /// or is larger than the limit.
    [[nodiscard]] bool unpack(QByteArrayView packed, QByteArray &out);
    /// Whether the compressed data have ended.
    [[nodiscard]] bool isComplete() const { return m_isComplete; }

private:
    z_stream m_stream{};
    qint64 m_room;
    bool m_isComplete = false;
};
