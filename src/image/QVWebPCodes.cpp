#include "image/QVWebPCodes.h"

#include "image/QVBitReader.h"
#include "image/QVPictureSize.h"
#include "image/QVPrefixCode.h"

#include <algorithm>
#include <array>
#include <span>
#include <vector>

namespace {

constexpr int literals = 256;
constexpr int lengthPrefixes = 24;
constexpr int distancePrefixes = 40;

int blocks(int length, int bits)
{
    return (length + (1 << bits) - 1) >> bits;
}

/// Reads the packed pictures that precede the pixels. A pixel of these describes a block of pixels of the
/// picture.
class Head
{
public:
    explicit Head(QByteArrayView bytes)
        : m_bits(bytes)
    {
    }

    [[nodiscard]] bool isBroken() const { return m_isBroken || m_bits.hasFailed(); }

    QSize takeSize()
    {
        constexpr int sideBits = 14;
        const int width = int(m_bits.take(sideBits)) + 1;
        const QSize size(width, int(m_bits.take(sideBits)) + 1);
        constexpr int alphaAndVersionBits = 4;
        m_bits.take(alphaAndVersionBits);
        return size;
    }

    int takeGroups(QSize size)
    {
        takeTransforms(size);
        takeColourCache();
        const bool hasGroups = m_bits.take(1) == 1;
        return hasGroups ? takePicture(blocksOf(size)) + 1 : 1;
    }

private:
    enum Transform { Predictor, ColourDistance, GreenDifference, Palette };

    void takeTransforms(QSize &size)
    {
        quint32 taken = 0;
        while (m_bits.take(1) == 1 && !isBroken()) {
            const quint32 transform = m_bits.take(2);
            m_isBroken = (taken & 1U << transform) != 0;
            taken |= 1U << transform;
            if (transform == Palette)
                takePalette(size);
            else if (transform != GreenDifference)
                takePicture(blocksOf(size));
        }
    }

    /// A picture of few colours packs several pixels into one.
    void takePalette(QSize &size)
    {
        const int colours = int(m_bits.take(8)) + 1;
        takePicture({colours, 1});
        const int bits = colours > 16 ? 0 : colours > 4 ? 1 : colours > 2 ? 2 : 3;
        size.setWidth(blocks(size.width(), bits));
    }

    QSize blocksOf(QSize size)
    {
        const int bits = int(m_bits.take(3)) + 2;
        return {blocks(size.width(), bits), blocks(size.height(), bits)};
    }

    /// The size of the colour cache: recent colours, which a pixel can name by index.
    int takeColourCache()
    {
        constexpr int mostBits = 11;
        if (m_bits.take(1) == 0)
            return 0;
        const int bits = int(m_bits.take(4));
        m_isBroken = m_isBroken || bits < 1 || bits > mostBits;
        return isBroken() ? 0 : 1 << bits;
    }

    /// The highest 16-bit number that red and green of any pixel form. A repeated pixel has occurred before,
    /// so only literal pixels count.
    int takePicture(QSize size)
    {
        const int cache = takeColourCache();
        const QVPrefixCode green = takeCode(literals + lengthPrefixes + cache);
        const QVPrefixCode red = takeCode(literals);
        const QVPrefixCode blue = takeCode(literals);
        const QVPrefixCode alpha = takeCode(literals);
        const QVPrefixCode distance = takeCode(distancePrefixes);
        int highest = 0;
        for (qint64 left = qint64(size.width()) * size.height(); left > 0 && !isBroken();) {
            const int symbol = green.take(m_bits);
            if (symbol < literals) {
                highest = std::max(highest, red.take(m_bits) << 8 | symbol);
                blue.take(m_bits);
                alpha.take(m_bits);
                --left;
            } else if (symbol < literals + lengthPrefixes) {
                left -= takePrefixed(symbol - literals);
                takePrefixed(distance.take(m_bits));
            } else {
                --left;
            }
        }
        return highest;
    }

    /// Reads a number whose prefix gives its length and its first bits.
    qint64 takePrefixed(int prefix)
    {
        if (prefix < 4)
            return prefix + 1;
        const int bits = (prefix - 2) >> 1;
        return (qint64(2 + (prefix & 1)) << bits) + m_bits.take(bits) + 1;
    }

