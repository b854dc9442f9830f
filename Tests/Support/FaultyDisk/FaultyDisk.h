#pragma once

#include "RunProgram.h"

#include <fstream>

namespace wendlow::testing {

/// How a program's disk goes wrong. The calls that are counted are those on paths below `root`, and
/// on files opened there, from 1.
struct DiskFault {
    enum class Lasting { once, persistent };

    std::string root = "";
    long at = 0; ///< the call that goes wrong; 0: none does, the calls are only counted
    /// ENOSPC, EIO, EACCES, EPERM, EROFS or EINTR: the call fails so, a write after taking half of
    /// the bytes. SHORT: a read or write does half of it and says so. CORRUPT: a write says it went
    /// well and did not.
    std::string error = "";
    /// Whether every later call that changes something fails too; with ENOSPC, that needs room.
    Lasting lasting = Lasting::once;
    std::string kill = "";    ///< "before" or "after": the process dies there
    std::string command = ""; ///< a shell command that runs just before the call
    std::string lacks = "";   ///< what the file system does not know: "renameat2", "link", or both
};

/// A finished run. When its disk had no fault, with the counted calls in order: "open /path",
/// "write (open file)".
struct FaultyRun : ProgramRun {
    std::vector<std::string> calls;
};

/// Runs a program on a disk with this fault.
inline FaultyRun runFaulty(const std::filesystem::path& program,
                           const std::vector<std::string>& arguments, const DiskFault& fault,
                           Environment environment = {}) {
    // Beside the root, never in it: the trace itself is not to be seen by the program.
    const auto trace = fault.root + ".trace";
    environment.insert({{"LD_PRELOAD", WENDLOW_FAULTY_DISK},
                        {"ASAN_OPTIONS", "verify_asan_link_order=0"},
                        {"WENDLOW_FAULT_ROOT", fault.root},
                        {"WENDLOW_FAULT_AT", std::to_string(fault.at)},
                        {"WENDLOW_FAULT_ERRNO", fault.error},
                        {"WENDLOW_FAULT_KILL", fault.kill}});
    if (fault.lasting == DiskFault::Lasting::persistent)
        environment["WENDLOW_FAULT_MODE"] = "persist";
    if (!fault.command.empty())
        environment["WENDLOW_FAULT_RUN"] = fault.command;
    if (!fault.lacks.empty())
        environment["WENDLOW_FAULT_LACKS"] = fault.lacks;
    if (fault.at == 0)
        environment["WENDLOW_FAULT_TRACE"] = trace;
    FaultyRun run{runProgram(program, arguments, environment), {}};
    if (fault.at != 0)
        return run;
    std::ifstream lines(trace);
    for (std::string line; std::getline(lines, line);)
        run.calls.push_back(line.substr(line.find(' ') + 1));
    std::filesystem::remove(trace);
    return run;
}

} // namespace wendlow::testing
