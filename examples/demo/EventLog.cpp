#include "demo/EventLog.h"

#include <cstdio>

void EventLog::add(const QString &kind, const QString &detail)
{
    const QString line = detail.isEmpty() ? kind : kind + u' ' + detail.simplified();
    std::printf("%s\n", qUtf8Printable(line));
    std::fflush(stdout);
    m_kinds.append(kind);
    Q_EMIT added(line);
}
