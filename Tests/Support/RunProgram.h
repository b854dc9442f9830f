#pragma once

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include <signal.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace wendlow::testing {

/// How a program ended, and what it said.
struct ProgramRun {
    int status = -1; ///< the exit status; -1 when it did not exit
    int signal = 0;  ///< the signal that ended it; 0 when none did
    bool timedOut = false;
    std::string out;
    std::string err;
};

using Environment = std::map<std::string, std::string>;

/// A file without a name, as one of a program's three: unlike a pipe it takes all that is written.
class StandardFile {
public:
    explicit StandardFile(const std::string& text = {})
        : m_file(::memfd_create("standard", MFD_CLOEXEC)) {
        if (::pwrite(m_file, text.data(), text.size(), 0) != static_cast<ssize_t>(text.size()))
            throw std::runtime_error("no file for a program's input or output");
    }
    ~StandardFile() { ::close(m_file); }
    StandardFile(const StandardFile&) = delete;
    StandardFile& operator=(const StandardFile&) = delete;

    int descriptor() const { return m_file; }
    void clear() const {
        if (::ftruncate(m_file, 0) != 0 || ::lseek(m_file, 0, SEEK_SET) != 0)
            throw std::runtime_error("a program's output could not be cleared");
    }
    std::string text() const {
        std::string text(static_cast<std::size_t>(::lseek(m_file, 0, SEEK_END)), '\0');
        text.resize(static_cast<std::size_t>(::pread(m_file, text.data(), text.size(), 0)));
        return text;
    }

private:
    int m_file;
};

/// Starts a program. `prepare` runs in its process and gives what is added to its environment.
template<class Prepare>
pid_t startProgram(const std::filesystem::path& program, const std::vector<std::string>& arguments,
                   const Prepare& prepare) {
    std::vector<std::string> words{program.string()};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (auto& word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);
    const pid_t child = ::fork();
    if (child < 0)
        throw std::runtime_error("the program could not be started: " + program.string());
    if (child == 0) {
        ::setpgid(0, 0);
        for (const auto& [name, value] : Environment(prepare()))
            ::setenv(name.c_str(), value.c_str(), 1);
        ::execv(argv[0], argv.data());
        ::_exit(127);
    }
    return child;
}

/// How a process ended that had an alarm set.
inline ProgramRun ended(pid_t child, int status, const StandardFile& out, const StandardFile& err) {
    const int signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    if (signal == SIGALRM)
        ::kill(-child, SIGKILL); // what it started ends with it
    return {.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1,
            .signal = signal,
            .timedOut = signal == SIGALRM,
            .out = out.text(),
            .err = err.text()};
}

/// Runs a program to its end, or kills it when `limit` is over. `environment` is added to ours. Its
/// standard input is `input`, and then ends.
inline ProgramRun runProgram(const std::filesystem::path& program,
                             const std::vector<std::string>& arguments,
                             const Environment& environment = {}, const std::string& input = {},
                             std::chrono::seconds limit = std::chrono::seconds(30)) {
    const StandardFile in(input), out, err;
    const pid_t child = startProgram(program, arguments, [&] {
        ::dup2(in.descriptor(), 0);
        ::dup2(out.descriptor(), 1);
        ::dup2(err.descriptor(), 2);
        ::alarm(static_cast<unsigned>(limit.count())); // it outlives the exec
        return environment;
    });
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return ended(child, status, out, err);
}

} // namespace wendlow::testing
