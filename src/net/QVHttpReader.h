#pragma once

#include "net/QVHttpHead.h"
#include "net/QVInflater.h"

#include <memory>

/// Reads one answer to a GET from the bytes of a connection, as they come, within bounds: the body is no
/// larger than its limit, neither compressed nor unpacked, and what is not body (heads, interim answers,
/// the framing of chunks) is bounded too. Holds no more than that in memory.
///
///     QVHttpReader reader(1 << 20);
///     reader.read(bytes);
///     if (reader.state() == QVHttpReader::State::Complete)
///         use(reader.head().status(), reader.body());
class QVHttpReader
{
public:
    enum class State { Reading, Complete, Broken, CutShort };

    /// \a bodyLimit is the size of the largest body that is taken, in bytes.
    explicit QVHttpReader(qint64 bodyLimit);

    void read(QByteArrayView bytes);
    /// The connection has ended, which completes some answers and cuts others short.
    void end();

    [[nodiscard]] State state() const { return m_state; }
    [[nodiscard]] const QVHttpHead &head() const { return m_head; }
    [[nodiscard]] QByteArray body() const { return m_body; }
    /// For how long the connection may be used again.
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
    /// How many bytes are left of the body or of its present chunk.
    qint64 m_partLeft = 0;
    std::unique_ptr<QVInflater> m_inflater;
    QByteArray m_body;
    bool m_hasSurplus = false;
};
