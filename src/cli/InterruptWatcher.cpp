#include "cli/InterruptWatcher.h"

#include <sys/socket.h>
#include <unistd.h>

#include <csignal>

namespace {

int gPipe[2] = {-1, -1};

void onSignal(int)
{
    const char byte = 1;
    [[maybe_unused]] const ssize_t written = ::write(gPipe[1], &byte, 1);
}

} // namespace

InterruptWatcher::InterruptWatcher(std::function<void()> onInterrupt)
    : m_onInterrupt(std::move(onInterrupt))
{
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, gPipe) != 0)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(gPipe[0], QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [this] {
        char byte = 0;
        [[maybe_unused]] const ssize_t read = ::read(gPipe[0], &byte, 1);
        m_onInterrupt();
    });
    std::signal(SIGINT, onSignal);
}

InterruptWatcher::~InterruptWatcher()
{
    std::signal(SIGINT, SIG_DFL);
    m_notifier.reset();
    for (int& fd : gPipe) {
        if (fd >= 0)
            ::close(fd);
        fd = -1;
    }
}
