#include "image/PictureBombs.h"

#include "image/QVTestPictures.h"

#include <QImageWriter>
#include <QtEndian>

#include <algorithm>
#include <zlib.h>

namespace {

template<class Number>
QByteArray littleEndian(Number number, qsizetype bytes = sizeof(Number))
{
    QByteArray result(sizeof(Number), '\0');
    qToLittleEndian(number, result.data());
    return result.left(bytes);
}

template<class Number>
QByteArray bigEndian(Number number)
{
    QByteArray result(sizeof(Number), '\0');
    qToBigEndian(number, result.data());
    return result;
}

QByteArray pngChunk(const char *type, const QByteArray &content)
{
    const QByteArray body = type + content;
    const uLong sum = crc32(0, reinterpret_cast<const Bytef *>(body.data()), uInt(body.size()));
    return bigEndian(quint32(content.size())) + body + bigEndian(quint32(sum));
}

QByteArray riffChunk(const char *type, const QByteArray &content)
{
    return type + littleEndian(quint32(content.size())) + content + QByteArray(content.size() % 2, '\0');
}

/// Writes numbers of any count of bits, the lowest bit first.
class Bits
{
public:
    Bits &put(quint32 number, int count)
    {
        m_pending |= quint64(number) << m_count;
        for (m_count += count; m_count >= 8; m_count -= 8) {
            m_bytes += char(m_pending);
            m_pending >>= 8;
        }
        return *this;
    }
    [[nodiscard]] QByteArray bytes() const { return m_bytes + QByteArray(m_count > 0, char(m_pending)); }

private:
    QByteArray m_bytes;
    quint64 m_pending = 0;
    int m_count = 0;
};

quint32 reversed(quint32 byte)
{
    quint32 result = 0;
    for (int bit = 0; bit < 8; ++bit)
        result |= (byte >> bit & 1) << (7 - bit);
    return result;
}

/// Deflate data that unpack to at least \a count times the same \a byte: one literal, then commands of 13
/// bits, each of which repeats it 258 times.
QByteArray packed(quint8 byte, qsizetype count)
{
    constexpr qsizetype longestRepetition = 258;
    constexpr int repetitionsInPeriod = 8;
    constexpr qsizetype period = 13;
    constexpr qsizetype head = 5;
    constexpr int repetitions = 2 * repetitionsInPeriod;
    Bits bits;
    bits.put(0x178, 16).put(0b011, 3).put(reversed(0b00110000U + byte), 8);
    for (int repetition = 0; repetition < repetitions; ++repetition)
        bits.put(reversed(0b11000101), 8).put(0, 5);
    bits.put(0, 7);
    const QByteArray once = bits.bytes();
    const qsizetype periods = 1 + count / longestRepetition / repetitionsInPeriod;
    const auto bytes = quint64(1 + longestRepetition * (repetitions + repetitionsInPeriod * (periods - 1)));
    constexpr quint64 modulus = 65521;
    const quint64 sum = (1 + bytes * byte) % modulus;
    const quint64 sumOfSums = (bytes + byte * (bytes * (bytes + 1) / 2 % modulus)) % modulus;
    return once.left(head) + once.mid(head, period).repeated(periods) + once.mid(head + period) +
           bigEndian(quint32(sumOfSums << 16 | sum));
}

/// Writes a prefix code with eight bits for each of the first 256 symbols.
void putEvenCode(Bits &bits, int symbols)
{
    constexpr int lengths = 12;
    bits.put(0, 1).put(lengths - 4, 4);
    for (int i = 0; i < lengths; ++i)
        bits.put(i == 2 || i == 11 ? 1 : 0, 3);
    bits.put(0, 1);
    for (int symbol = 0; symbol < symbols; ++symbol)
        bits.put(symbol < 256 ? 1 : 0, 1);
}

/// Writes a prefix code with one symbol.
void putShortCode(Bits &bits)
{
    bits.put(1, 4);
}

/// Writes what follows the size: the blocks of four by four pixels use all groups in turn.
void putGroups(Bits &bits, QSize size, int groups)
{
    constexpr quint32 noTransformAndNoCache = 0;
    constexpr quint32 blocksOfFour = 0;
    bits.put(noTransformAndNoCache, 2).put(1, 1).put(blocksOfFour, 3).put(0, 1);
    putEvenCode(bits, 280);
    putEvenCode(bits, 256);
    for (int code = 0; code < 3; ++code)
        putShortCode(bits);
    const int blocks = (size.width() + 3) / 4 * ((size.height() + 3) / 4);
    for (int block = 0; block < blocks; ++block) {
        const auto group = quint32(block % groups);
        bits.put(reversed(group & 0xff), 8).put(reversed(group >> 8), 8);
    }
    for (int code = 0; code < 5 * groups; ++code)
        putShortCode(bits);
}

QByteArray lossless(QSize size, int groups)
{
    Bits bits;
    bits.put(0x2f, 8).put(quint32(size.width() - 1), 14).put(quint32(size.height() - 1), 14).put(0, 4);
    putGroups(bits, size, groups);
    return bits.bytes();
}

} // namespace

