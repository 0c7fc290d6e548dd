#include "image/QVWebPFrame.h"

#include "image/QVByteReader.h"
#include "image/QVPictureSize.h"
#include "image/QVWebPCodes.h"

#include <QSize>

namespace {

// A decoder keeps up to 20 KiB of tables for each group, and a file of 300 KB can have 65,536 groups.
// Encoders use a few hundred for a picture of some 2,600 blocks.
constexpr int mostCodeGroups = 1000;

struct RiffChunk
{
    QByteArrayView type;
    QByteArrayView content;

    [[nodiscard]] bool is(const char *name) const { return type == name; }
};

RiffChunk takeChunk(QVByteReader &reader)
{
    RiffChunk chunk;
    chunk.type = reader.take(4);
    const quint32 length = reader.littleEndian(4);
    chunk.content = reader.take(length);
    // Chunks begin at even offsets; the padding of the last one may be missing.
    if (length % 2 == 1 && !reader.isAtEnd())
        reader.byte();
    return chunk;
}

QByteArray chunkOf(QByteArrayView type, QByteArrayView content)
{
    QByteArray chunk = type.toByteArray();
    for (int shift = 0; shift < 32; shift += 8)
        chunk += char(content.size() >> shift);
    chunk += content;
    if (content.size() % 2 == 1)
        chunk += '\0';
    return chunk;
}

bool isSizeAllowed(QSize size)
{
    return qv_isPictureSizeAllowed(size.width(), size.height());
}

/// The size of a lossy picture (VP8); empty if the content is not one.
QSize lossySize(QByteArrayView content)
{
    constexpr quint32 startCode = 0x2a019d;
    constexpr quint32 sizeMask = 0x3fff;
    QVByteReader reader(content);
    reader.take(3);
    if (reader.littleEndian(3) != startCode)
        return {};
    const quint32 width = reader.littleEndian(2) & sizeMask;
    return {int(width), int(reader.littleEndian(2) & sizeMask)};
}

/// The chunks of one frame: the picture, preceded by the transparency if it is a lossy one.
QByteArray pixelChunks(QVByteReader &reader)
{
    RiffChunk alpha;
    while (!reader.isAtEnd() && !reader.hasFailed()) {
        const RiffChunk chunk = takeChunk(reader);
        if (chunk.is("VP8L")) {
            const QVWebPCodes codes = QVWebPCodes::ofPicture(chunk.content);
            return isSizeAllowed(codes.size) && codes.groups <= mostCodeGroups
                       ? chunkOf(chunk.type, chunk.content)
                       : QByteArray();
        }
        if (chunk.is("ALPH"))
            alpha = chunk;
        if (!chunk.is("VP8 "))
            continue;
        const QSize size = lossySize(chunk.content);
        if (!isSizeAllowed(size))
            return {};
        const QByteArray picture = chunkOf(chunk.type, chunk.content);
        if (alpha.type.isEmpty())
            return picture;
        return QVWebPCodes::ofAlpha(alpha.content, size).groups <= mostCodeGroups
                   ? chunkOf(alpha.type, alpha.content) + picture
                   : QByteArray();
    }
    return {};
}

/// The settings of an animation and its first frame.
QByteArray animationChunks(QVByteReader &reader)
{
    constexpr int headLength = 16;
    QByteArray settings;
    while (!reader.isAtEnd() && !reader.hasFailed()) {
        const RiffChunk chunk = takeChunk(reader);
        if (chunk.is("ANIM"))
            settings = chunkOf(chunk.type, chunk.content);
        if (!chunk.is("ANMF"))
            continue;
        QVByteReader frame(chunk.content);
        const QByteArrayView head = frame.take(headLength);
        const QByteArray pixels = pixelChunks(frame);
        return pixels.isEmpty() ? QByteArray() : settings + chunkOf(chunk.type, head.toByteArray() + pixels);
    }
    return {};
}

/// The chunks of an extended file, which may have more in it than a picture.
QByteArray extendedChunks(QByteArrayView head, QVByteReader &reader)
{
    constexpr quint8 isAnimated = 0x02;
    constexpr quint8 hasAlpha = 0x10;
    QVByteReader fields(head);
    const quint8 flags = fields.byte() & (isAnimated | hasAlpha);
    fields.take(3);
    const QByteArrayView canvas = fields.take(6);
    QVByteReader sides(canvas);
    const quint32 width = sides.littleEndian(3) + 1;
    const quint32 height = sides.littleEndian(3) + 1;
    if (fields.hasFailed() || !qv_isPictureSizeAllowed(width, height))
        return {};
    const QByteArray chunks = flags & isAnimated ? animationChunks(reader) : pixelChunks(reader);
    const QByteArray kept = QByteArray(1, char(flags)) + QByteArray(3, '\0') + canvas.toByteArray();
    return chunks.isEmpty() ? QByteArray() : chunkOf("VP8X", kept) + chunks;
}

} // namespace

QByteArray qv_webPFrame(QByteArrayView file)
{
    constexpr int containerLength = 12;
    QVByteReader reader(file.sliced(containerLength));
    QVByteReader pixels = reader;
    const RiffChunk first = takeChunk(reader);
    const QByteArray chunks = first.is("VP8X") ? extendedChunks(first.content, reader) : pixelChunks(pixels);
    return chunks.isEmpty() ? QByteArray() : chunkOf("RIFF", "WEBP" + chunks);
}
