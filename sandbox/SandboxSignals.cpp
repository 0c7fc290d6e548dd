#include "sandbox/SandboxSignals.h"

#include <csignal>
#include <unistd.h>

namespace {

// A signal handler may only call a few functions; writing to a pipe is allowed.
volatile sig_atomic_t writeEnd = -1;

void handleSignal(int)
{
    const char byte = 0;
    [[maybe_unused]] const auto written = ::write(writeEnd, &byte, 1);
}

void setHandler(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

} // namespace

SandboxSignals::SandboxSignals()
{
    if (::pipe(m_pipe.data()) != 0)
        return;
    writeEnd = m_pipe[1];
    m_notifier = std::make_unique<QSocketNotifier>(m_pipe[0], QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &SandboxSignals::stopRequested);
    setHandler(handleSignal);
}

SandboxSignals::~SandboxSignals()
{
    setHandler(SIG_DFL);
    m_notifier.reset();
    for (const int end : m_pipe) {
        if (end >= 0)
            ::close(end);
    }
}
