#include "ClaudeChat/ClaudeDesktop.h"
#include "Files.h"
#include "TemporaryHome.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace wendlow {
namespace {

using ClaudeDesktop::isRunning;
using testing::put;
namespace fs = std::filesystem;

TEST(ClaudeDesktop, isKnownByItsProcess) {
    const testing::TemporaryHome home;
    const fs::path program = home / "Claude";
    fs::copy_file("/bin/sleep", program);
    std::string name = program.string(), duration = "60";
    char* const words[] = {name.data(), duration.data(), nullptr};
    pid_t child = 0;
    ASSERT_EQ(::posix_spawn(&child, program.c_str(), nullptr, nullptr, words, environ), 0);
    // A folder of processes with this one alone: others of the same name may come and go.
    const fs::path processes = home / "processes";
    fs::create_directory(processes);
    fs::create_directory_symlink(fs::path("/proc") / std::to_string(child),
                                 processes / std::to_string(child));
    // For a moment a new program has no command line yet.
    for (int tries = 0; testing::get(processes / std::to_string(child) / "cmdline") == ""; ++tries)
        ASSERT_LT(tries, 1'000'000);
    EXPECT_TRUE(isRunning(processes));
    EXPECT_TRUE(isRunning());
    fs::remove(program); // replaced by an update
    EXPECT_TRUE(isRunning(processes));

    ::kill(child, SIGKILL);
    siginfo_t ended{};
    ASSERT_EQ(::waitid(P_PID, static_cast<id_t>(child), &ended, WEXITED | WNOWAIT), 0);
    EXPECT_FALSE(isRunning(processes)) << "ended, and not yet collected";
    ::waitpid(child, nullptr, 0);
    EXPECT_FALSE(isRunning(processes));
}

TEST(ClaudeDesktop, isNotTakenForAnother) {
    struct Case {
        const char* program; ///< nothing: it hides it
        std::string words;   ///< NUL written as "|"
        const char* groups;
        uid_t user;
        bool counts;
    };
    const uid_t me = ::getuid();
    const char* none = "0::/user.slice/session-2.scope\n";
    const char* slice = "0::/user.slice/user@1000.service/app.slice/app-gnome-";
    const Case cases[] = {
        {"/opt/Claude/Claude", "Claude|", none, me, true},
        {"/usr/bin/claude-desktop", "x|", none, me, true},
        {"/opt/Claude/Claude", "Claude|", none, me + 1, false},
        {nullptr, "/opt/Claude/Claude|--flag|", none, me, true},
        {nullptr, "/bin/sh|/opt/Claude|", none, me, false},
        {"/usr/bin/electron", "electron|/usr/lib/claude-desktop/app.asar|", none, me, true},
        {"/usr/bin/electron", "electron|/usr/lib/other/app.asar|", none, me, false},
        {"/usr/bin/tail", "tail|/me/.config/Claude/logs/main.log|", none, me, false},
        {"/app/main", "main|", "com.anthropic.claudefordesktop-17.scope\n", me, true},
        {"/app/main", "main|", "com.anthropic.claudefordesktopper-17.scope\n", me, false},
        // The command line tool, native and by its runtime.
        {"/me/.local/bin/claude", "claude|", none, me, false},
        {"/usr/bin/node", "node|/usr/bin/claude|", none, me, false},
        {nullptr, "", none, me, false}, // a kernel thread
    };
    for (const auto& one : cases) {
        const testing::TemporaryHome processes;
        put(processes / "self/cmdline", "Claude"); // no number, no process
        put(processes / "71/cmdline", testing::replaced(one.words, {{"|", std::string(1, '\0')}}));
        put(processes / "71/cgroup", one.groups == none ? none : slice + std::string(one.groups));
        put(processes / "71/status",
            "Name:\tx\nUid:\t" + std::to_string(one.user) + "\t0\t0\t0\nGid:\t0\n");
        if (one.program != nullptr)
            fs::create_symlink(one.program, processes / "71/exe");
        EXPECT_EQ(isRunning(processes.path()), one.counts) << one.words << one.groups;
    }
    EXPECT_TRUE(isRunning("/nonexistent")) << "who cannot look has to leave the file alone";
}

} // namespace
} // namespace wendlow
