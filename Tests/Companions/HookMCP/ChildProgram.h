#pragma once

#include <array>
#include <chrono>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace wendlow::testing {

/// A program on real pipes, as a tool starts it. What it writes to either output is read together.
class ChildProgram {
public:
    enum class Input { pipe, closed };

    explicit ChildProgram(std::vector<std::string> command, Input input = Input::pipe) {
        std::array<int, 2> in{};
        std::array<int, 2> out{};
        if (::pipe2(in.data(), O_CLOEXEC) != 0 || ::pipe2(out.data(), O_CLOEXEC) != 0)
            throw std::runtime_error("no pipes");
        std::vector<char*> arguments;
        for (std::string& argument : command)
            arguments.push_back(argument.data());
        arguments.push_back(nullptr);
        m_child = ::fork();
        if (m_child == 0) {
            ::dup2(in[0], STDIN_FILENO);
            if (input == Input::closed)
                ::close(STDIN_FILENO);
            ::dup2(out[1], STDOUT_FILENO);
            ::dup2(out[1], STDERR_FILENO);
            ::execv(arguments[0], arguments.data());
            ::_exit(127);
        }
        ::close(in[0]);
        ::close(out[1]);
        m_in = in[1];
        m_out = out[0];
    }
    ~ChildProgram() {
        closeInput();
        closeOutput();
        if (m_child > 0)
            ::waitpid(m_child, nullptr, 0);
    }
    ChildProgram(const ChildProgram&) = delete;
    ChildProgram& operator=(const ChildProgram&) = delete;

    /// False when the program has closed its end. (The test ignores SIGPIPE.)
    bool write(std::string_view text) const {
        while (!text.empty()) {
            const ssize_t written = ::write(m_in, text.data(), text.size());
            if (written < 0)
                return false;
            text.remove_prefix(static_cast<std::size_t>(written));
        }
        return true;
    }
    void closeInput() { close(m_in); }
    void closeOutput() { close(m_out); }

    /// One line with its line feed, or what came until `patience` or the end.
    std::string readLine(std::chrono::milliseconds patience = std::chrono::seconds(10)) const {
        std::string line;
        char character = 0;
        pollfd waiting{.fd = m_out, .events = POLLIN, .revents = 0};
        while (m_out >= 0 && !line.ends_with('\n') &&
               ::poll(&waiting, 1, int(patience.count())) > 0 && ::read(m_out, &character, 1) == 1)
            line += character;
        return line;
    }

    /// All that comes until the program ends; its exit status, or 256 for an end by a signal.
    struct Result {
        std::string output;
        int status = 0;
        bool operator==(const Result&) const = default;
    };
    Result finish() {
        Result result;
        for (std::string line = readLine(); !line.empty(); line = readLine())
            result.output += line;
        int status = 0;
        ::waitpid(m_child, &status, 0);
        m_child = -1;
        result.status = WIFEXITED(status) ? WEXITSTATUS(status) : 256;
        return result;
    }

private:
    static void close(int& descriptor) {
        if (descriptor >= 0)
            ::close(descriptor);
        descriptor = -1;
    }

    pid_t m_child = -1;
    int m_in = -1;
    int m_out = -1;
};

} // namespace wendlow::testing
