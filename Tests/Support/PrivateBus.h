#pragma once

#include "TemporaryHome.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace wendlow::testing {

/// A session bus of a test's own: a daemon that starts no service and knows nothing of the real
/// one, unless a folder of service files is given. `DBUS_SESSION_BUS_ADDRESS` names it as long as
/// the object lives; the daemon ends with the object, and with the test where that is killed.
///
/// A connection that `QDBusConnection::sessionBus()` has once made stays with its bus, so a test in
/// the same process connects by `QDBusConnection::connectToBus(address(), name)`.
class PrivateBus {
public:
    explicit PrivateBus(const std::string& serviceFolder = {}) {
        const std::filesystem::path config = m_folder / "bus.conf";
        std::ofstream(config)
            << "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration "
               "1.0//EN\"\n"
               " \"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
               "<busconfig><type>session</type><listen>unix:path="
            << (m_folder / "socket").string()
            << "</listen><auth>EXTERNAL</auth><policy context=\"default\">"
               "<allow send_destination=\"*\"/><allow receive_sender=\"*\"/><allow own=\"*\"/>"
               // As every session bus has it; a bus left to itself takes 128.
               "</policy><limit name=\"max_replies_per_connection\">50000</limit>"
            << (serviceFolder.empty() ? "" : "<servicedir>" + serviceFolder + "</servicedir>")
            << "</busconfig>\n";
        start(config);
        if (const char* before = std::getenv(variable))
            m_before = before;
        ::setenv(variable, m_address.c_str(), 1);
    }
    ~PrivateBus() {
        stop();
        if (m_before)
            ::setenv(variable, m_before->c_str(), 1);
        else
            ::unsetenv(variable);
    }
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    const std::string& address() const { return m_address; }

    /// The bus takes connections and bytes, and does nothing about them, until it goes on.
    void wedge() const { ::kill(m_daemon, SIGSTOP); }
    void goOn() const { ::kill(m_daemon, SIGCONT); }

    /// The bus dies, and another one is there in its place.
    void restart() {
        stop();
        m_address.clear();
        start(m_folder / "bus.conf");
    }
    /// The bus dies before its test does.
    void stop() {
        if (m_daemon <= 0)
            return;
        ::kill(m_daemon, SIGKILL);
        ::waitpid(m_daemon, nullptr, 0);
        m_daemon = -1;
    }

private:
    static constexpr const char* variable = "DBUS_SESSION_BUS_ADDRESS";

    void start(const std::filesystem::path& config) {
        std::array<int, 2> ends{};
        if (::pipe2(ends.data(), O_CLOEXEC) != 0)
            throw std::runtime_error("no pipe for the bus's address");
        const std::string configFlag = "--config-file=" + config.string();
        // Kept apart: as root, a daemon complains at each start that it may not raise a limit.
        const std::filesystem::path logPath = m_folder / "bus.log";
        const int log = ::open(logPath.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
        m_daemon = ::fork();
        if (m_daemon == 0) {
            ::prctl(PR_SET_PDEATHSIG, SIGKILL);
            ::dup2(ends[1], STDOUT_FILENO);
            ::dup2(log, STDERR_FILENO);
            ::execlp("dbus-daemon", "dbus-daemon", configFlag.c_str(), "--nofork", "--nosyslog",
                     "--print-address=1", static_cast<char*>(nullptr));
            ::_exit(127);
        }
        ::close(ends[1]);
        ::close(log);
        char character = 0;
        while (::read(ends[0], &character, 1) == 1 && character != '\n')
            m_address += character;
        ::close(ends[0]);
        // As a session's address is: another bus may come to listen there.
        m_address = m_address.substr(0, m_address.find(",guid="));
        if (m_address.empty()) {
            stop();
            std::ostringstream reason;
            reason << std::ifstream(logPath).rdbuf();
            throw std::runtime_error("dbus-daemon did not start: " + reason.str());
        }
    }

    TemporaryHome m_folder;
    std::string m_address;
    std::optional<std::string> m_before;
    pid_t m_daemon = -1;
};

} // namespace wendlow::testing
