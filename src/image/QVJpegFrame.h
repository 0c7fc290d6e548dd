#pragma once

#include <QByteArray>
#include <QByteArrayView>

/// QVFirstFrame's bytes for a JPEG file; empty where it is refused.
[[nodiscard]] QByteArray qv_jpegFrame(QByteArrayView file);
