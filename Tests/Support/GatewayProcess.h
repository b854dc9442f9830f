#pragma once

#include <array>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace wendlow::testing {

/// A program of the tests that runs beside its test on a private bus, and ends with it. It is there
/// when it has said "ready". Refuses to start one on a bus that is not a test's. Its home is the
/// bus's own folder unless it is told another: what it writes there goes with the test.
class GatewayProcess {
public:
    explicit GatewayProcess(const std::filesystem::path& program,
                            const std::vector<std::string>& arguments = {},
                            std::filesystem::path home = {}) {
        const char* const address = std::getenv("DBUS_SESSION_BUS_ADDRESS");
        if (!address || !std::string_view(address).contains("/wendlow-test-"))
            throw std::runtime_error("this is not a test's own bus");
        if (home.empty()) {
            const std::string_view path =
                std::string_view(address).substr(std::string_view(address).find('/'));
            home = std::filesystem::path(path.substr(0, path.find(','))).parent_path();
        }
        std::vector<std::string> words{program.string()};
        words.insert(words.end(), arguments.begin(), arguments.end());
        std::vector<char*> argv;
        for (auto& word : words)
            argv.push_back(word.data());
        argv.push_back(nullptr);
        std::array<int, 2> in{}, out{};
        if (::pipe2(in.data(), O_CLOEXEC) != 0 || ::pipe2(out.data(), O_CLOEXEC) != 0)
            throw std::runtime_error("no pipes for the program");
        m_process = ::fork();
        if (m_process == 0) {
            ::prctl(PR_SET_PDEATHSIG, SIGKILL);
            ::setenv("HOME", home.c_str(), 1);
            ::dup2(in[0], STDIN_FILENO);
            ::dup2(out[1], STDOUT_FILENO);
            ::execv(argv[0], argv.data());
            ::_exit(127);
        }
        ::close(in[0]);
        ::close(out[1]);
        m_in = in[1];
        m_out = out[0];
        if (line() != "ready")
            throw std::runtime_error("the program did not start: " + program.string());
    }
    ~GatewayProcess() {
        kill();
        ::close(m_in);
        ::close(m_out);
    }
    GatewayProcess(const GatewayProcess&) = delete;
    GatewayProcess& operator=(const GatewayProcess&) = delete;

    void kill() {
        if (m_process <= 0)
            return;
        ::kill(m_process, SIGKILL);
        ::waitpid(m_process, nullptr, 0);
        m_process = -1;
    }
    /// It takes messages and does nothing about them, until it is killed.
    void wedge() const { ::kill(m_process, SIGSTOP); }
    /// Asks the program to end; its exit status, or -1 when it did not exit.
    int end() {
        ::kill(m_process, SIGTERM);
        return waitForEnd();
    }
    /// The same for one that ends by itself, within ten seconds.
    int waitForEnd() {
        int status = 0;
        for (int tries = 0; tries < 1000; ++tries, ::usleep(10'000))
            if (::waitpid(m_process, &status, WNOHANG) == m_process) {
                m_process = -1;
                return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
            }
        return -1;
    }
    bool isRunning() const { return m_process > 0 && ::waitpid(m_process, nullptr, WNOHANG) == 0; }
    void say(const std::string& text) {
        if (::write(m_in, text.data(), text.size()) != static_cast<ssize_t>(text.size()))
            throw std::runtime_error("the program does not listen");
    }
    std::string line() {
        std::string line;
        char character = 0;
        while (::read(m_out, &character, 1) == 1 && character != '\n')
            line += character;
        return line;
    }

private:
    pid_t m_process = -1;
    int m_in = -1;
    int m_out = -1;
};

} // namespace wendlow::testing