    QVPrefixCode takeCode(int symbols)
    {
        std::vector<quint8> lengths(std::size_t(std::max(symbols, literals)));
        const bool isShort = m_bits.take(1) == 1;
        if (isShort)
            takeShortLengths(lengths);
        else
            takeLengths(std::span(lengths).first(std::size_t(symbols)));
        QVPrefixCode code(std::span<const quint8>(lengths).first(std::size_t(symbols)));
        m_isBroken = m_isBroken || !code.isComplete();
        return isBroken() ? QVPrefixCode() : code;
    }

    /// A code of one or two symbols.
    void takeShortLengths(std::vector<quint8> &lengths)
    {
        const bool hasTwo = m_bits.take(1) == 1;
        const int firstBits = m_bits.take(1) == 1 ? 8 : 1;
        lengths[m_bits.take(firstBits)] = 1;
        if (hasTwo)
            lengths[m_bits.take(8)] = 1;
    }

    /// A code of any number of symbols, whose lengths are packed by another code.
    void takeLengths(std::span<quint8> lengths)
    {
        constexpr std::array<quint8, 19> order{17, 18, 0, 1,  2,  3,  4,  5,  16, 6,
                                               7,  8,  9, 10, 11, 12, 13, 14, 15};
        std::array<quint8, order.size()> ownLengths{};
        const quint32 count = std::min<quint32>(m_bits.take(4) + 4, order.size());
        for (quint32 i = 0; i < count; ++i)
            ownLengths[order[i]] = quint8(m_bits.take(3));
        const QVPrefixCode code(ownLengths);
        m_isBroken = m_isBroken || !code.isComplete();
        const bool isPartial = m_bits.take(1) == 1;
        int left = isPartial ? int(2 + m_bits.take(2 + 2 * int(m_bits.take(3)))) : int(lengths.size());
        quint8 previous = 8;
        for (std::size_t at = 0; at < lengths.size() && left > 0 && !isBroken(); --left) {
            const int symbol = code.take(m_bits);
            const Run run = takeRun(symbol, previous);
            m_isBroken = run.count > lengths.size() - at;
            std::fill_n(lengths.begin() + qptrdiff(at), isBroken() ? 0 : run.count, run.length);
            at += run.count;
            if (run.length != 0)
                previous = run.length;
        }
    }

    struct Run
    {
        quint8 length;
        std::size_t count;
    };

    Run takeRun(int symbol, quint8 previous)
    {
        constexpr int repetition = 16;
        constexpr int fewZeros = 17;
        constexpr int manyZeros = 18;
        switch (symbol) {
        case repetition:
            return {previous, 3 + m_bits.take(2)};
        case fewZeros:
            return {0, 3 + m_bits.take(3)};
        case manyZeros:
            return {0, 11 + m_bits.take(7)};
        default:
            return {quint8(symbol), 1};
        }
    }

    QVBitReader m_bits;
    bool m_isBroken = false;
};

} // namespace

QVWebPCodes QVWebPCodes::ofPicture(QByteArrayView chunk)
{
    constexpr char signature = 0x2f;
    if (!chunk.startsWith(signature))
        return {};
    Head head(chunk.sliced(1));
    const QSize size = head.takeSize();
    // The cost of the following reads grows with the number of pixels.
    if (!qv_isPictureSizeAllowed(size.width(), size.height()))
        return {};
    const int groups = head.takeGroups(size);
    return head.isBroken() ? QVWebPCodes() : QVWebPCodes{size, groups};
}

QVWebPCodes QVWebPCodes::ofAlpha(QByteArrayView chunk, QSize size)
{
    constexpr int methods = 0x03;
    constexpr int lossless = 1;
    if (chunk.isEmpty() || (chunk.front() & methods) != lossless)
        return {size, 1};
    Head head(chunk.sliced(1));
    const int groups = head.takeGroups(size);
    return head.isBroken() ? QVWebPCodes() : QVWebPCodes{size, groups};
}
