#pragma once

#include <QByteArray>
#include <QByteArrayView>

/// The bytes of QVFirstFrame for a WebP file; empty if the file is refused.
[[nodiscard]] QByteArray qv_webPFrame(QByteArrayView file);
