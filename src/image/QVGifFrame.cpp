#include "image/QVGifFrame.h"

#include "image/QVByteReader.h"
#include "image/QVPictureSize.h"

namespace {

enum Block : quint8 { Extension = 0x21, Image = 0x2c, End = 0x3b };
constexpr quint8 graphicControl = 0xf9;

qsizetype colourTableSize(quint8 flags)
{
    constexpr quint8 hasTable = 0x80;
    constexpr int bytesPerColour = 3;
    return flags & hasTable ? qsizetype(bytesPerColour) << ((flags & 7) + 1) : 0;
}

void skipSubBlocks(QVByteReader &reader)
{
    while (const quint8 length = reader.byte())
        reader.take(length);
}

bool takeSize(QVByteReader &reader)
{
    const quint32 width = reader.littleEndian(2);
    return qv_isPictureSizeAllowed(width, reader.littleEndian(2));
}

/// Reads a frame from behind its first byte to the end of its pixels.
bool takeImage(QVByteReader &reader)
{
    reader.take(4);
    if (!takeSize(reader))
        return false;
    const quint8 flags = reader.byte();
    reader.take(colourTableSize(flags));
    reader.byte();
    skipSubBlocks(reader);
    return !reader.hasFailed();
}

} // namespace

QByteArray qv_gifFrame(QByteArrayView file)
{
    QVByteReader reader(file);
    reader.take(6);
    if (!takeSize(reader))
        return {};
    const quint8 flags = reader.byte();
    reader.take(2);
    reader.take(colourTableSize(flags));
    const QByteArrayView head = file.first(reader.position());

    // A control block before the frame tells which colour is transparent, and whether the frame stays.
    QByteArrayView control;
    while (!reader.hasFailed()) {
        const qsizetype start = reader.position();
        const quint8 block = reader.byte();
        const bool isControl = block == Extension && reader.byte() == graphicControl;
        if (block == Extension) {
            skipSubBlocks(reader);
        } else if (block != Image || !takeImage(reader)) {
            return {};
        }
        const QByteArrayView taken = file.sliced(start, reader.position() - start);
        if (isControl)
            control = taken;
        else if (block == Image)
            return head.toByteArray().append(control).append(taken).append(char(End));
    }
    return {};
}
