#pragma once

#include <QByteArray>
#include <QByteArrayView>

/// A picture file reduced to what the pixels of its first frame need.
///
/// Decoders do what a file tells them: they unpack texts, repeat scans and keep frames, at a cost of
/// memory and time that has nothing to do with the file's size. What could make them do so is left
/// out here, or the file is refused. How the pixels themselves are packed is not looked at: that is
/// the decoder's to check.
struct QVFirstFrame
{
    /// Qt's name of the format; empty where the file is refused.
    QByteArray format;
    QByteArray bytes;

    /// Knows PNG, JPEG, GIF and WebP by their first bytes. Qt would load and ask every image plugin it
    /// finds, and some of them read formats that can do much more than show a picture.
    [[nodiscard]] static QVFirstFrame ofFile(QByteArrayView file);
};
