#include "StandardInput.h"

#include <cerrno>

#include <poll.h>
#include <unistd.h>

namespace wendlow::StandardInput {

namespace {

using Clock = std::chrono::steady_clock;

/// Whether something can be read by the deadline.
bool waits(Clock::time_point deadline) {
    while (true) {
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
        if (left <= 0)
            return false;
        pollfd waiting{.fd = STDIN_FILENO, .events = POLLIN, .revents = 0};
        const int ready = ::poll(&waiting, 1, static_cast<int>(left));
        if (ready > 0)
            return true;
        if (ready == 0 || errno != EINTR)
            return false;
    }
}

} // namespace

std::optional<std::string> read(Clock::time_point deadline) {
    if (::isatty(STDIN_FILENO) != 0)
        return std::nullopt;
    std::string text;
    std::string chunk(65536, '\0');
    bool isTooMuch = false;
    while (waits(deadline)) {
        const ssize_t length = ::read(STDIN_FILENO, chunk.data(), chunk.size());
        if (length == 0)
            return isTooMuch ? std::nullopt : std::optional(std::move(text));
        if (length < 0 && errno != EINTR && errno != EAGAIN)
            return std::nullopt;
        if (length < 0)
            continue;
        isTooMuch = isTooMuch || text.size() + static_cast<std::size_t>(length) > mostKept;
        if (!isTooMuch)
            text.append(chunk, 0, static_cast<std::size_t>(length));
    }
    return std::nullopt;
}

} // namespace wendlow::StandardInput
