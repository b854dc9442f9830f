// What an AI tool runs at its events: `wendlow-hook --harness <harness> [--slot <slot>]`, either
// flag also with `=`. While no gateway speaks to it, it has nothing to say: it takes what the tool
// writes to it, so that the tool sees no broken pipe, and ends well. A tool shows its person
// whatever a hook prints and any exit status but 0, and may hold their prompt until the hook ends,
// so no argument, input or failure makes it do either, and it never outstays its time.

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>

#include <poll.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

/// The tools give a hook three seconds.
constexpr std::chrono::milliseconds patience{2000};

/// Reads to the end of the input, or until `deadline` where a tool keeps its end open.
void drain(int descriptor, Clock::time_point deadline) {
    static std::array<char, 65536> buffer;
    while (true) {
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
        if (left <= 0)
            return;
        pollfd waiting{.fd = descriptor, .events = POLLIN, .revents = 0};
        const int ready = ::poll(&waiting, 1, static_cast<int>(left));
        if (ready == 0 || (ready < 0 && errno != EINTR))
            return;
        if (ready < 0)
            continue;
        const ssize_t length = ::read(descriptor, buffer.data(), buffer.size());
        if (length == 0 || (length < 0 && errno != EINTR && errno != EAGAIN))
            return;
    }
}

} // namespace

int main() {
    const Clock::time_point start = Clock::now();
    std::signal(SIGPIPE, SIG_IGN);
    // A person at a terminal, trying it out, is not kept waiting for an end of input.
    if (::isatty(STDIN_FILENO) == 0)
        drain(STDIN_FILENO, start + patience);
    return 0;
}
