#pragma once

#include <QByteArray>
#include <QByteArrayView>

/// QVFirstFrame's bytes for a PNG file; empty where it is refused.
[[nodiscard]] QByteArray qv_pngFrame(QByteArrayView file);
