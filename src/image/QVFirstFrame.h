#pragma once

#include <QByteArray>
#include <QByteArrayView>

/// A picture file, reduced to the parts that the pixels of its first frame need.
///
/// Decoders do what a file says: they unpack texts, repeat scans and keep frames. A small file can make them
/// use much memory and time. Parts that could do so are left out here, or the file is refused. The packed
/// pixels are not checked here; the decoder does that.
struct QVFirstFrame
{
    /// Qt's name of the format; empty where the file is refused.
    QByteArray format;
    QByteArray bytes;

    /// Recognises PNG, JPEG, GIF and WebP by their first bytes. Qt's own detection would load every image
    /// plugin that it finds, and some of them read formats that can do much more than show a picture.
    [[nodiscard]] static QVFirstFrame ofFile(QByteArrayView file);
};
