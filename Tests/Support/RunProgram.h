#pragma once

#include <array>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
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

/// Runs a program to its end, or kills it when `limit` is over. `environment` is added to ours. Its
/// standard input is `input`, and then ends; that has to fit into a pipe (64 KiB).
inline ProgramRun runProgram(const std::filesystem::path& program,
                             const std::vector<std::string>& arguments,
                             const Environment& environment = {}, const std::string& input = {},
                             std::chrono::seconds limit = std::chrono::seconds(30)) {
    std::vector<std::string> words{program.string()};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<std::string> settings;
    for (const auto& [name, value] : environment)
        settings.emplace_back(name).append("=").append(value);
    for (char** entry = environ; *entry != nullptr; ++entry)
        if (!environment.contains(std::string(*entry, std::string_view(*entry).find('='))))
            settings.emplace_back(*entry);
    const auto pointers = [](std::vector<std::string>& texts) {
        std::vector<char*> result;
        result.reserve(texts.size() + 1);
        for (auto& text : texts)
            result.push_back(text.data());
        result.push_back(nullptr);
        return result;
    };
    const auto argv = pointers(words);
    const auto envp = pointers(settings);

    std::array<std::array<int, 2>, 3> pipes{}; // standard input, output, error
    for (auto& ends : pipes)
        if (::pipe2(ends.data(), O_CLOEXEC) != 0)
            throw std::runtime_error("no pipe");
    const pid_t child = ::fork();
    if (child == 0) {
        ::dup2(pipes[0][0], 0);
        ::dup2(pipes[1][1], 1);
        ::dup2(pipes[2][1], 2);
        ::execve(argv[0], argv.data(), envp.data());
        ::_exit(127);
    }
    ::close(pipes[0][0]);
    ::close(pipes[1][1]);
    ::close(pipes[2][1]);
    if (child < 0 ||
        ::write(pipes[0][1], input.data(), input.size()) != static_cast<ssize_t>(input.size()))
        throw std::runtime_error("the program could not be started: " + program.string());
    ::close(pipes[0][1]);

    ProgramRun run;
    const auto end = std::chrono::steady_clock::now() + limit;
    std::array<pollfd, 2> open{{{pipes[1][0], POLLIN, 0}, {pipes[2][0], POLLIN, 0}}};
    const std::array<std::string*, 2> texts{&run.out, &run.err};
    while (open[0].fd >= 0 || open[1].fd >= 0) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            end - std::chrono::steady_clock::now());
        if (left.count() <= 0 ||
            ::poll(open.data(), open.size(), static_cast<int>(left.count())) == 0) {
            run.timedOut = true;
            ::kill(child, SIGKILL);
            break;
        }
        for (std::size_t index = 0; index < open.size(); ++index) {
            if (open[index].fd < 0 || open[index].revents == 0)
                continue;
            std::array<char, 65536> room{};
            const auto count = ::read(open[index].fd, room.data(), room.size());
            if (count > 0)
                texts[index]->append(room.data(), static_cast<std::size_t>(count));
            else if (count == 0 || errno != EINTR)
                open[index].fd = -1; // ended; poll passes over negative descriptors
        }
    }
    ::close(pipes[1][0]);
    ::close(pipes[2][0]);
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    run.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    return run;
}

} // namespace wendlow::testing
