#pragma once

#include "net/QVHttpHead.h"
#include "net/QVInflater.h"

#include <memory>

/// Reads one answer to a GET request from the bytes of a connection, as they arrive. The size of the body is
/// limited, both as sent and unpacked. All other bytes (heads, interim answers, the framing of chunks) are
/// limited, too. An answer that exceeds a limit is Broken.
///
///     QVHttpReader reader(1 << 20);
///     reader.read(bytes);
///     if (reader.state() == QVHttpReader::State::Complete)
///         use(reader.head().status(), reader.body());
class QVHttpReader
{
public:
    enum class State { Reading, Complete, Broken, CutShort };

    /// \a bodyLimit is the size of the largest allowed body, in bytes.
    explicit QVHttpReader(qint64 bodyLimit);

    void read(QByteArrayView bytes);
    /// Tells the reader that the connection has ended. That completes an answer without an announced length;
    /// any other unfinished answer is CutShort.
    void end();

    [[nodiscard]] State state() const { return m_state; }
    [[nodiscard]] const QVHttpHead &head() const { return m_head; }
    [[nodiscard]] QByteArray body() const { return m_body; }
    /// How long the connection may be kept to be used again; zero if it may not be used again.
    [[nodiscard]] std::chrono::seconds keepAlive() const;

private:
    enum class Part { StatusLine, Field, Body, ChunkSize, ChunkEnd, Trailer };

    [[nodiscard]] qsizetype readLine(QByteArrayView bytes);
    [[nodiscard]] qsizetype readBody(QByteArrayView bytes);
    [[nodiscard]] bool takeLine(QByteArrayView line);
    [[nodiscard]] bool takeHead();
    [[nodiscard]] bool takeChunkSize(QByteArrayView line);
    [[nodiscard]] bool takeBody(QByteArrayView bytes);
    void complete();

    const qint64 m_bodyLimit;
    State m_state = State::Reading;
    Part m_part = Part::StatusLine;
    QVHttpHead m_head;
    QByteArray m_line;
    /// How many more bytes may come that are not body.
    qint64 m_lineRoom;
    /// How many more bytes of body may come.
    qint64 m_bodyRoom;
    /// How many bytes are left of the body or of the current chunk.
    qint64 m_partLeft = 0;
    std::unique_ptr<QVInflater> m_inflater;
    QByteArray m_body;
    bool m_hasSurplus = false;
};
