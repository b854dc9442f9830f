#include "TerminationSignals.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <array>
#include <csignal>

#include <sys/eventfd.h>
#include <unistd.h>

namespace wendlow {

namespace {

constexpr std::array signals = {SIGTERM, SIGINT, SIGHUP};

// A signal handler may write to a descriptor and do little else.
int wakeup = -1;

volatile std::sig_atomic_t exitStatus = 0;
volatile std::sig_atomic_t isEnding = 0;

void end(int) {
    ::_exit(exitStatus);
}

/// Not even an event loop that stands still outlasts this: the kernel's own clock ends the process.
void endSoon() {
    constexpr unsigned seconds = 1;
    if (isEnding != 0)
        return;
    isEnding = 1;
    ::signal(SIGALRM, &end);
    ::alarm(seconds);
}

void wake(int) {
    endSoon();
    const eventfd_t one = 1;
    [[maybe_unused]] const ssize_t written = ::write(wakeup, &one, sizeof one);
}

void handleWith(void (*handler)(int)) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int signal : signals)
        ::sigaction(signal, &action, nullptr);
}

} // namespace

TerminationSignals::TerminationSignals() {
    wakeup = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (wakeup < 0)
        return;
    m_notifier = std::make_unique<QSocketNotifier>(wakeup, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, [] {
        eventfd_t count = 0;
        ::eventfd_read(wakeup, &count);
        QCoreApplication::quit();
    });
    handleWith(&wake);
}

TerminationSignals::~TerminationSignals() {
    if (wakeup < 0)
        return;
    handleWith(SIG_DFL);
    m_notifier.reset();
    ::close(wakeup);
    wakeup = -1;
}

int TerminationSignals::leave(int status) {
    exitStatus = status;
    endSoon();
    return status;
}

} // namespace wendlow

#include "moc_TerminationSignals.cpp"
