#pragma once

#include <QBuffer>
#include <QImage>

/// A picture of one colour, as a file.
[[nodiscard]] inline QByteArray qv_testPicture(QSize size, const QColor &colour, const char *format)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(colour);
    QBuffer buffer;
    image.save(&buffer, format);
    return buffer.data();
}

/// A JPEG file whose head claims to be 50,000 pixels wide and high.
[[nodiscard]] inline QByteArray qv_giantClaim()
{
    QByteArray bytes = qv_testPicture({16, 16}, Qt::red, "jpeg");
    constexpr qsizetype sizeInFrame = 5;
    constexpr char claim[] = "\xc3\x50\xc3\x50";
    return bytes.replace(bytes.indexOf("\xff\xc0") + sizeInFrame, 4, claim, 4);
}
