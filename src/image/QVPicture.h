#pragma once

#include <QImage>

/// A picture, and the same in the size in which it is painted first. That one is made on the thread that
/// decodes, since it takes long. It is null if nobody said how large it is.
struct QVPicture
{
    QImage image;
    QImage scaled;
};