QByteArray PictureBombs::png(QSize size, int depth, const QByteArray &chunks, qsizetype surplus)
{
    const qsizetype rowBytes = 1 + qsizetype(4) * depth / 8 * size.width();
    const QByteArray head = bigEndian(size.width()) + bigEndian(size.height()) + char(depth) + '\6';
    return "\x89PNG\r\n\x1a\n" + pngChunk("IHDR", head + QByteArray(3, '\0')) + chunks +
           pngChunk("IDAT", packed(0, size.height() * rowBytes + surplus)) + pngChunk("IEND", {});
}

QByteArray PictureBombs::packedTexts(qsizetype bytes, int count)
{
    const QByteArray content = QByteArray("name\0\0", 6) + packed('x', bytes);
    return pngChunk("zTXt", content).repeated(count);
}

QByteArray PictureBombs::jpeg(QSize size, int scans)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::red);
    QBuffer buffer;
    QImageWriter writer(&buffer, "jpeg");
    writer.setProgressiveScanWrite(true);
    writer.write(image);
    const QByteArray file = buffer.data();
    const QByteArray scanStart = "\xff\xda";
    const QByteArray scan = file.sliced(file.lastIndexOf(scanStart)).chopped(2);
    return file.chopped(2) + scan.repeated(scans - int(file.count(scanStart))) + "\xff\xd9";
}

QByteArray PictureBombs::withSegment(const QByteArray &file, char marker, const QByteArray &content)
{
    return file.left(2) + '\xff' + marker + bigEndian(quint16(content.size() + 2)) + content + file.mid(2);
}

QByteArray PictureBombs::gif(QSize size, QSize frame, qsizetype codes, int frames)
{
    constexpr quint32 clear = 256;
    constexpr quint32 full = 4095;
    Bits bits;
    int width = 9;
    bits.put(clear, width).put(0, width);
    // Each code stands for the pixels of the previous code and one more.
    for (quint32 code = clear + 2; codes > 0 && code <= full; ++code, --codes) {
        bits.put(code, width);
        width = std::min(12, code + 1 == 1U << width ? width + 1 : width);
    }
    const QByteArray pixels = bits.bytes() + QByteArray(codes * 3 / 2, '\xff');
    QByteArray blocks;
    for (qsizetype at = 0; at < pixels.size(); at += 255) {
        const QByteArray block = pixels.mid(at, 255);
        blocks += char(block.size()) + block;
    }
    const auto sides = [](QSize sized) {
        return littleEndian(quint16(sized.width())) + littleEndian(quint16(sized.height()));
    };
    const QByteArray image = "," + QByteArray(4, '\0') + sides(frame) + '\0' + '\10' + blocks + '\0';
    return "GIF89a" + sides(size) + '\xf7' + QByteArray(2, '\0') + QByteArray(768, '\x40') +
           image.repeated(frames) + ';';
}

QByteArray PictureBombs::webP(QSize size, int groups)
{
    return riffChunk("RIFF", "WEBP" + riffChunk("VP8L", lossless(size, groups)));
}

QByteArray PictureBombs::webPAlpha(QSize size, int groups)
{
    QByteArray file = qv_testPicture(size, QColor(200, 10, 30, 128), "webp");
    Bits bits;
    bits.put(1, 8);
    putGroups(bits, size, groups);
    const qsizetype start = file.indexOf("ALPH");
    const qsizetype end = file.indexOf("VP8 ", start);
    return riffChunk("RIFF", file.mid(8).replace(start - 8, end - start, riffChunk("ALPH", bits.bytes())));
}

QByteArray PictureBombs::webPAnimation(QSize size, const QList<QByteArray> &frames)
{
    const auto side = [](int length) {
        return littleEndian(length - 1, 3);
    };
    const QByteArray sides = side(size.width()) + side(size.height());
    QByteArray body = "WEBP" + riffChunk("VP8X", '\2' + QByteArray(3, '\0') + sides) +
                      riffChunk("ANIM", QByteArray(6, '\0'));
    for (const QByteArray &frame : frames)
        body += riffChunk("ANMF", QByteArray(6, '\0') + sides + QByteArray(4, '\0') + frame.mid(12));
    return riffChunk("RIFF", body);
}
