#pragma once

#include <QFile>

/// A figure of /proc/self/status in bytes, by its name: "VmRSS" for the memory in use, "VmHWM" for its peak.
inline qint64 qv_memory(const QByteArray &name)
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray text = file.readAll();
    const qsizetype at = text.indexOf(name + ':') + name.size() + 1;
    constexpr qint64 kilobyte = 1024;
    return text.mid(at, text.indexOf("kB", at) - at).trimmed().toLongLong() * kilobyte;
}

/// Starts measuring the peak anew.
inline void qv_forgetPeakOfMemory()
{
    QFile file(QStringLiteral("/proc/self/clear_refs"));
    if (file.open(QIODevice::WriteOnly))
        file.write("5");
}
