#pragma once

#include <QByteArrayView>
#include <QSize>

#include <limits>

/// The number of groups of prefix codes in a lossless WebP picture. Each group is a set of tables in the
/// decoder's memory. Only the packed head of the picture tells the number.
struct QVWebPCodes
{
    QSize size;
    /// If the head is broken, more than any file has.
    int groups = std::numeric_limits<int>::max();

    /// The count of a chunk VP8L, which holds its own size.
    [[nodiscard]] static QVWebPCodes ofPicture(QByteArrayView chunk);
    /// The count of a chunk ALPH.
    [[nodiscard]] static QVWebPCodes ofAlpha(QByteArrayView chunk, QSize size);
};
