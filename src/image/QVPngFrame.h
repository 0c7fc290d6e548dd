#pragma once

#include <QByteArray>
#include <QByteArrayView>

/// The bytes of QVFirstFrame for a PNG file; empty if the file is refused.
[[nodiscard]] QByteArray qv_pngFrame(QByteArrayView file);
