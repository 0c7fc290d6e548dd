#include "image/QVPngFrame.h"

#include "image/QVByteReader.h"
#include "image/QVPictureSize.h"

#include <algorithm>
#include <array>

namespace {

struct Chunk
{
    const char *type;
    quint32 longest;
};

// In the order of a file. All other chunks are texts, colour profiles (which painting ignores) and later
// frames.
constexpr std::array neededChunks{Chunk{"IHDR", 13}, Chunk{"PLTE", 3 * 256}, Chunk{"tRNS", 256},
                                  Chunk{"IDAT", 0x7fffffff}, Chunk{"IEND", 0}};
constexpr auto *const header = &neededChunks[0];
constexpr auto *const data = &neededChunks[3];

bool isHeaderAllowed(QByteArrayView content)
{
    QVByteReader reader(content);
    const quint32 width = reader.bigEndian(4);
    return qv_isPictureSizeAllowed(width, reader.bigEndian(4));
}

} // namespace

QByteArray qv_pngFrame(QByteArrayView file)
{
    constexpr int signatureLength = 8;
    constexpr int checksumLength = 4;
    QVByteReader reader(file);
    QByteArray kept = reader.take(signatureLength).toByteArray();
    kept.reserve(file.size());
    const Chunk *last = nullptr;
    while (!reader.isAtEnd()) {
        const qsizetype start = reader.position();
        const quint32 length = reader.bigEndian(4);
        const QByteArrayView type = reader.take(4);
        const QByteArrayView content = reader.take(length);
        reader.take(checksumLength);
        if (reader.hasFailed())
            break;
        const auto *const needed =
            std::ranges::find_if(neededChunks, [&](const Chunk &chunk) { return type == chunk.type; });
        if (needed == neededChunks.end())
            continue;
        const bool isInOrder = last ? needed > last || (needed == last && needed == data) : needed == header;
        if (!isInOrder || length > needed->longest || (needed == header && !isHeaderAllowed(content)))
            return {};
        kept += file.sliced(start, reader.position() - start);
        last = needed;
    }
    return kept;
}
