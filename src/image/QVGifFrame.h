#pragma once

#include <QByteArray>
#include <QByteArrayView>

/// QVFirstFrame's bytes for a GIF file; empty where it is refused.
[[nodiscard]] QByteArray qv_gifFrame(QByteArrayView file);
