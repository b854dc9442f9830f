#pragma once

#include "FaultMessage.h"
#include "RunProgram.h"

#include <fstream>

#include <sys/socket.h>

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

/// A program on a disk that goes wrong. It is started once, and stays at its very beginning; each
/// run is a copy of it.
class FaultyProgram {
public:
    FaultyProgram(const std::filesystem::path& program, const std::vector<std::string>& arguments) {
        std::array<int, 2> ends{};
        if (::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()) != 0)
            throw std::runtime_error("no channel to a program");
        m_channel = ends[0];
        m_process = startProgram(program, arguments, [&] {
            ::dup2(m_out.descriptor(), 1);
            ::dup2(m_err.descriptor(), 2);
            return Environment{{"LD_PRELOAD", WENDLOW_FAULTY_DISK},
                               {"ASAN_OPTIONS", "verify_asan_link_order=0"},
                               {"WENDLOW_FAULT_CHANNEL", std::to_string(::dup(ends[1]))}};
        });
        ::close(ends[1]);
    }
    ~FaultyProgram() {
        ::close(m_channel); // which ends it
        ::waitpid(m_process, nullptr, 0);
    }
    FaultyProgram(const FaultyProgram&) = delete;
    FaultyProgram& operator=(const FaultyProgram&) = delete;

    FaultyRun run(const DiskFault& fault) {
        // Beside the root, never in it: the trace itself is not to be seen by the program.
        const auto trace = fault.root + ".trace";
        FaultMessage message{.at = fault.at,
                             .persists = fault.lasting == DiskFault::Lasting::persistent};
        put(message.root, fault.root);
        put(message.error, fault.error);
        put(message.kill, fault.kill);
        put(message.command, fault.command);
        put(message.lacks, fault.lacks);
        if (fault.at == 0)
            put(message.trace, trace);
        m_out.clear();
        m_err.clear();
        FaultReply reply;
        if (::send(m_channel, &message, sizeof message, MSG_NOSIGNAL) < 0 ||
            ::recv(m_channel, &reply, sizeof reply, 0) != ssize_t{sizeof reply})
            throw std::runtime_error("the program does not wait for its run: " + m_err.text());
        FaultyRun run{ended(reply.process, reply.status, m_out, m_err), {}};
        if (fault.at != 0)
            return run;
        std::ifstream lines(trace);
        for (std::string line; std::getline(lines, line);)
            run.calls.push_back(line.substr(line.find(' ') + 1));
        std::filesystem::remove(trace);
        return run;
    }

private:
    template<std::size_t size>
    static void put(std::array<char, size>& room, const std::string& text) {
        if (text.size() >= size)
            throw std::runtime_error("too long for a message: " + text);
        text.copy(room.data(), size);
    }

    StandardFile m_out, m_err;
    int m_channel = -1;
    pid_t m_process = -1;
};

} // namespace wendlow::testing
