#include "image/QVJpegFrame.h"

#include "image/QVByteReader.h"
#include "image/QVPictureSize.h"

#include <utility>

namespace {

// Usual encoders write ten scans, thorough ones about twenty. Each scan is another pass over all blocks: even
// an empty one, a dozen bytes in the file, takes a decoder milliseconds.
constexpr int mostScans = 64;
constexpr int mostComponents = 4;
// A segment's length counts itself.
constexpr quint32 lengthSize = 2;

enum Marker : quint8 {
    StartOfBaseline = 0xc0,
    StartOfProgressive = 0xc2,
    HuffmanTables = 0xc4,
    FirstRestart = 0xd0,
    LastRestart = 0xd7,
    EndOfImage = 0xd9,
    StartOfScan = 0xda,
    QuantizationTables = 0xdb,
    RestartInterval = 0xdd,
    Application = 0xe0,
    LastApplication = 0xef,
    Comment = 0xfe,
};

/// Copies the needed segments of a file.
class Copy
{
public:
    explicit Copy(QByteArrayView file)
        : m_file(file)
        , m_reader(file)
    {
        m_kept.reserve(file.size());
        m_kept += m_reader.take(2);
    }

    /// The copy; empty if a segment is refused or the end is missing.
    QByteArray take()
    {
        while (takeSegment()) {
        }
        return m_isComplete ? m_kept : QByteArray();
    }

private:
    /// Returns false after the last segment, or if one is refused.
    bool takeSegment()
    {
        const qsizetype start = m_reader.position();
        if (m_reader.byte() != 0xff)
            return false;
        quint8 marker = m_reader.byte();
        while (marker == 0xff)
            marker = m_reader.byte();
        if (marker == EndOfImage) {
            m_kept += "\xff\xd9";
            m_isComplete = true;
            return false;
        }
        const quint32 length = m_reader.bigEndian(2);
        if (length < lengthSize)
            return false;
        const QByteArrayView content = m_reader.take(length - lengthSize);
        if (m_reader.hasFailed() || !isAllowed(marker, content))
            return false;
        if (marker == StartOfScan)
            skipScan();
        if (isNeeded(marker, content))
            m_kept += m_file.sliced(start, m_reader.position() - start);
        return true;
    }

    bool isAllowed(quint8 marker, QByteArrayView content)
    {
        if (marker >= StartOfBaseline && marker <= StartOfProgressive)
            return isFrameAllowed(content);
        if (marker == StartOfScan)
            return ++m_scans <= mostScans;
        return marker == HuffmanTables || marker == QuantizationTables || marker == RestartInterval ||
               marker == Comment || (marker >= Application && marker <= LastApplication);
    }

    bool isFrameAllowed(QByteArrayView content)
    {
        QVByteReader frame(content);
        frame.byte();
        const quint32 height = frame.bigEndian(2);
        const quint32 width = frame.bigEndian(2);
        return !std::exchange(m_hasFrame, true) && qv_isPictureSizeAllowed(width, height) &&
               frame.byte() <= mostComponents;
    }

    /// Of the application segments, only the first with the colour coding and the first with the orientation
    /// are needed. A comment is not.
    bool isNeeded(quint8 marker, QByteArrayView content)
    {
        if (marker < Application)
            return true;
        const bool isKnown = (marker == Application + 1 && content.startsWith("Exif")) ||
                             (marker == Application + 14 && content.startsWith("Adobe"));
        const quint32 flag = 1U << (marker - Application);
        return isKnown && !(std::exchange(m_applications, m_applications | flag) & flag);
    }

    /// Skips to the next marker that does not belong to the scan.
    void skipScan()
    {
        qsizetype end = m_file.indexOf('\xff', m_reader.position());
        while (end >= 0 && end + 1 < m_file.size() && isWithinScan(quint8(m_file.at(end + 1))))
            end = m_file.indexOf('\xff', end + 2);
        m_reader.take((end < 0 ? m_file.size() : end) - m_reader.position());
    }

    static bool isWithinScan(quint8 marker)
    {
        return marker == 0 || (marker >= FirstRestart && marker <= LastRestart);
    }

    QByteArrayView m_file;
    QVByteReader m_reader;
    QByteArray m_kept;
    int m_scans = 0;
    quint32 m_applications = 0;
    bool m_hasFrame = false;
    bool m_isComplete = false;
};

} // namespace

QByteArray qv_jpegFrame(QByteArrayView file)
{
    return Copy(file).take();
}
