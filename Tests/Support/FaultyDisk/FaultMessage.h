#pragma once

#include <array>

#include <sys/types.h>

namespace wendlow::testing {

/// What a test tells a program that waits on a faulty disk before it lets it run: see `DiskFault`.
/// Texts end in NUL.
struct FaultMessage {
    std::array<char, 512> root{};
    long at = 0;
    std::array<char, 16> error{};
    bool persists = false;
    std::array<char, 16> kill{};
    std::array<char, 1024> command{};
    std::array<char, 32> lacks{};
    std::array<char, 512> trace{}; ///< where the calls are noted; empty: nowhere
};

/// What it hears when the run is over.
struct FaultReply {
    pid_t process = 0;
    int status = 0; ///< as `waitpid` gives it
};

} // namespace wendlow::testing
