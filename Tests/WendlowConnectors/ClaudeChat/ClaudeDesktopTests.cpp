#include "ClaudeChat/ClaudeDesktop.h"
#include "Files.h"
#include "TemporaryHome.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace wendlow {
namespace {

using ClaudeDesktop::isRunning;
using testing::put;
namespace fs = std::filesystem;

TEST(ClaudeDesktop, isKnownByItsProcessAndNotTakenForAnother) {
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
        {"/opt/Claude/Claude (deleted)", "Claude|", none, me, true}, // replaced by an update
        // Ended, and not yet collected: as a kernel thread, it has no program and no words.
        {nullptr, "", "com.anthropic.claudefordesktop-17.scope\n", me, false},
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
