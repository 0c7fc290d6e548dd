#include "net/QVHttpReader.h"

#include <algorithm>
#include <cctype>
#include <utility>

namespace {

// Heads of real servers have a few kilobytes.
constexpr qint64 headLimit = 1 << 16;

} // namespace

QVHttpReader::QVHttpReader(qint64 bodyLimit)
    : m_bodyLimit(bodyLimit)
    , m_lineRoom(headLimit)
    , m_bodyRoom(bodyLimit)
{
}

void QVHttpReader::read(QByteArrayView bytes)
{
    while (!bytes.isEmpty() && m_state == State::Reading)
        bytes = bytes.sliced(m_part == Part::Body ? readBody(bytes) : readLine(bytes));
    m_hasSurplus = m_hasSurplus || !bytes.isEmpty();
}

void QVHttpReader::end()
{
    if (m_state != State::Reading)
        return;
    const bool isWhole = m_part == Part::Body && !m_head.isChunked() && !m_head.contentLength();
    m_state = State::CutShort;
    if (isWhole)
        complete();
}

std::chrono::seconds QVHttpReader::keepAlive() const
{
    // An answer with both chunks and a length does not tell for certain where the next answer begins.
    const bool isClear = !m_head.isChunked() || !m_head.contentLength();
    const bool isReusable = m_state == State::Complete && !m_hasSurplus && isClear;
    return isReusable ? m_head.keepAlive() : std::chrono::seconds::zero();
}

qsizetype QVHttpReader::readLine(QByteArrayView bytes)
{
    const qsizetype end = bytes.indexOf('\n');
    const qsizetype length = end < 0 ? bytes.size() : end + 1;
    m_lineRoom -= length;
    m_line.append(bytes.first(length));
    if (m_lineRoom < 0 || m_line.size() > headLimit) {
        m_state = State::Broken;
        return length;
    }
    if (end < 0)
        return length;
    const QByteArray line = std::exchange(m_line, {});
    QByteArrayView text = QByteArrayView(line).chopped(1);
    if (text.endsWith('\r'))
        text.chop(1);
    if (!takeLine(text))
        m_state = State::Broken;
    return length;
}

qsizetype QVHttpReader::readBody(QByteArrayView bytes)
{
    const qsizetype length = std::min<qint64>(bytes.size(), m_partLeft);
    m_partLeft -= length;
    m_bodyRoom -= length;
    if (m_bodyRoom < 0 || !takeBody(bytes.first(length)))
        m_state = State::Broken;
    else if (m_partLeft == 0 && m_head.isChunked())
        m_part = Part::ChunkEnd;
    else if (m_partLeft == 0 && m_head.contentLength())
        complete();
    return length;
}

bool QVHttpReader::takeLine(QByteArrayView line)
{
    switch (m_part) {
    case Part::StatusLine:
        m_part = Part::Field;
        return m_head.readStatusLine(line);
    case Part::Field:
        return line.isEmpty() ? takeHead() : m_head.readField(line);
    case Part::ChunkSize:
        return takeChunkSize(line);
    case Part::ChunkEnd:
        m_part = Part::ChunkSize;
        return line.isEmpty();
    default: // A trailer.
        if (line.isEmpty())
            complete();
        return true;
    }
}

bool QVHttpReader::takeHead()
{
    if (m_head.isInterim()) {
        m_head = {};
        m_part = Part::StatusLine;
        return true;
    }
    if (!m_head.hasBody()) {
        complete();
        return true;
    }
    // The lines that frame chunks may have as many bytes as the body.
    m_lineRoom += m_bodyLimit;
    if (m_head.isCompressed())
        m_inflater = std::make_unique<QVInflater>(m_bodyLimit);
    m_part = m_head.isChunked() ? Part::ChunkSize : Part::Body;
    if (m_head.isChunked())
        return true;
    // A body without a length may have m_bodyLimit bytes; one more is an error.
    m_partLeft = m_head.contentLength().value_or(m_bodyLimit + 1);
    if (m_partLeft == 0)
        complete();
    return !m_head.contentLength() || m_partLeft <= m_bodyLimit;
}

bool QVHttpReader::takeChunkSize(QByteArrayView line)
{
    const auto end = std::ranges::find_if_not(line, [](quint8 c) { return std::isxdigit(c); });
    const QByteArrayView digits = line.first(end - line.begin());
    const QByteArrayView extension = line.sliced(digits.size()).trimmed();
    bool isNumber = false;
    m_partLeft = digits.toLongLong(&isNumber, 16);
    if (!isNumber || !(extension.isEmpty() || extension.startsWith(';')) || m_partLeft > m_bodyRoom)
        return false;
    m_part = m_partLeft == 0 ? Part::Trailer : Part::Body;
    return true;
}

bool QVHttpReader::takeBody(QByteArrayView bytes)
{
    if (m_inflater)
        return m_inflater->unpack(bytes, m_body);
    m_body.append(bytes);
    return true;
}

void QVHttpReader::complete()
{
    const bool isWhole = !m_inflater || m_inflater->isComplete();
    m_state = isWhole ? State::Complete : State::Broken;
}
