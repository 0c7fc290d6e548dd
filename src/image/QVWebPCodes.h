#pragma once

#include <QByteArrayView>
#include <QSize>

#include <limits>

/// How many groups of prefix codes a losslessly packed WebP picture has. Each is a set of tables that the
/// decoder keeps, and nothing but the picture's packed head tells how many there are.
struct QVWebPCodes
{
    QSize size;
    /// More than any file has where the head is broken.
    int groups = std::numeric_limits<int>::max();

    /// The count of a chunk VP8L, which holds its own size.
    [[nodiscard]] static QVWebPCodes ofPicture(QByteArrayView chunk);
    /// The count of a chunk ALPH.
    [[nodiscard]] static QVWebPCodes ofAlpha(QByteArrayView chunk, QSize size);
};
