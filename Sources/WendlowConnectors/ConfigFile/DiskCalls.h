#pragma once

#include "ConfigFile/Disk.h"

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

/// What the sources of `Disk` share; no concern of anybody else.
namespace wendlow::Disk {

inline std::unexpected<int> lastError() {
    return std::unexpected(errno);
}

inline Result<void> outcome(int status) {
    if (status != 0)
        return lastError();
    return {};
}

/// Repeats a call that a signal cut short.
template<class Call> auto uninterrupted(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

inline int openToRead(const Path& path, int flags) {
    // Without O_NONBLOCK a pipe at the path would hold us until somebody writes to it.
    return uninterrupted(
        [&] { return ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY | flags); });
}

class Descriptor {
public:
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor() {
        if (m_number >= 0)
            ::close(m_number);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int number() const { return m_number; }

    /// Linux lets go of the descriptor even when close fails, so this is never tried twice; one
    /// that a signal cut short has closed.
    Result<void> close() {
        const int status = ::close(std::exchange(m_number, -1));
        return status != 0 && errno != EINTR ? Result<void>(lastError()) : Result<void>();
    }

private:
    int m_number;
};

} // namespace wendlow::Disk
