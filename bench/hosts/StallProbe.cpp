#include "hosts/StallProbe.h"

#include "hosts/BenchClock.h"

#include <algorithm>
#include <dlfcn.h>
#include <poll.h>

namespace {

constexpr double longMilliseconds = 4;

// The event loop does not tell when it wakes up. So the program replaces poll() of the system by its own.
thread_local bool isWatching = false;
double awakeSince = 0;
double longestStall = 0;
int longStalls = 0;

template<class Poll>
int watched(bool mayWait, Poll poll)
{
    if (!isWatching || !mayWait)
        return poll();
    if (awakeSince > 0) {
        const double stall = benchNow() - awakeSince;
        longestStall = std::max(longestStall, stall);
        longStalls += stall > longMilliseconds ? 1 : 0;
    }
    const int ready = poll();
    awakeSince = benchNow();
    return ready;
}

template<class Function>
Function usual(const char *name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C" Q_DECL_EXPORT int poll(pollfd *descriptors, nfds_t count, int timeout)
{
    static const auto real = usual<decltype(&poll)>("poll");
    return watched(timeout != 0, [&] { return real(descriptors, count, timeout); });
}

extern "C" Q_DECL_EXPORT int ppoll(pollfd *descriptors, nfds_t count, const timespec *timeout,
                                   const sigset_t *signals)
{
    static const auto real = usual<decltype(&ppoll)>("ppoll");
    const bool mayWait = !timeout || timeout->tv_sec > 0 || timeout->tv_nsec > 0;
    return watched(mayWait, [&] { return real(descriptors, count, timeout, signals); });
}

void watchStalls()
{
    awakeSince = 0;
    isWatching = true;
}

void pauseStalls()
{
    isWatching = false;
}

QJsonObject seenStalls()
{
    return {{QStringLiteral("longest"), longestStall}, {QStringLiteral("many"), longStalls}};
}
