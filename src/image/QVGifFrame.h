#pragma once

#include <QByteArray>
#include <QByteArrayView>

/// The bytes of QVFirstFrame for a GIF file; empty if the file is refused.
[[nodiscard]] QByteArray qv_gifFrame(QByteArrayView file);
