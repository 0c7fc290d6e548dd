#pragma once

#include <QByteArray>
#include <QByteArrayView>

/// QVFirstFrame's bytes for a WebP file; empty where it is refused.
[[nodiscard]] QByteArray qv_webPFrame(QByteArrayView file);
