#pragma once

#include <QByteArray>
#include <QByteArrayView>

/// The bytes of QVFirstFrame for a JPEG file; empty if the file is refused.
[[nodiscard]] QByteArray qv_jpegFrame(QByteArrayView file);
