#include "Support/ClaudeCodeHome.h"
#include "Support/Desktop.h"
#include "Support/KeyWalk.h"

#include <gtest/gtest.h>

namespace wendlow::testing {
namespace {

using namespace Qt::StringLiterals;

constexpr auto bundle = WENDLOW_BUNDLE;

class ConnectedApps : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(desktop.isReady()) << "no screen, bus or accessibility bus could be started";
        ClaudeCodeHome::fill(desktop.home().path());
    }

    std::string settings() const {
        return get(desktop.home() / ".claude/settings.json").value_or("");
    }
    std::string servers() const { return get(desktop.home() / ".claude.json").value_or(""); }
    bool hasReceipt() const { return std::filesystem::exists(receipt()); }
    std::filesystem::path receipt() const {
        return desktop.home() / "Library/Application Support/Wendlow/Connectors/claude-code.json";
    }
    /// Both files run ours and still hold what is the person's.
    bool isConnected() const {
        const auto runs = [](const std::string& bytes, const char* program) {
            return bytes.contains(std::string(bundle) + "/Contents/MacOS/" + program);
        };
        return runs(settings(), "wendlow-hook --harness claude-code") &&
               runs(servers(), "wendlow-mcp") && settings().contains("~/bin/greet.sh") &&
               servers().contains("${TOKEN}") && hasReceipt();
    }
    bool isAsBefore() const {
        return settings() == ClaudeCodeHome::settings && servers() == ClaudeCodeHome::servers;
    }

    Desktop desktop;
};

TEST_F(ConnectedApps, TheSwitchConnectsAndGivesTheBytesBack) {
    RunningApplication application(desktop, {u"--window=settings"_s, u"--pane=connected"_s});
    ASSERT_TRUE(application.window(u"Wendlow"_s)) << application.errors().toStdString();
    const auto toggle = application.find(u"check box"_s, u"Claude Code"_s);
    ASSERT_TRUE(toggle);
    ASSERT_FALSE(toggle->isChecked());

    desktop.click(toggle->extents().center());
    ASSERT_TRUE(eventually([&] { return toggle->isChecked() && toggle->isEnabled(); }));
    EXPECT_TRUE(isConnected());
    EXPECT_TRUE(application.findNamed(u"Connected. Restart Claude Code to use it."_s));
    const auto fold = application.find(u"push button"_s, u"What changed"_s);
    ASSERT_TRUE(fold && fold->act(u"Press"_s));
    for (const auto& sentence :
         {u"a copy of the file was made here first"_s,
          u"the Wendlow entry was written to this file"_s,
          u"the Wendlow hook entry here runs %1/Contents/MacOS/wendlow-hook --harness claude-code"_s
              .arg(QLatin1String(bundle)),
          u"the Wendlow MCP server entry here runs %1/Contents/MacOS/wendlow-mcp"_s.arg(
              QLatin1String(bundle))})
        EXPECT_TRUE(application.findNamed(sentence)) << sentence.toStdString();

    // The switch has the focus after the click, so the space bar works it.
    desktop.press({u"space"_s});
    ASSERT_TRUE(eventually([&] { return !toggle->isChecked() && toggle->isEnabled(); }));
    EXPECT_TRUE(isAsBefore());
    EXPECT_FALSE(hasReceipt());
    const auto undone = [&](bool connected) {
        const auto undo = application.find(u"push button"_s, u"Undo"_s);
        return undo && undo->act(u"Press"_s) &&
               eventually([&] { return toggle->isChecked() == connected; });
    };
    ASSERT_TRUE(undone(true));
    EXPECT_TRUE(isConnected());
    ASSERT_TRUE(undone(false));
    EXPECT_TRUE(isAsBefore());
    EXPECT_TRUE(application.findNamed(u"the Wendlow entry was removed from this file"_s));
    EXPECT_TRUE(application.findNamed(u"this file holds no Wendlow hook entry"_s));
}

/// Through every place that the keys come to: round the window, into a row and out of it, over a
/// verb and its undoing, and through the menus, of which Edit has no line to choose.
TEST_F(ConnectedApps, TheKeyboardAloneIsEnoughAndItsFocusIsAlwaysInSight) {
    RunningApplication application(desktop, {u"--window=settings"_s, u"--pane=connected"_s});
    ASSERT_TRUE(application.window(u"Wendlow"_s)) << application.errors().toStdString();
    const KeyWalk walk(desktop, application, u"Wendlow"_s);
    const auto pressed = [&walk](const QStringList& keys) {
        return walk.press(keys).join(u'\n').toStdString();
    };
    EXPECT_EQ(pressed({u"Home"_s, u"Down"_s, u"Down"_s, u"Up"_s}), "");
    const auto toggle = application.find(u"check box"_s, u"Claude Code"_s);
    ASSERT_TRUE(toggle);
    bool reached = false;
    for (int presses = 0; presses < 12 && !reached; ++presses) {
        EXPECT_EQ(pressed({u"Tab"_s}), "");
        reached = toggle->isFocused();
    }
    ASSERT_TRUE(reached) << "no number of tabs leads to the switch";
    EXPECT_EQ(pressed({u"space"_s}), "");
    ASSERT_TRUE(eventually([&] { return toggle->isChecked() && toggle->isEnabled(); }));
    EXPECT_TRUE(isConnected());
    EXPECT_EQ(walk.focused().join(u','), u"check box Claude Code"_s);
    EXPECT_EQ(pressed({u"Tab"_s}), "");
    EXPECT_EQ(walk.focused().join(u','), u"push button Undo"_s);
    EXPECT_EQ(pressed({u"space"_s}), "");
    EXPECT_TRUE(eventually([&] { return !toggle->isChecked() && toggle->isFocused(); }));
    EXPECT_TRUE(isAsBefore());
    EXPECT_EQ(pressed({u"Tab"_s, u"Tab"_s, u"space"_s, u"shift+Tab"_s, u"shift+Tab"_s,
                       u"shift+Tab"_s, u"Return"_s, u"Return"_s}),
              "");
    EXPECT_EQ(pressed(QStringList(12, u"Tab"_s)), "");
    EXPECT_EQ(pressed({u"F10"_s, u"Down"_s, u"Right"_s, u"Down"_s, u"Right"_s, u"Left"_s, u"Left"_s,
                       u"Escape"_s, u"alt+e"_s, u"Escape"_s, u"alt+i"_s, u"Escape"_s}),
              "");
}

TEST_F(ConnectedApps, AFileThatDoesNotReadSaysSoByItselfAndStaysAsItWas) {
    const std::string broken(ClaudeCodeHome::servers.substr(0, 90));
    put(desktop.home() / ".claude.json", broken);
    RunningApplication application(desktop, {u"--window=settings"_s, u"--pane=connected"_s});
    const auto toggle = application.find(u"check box"_s, u"Claude Code"_s);
    ASSERT_TRUE(toggle) << application.errors().toStdString();
    const auto cause = u"a member name was expected (at byte 90)"_s;
    EXPECT_TRUE(application.findNamed(u"this file did not read as JSON — "_s + cause));

    desktop.click(toggle->extents().center());
    EXPECT_TRUE(application.findNamed(
        u"this file did not read as JSON, so nothing was written — "_s + cause));
    const auto refusal = application.findNamed(u"Claude Code was not connected."_s);
    ASSERT_TRUE(refusal);
    EXPECT_TRUE(application.findNamed(u"line 4, column 48"_s));
    EXPECT_TRUE(application.find(u"push button"_s, u"Copy path"_s));
    EXPECT_FALSE(toggle->isChecked());
    EXPECT_EQ(settings(), ClaudeCodeHome::settings);
    EXPECT_EQ(servers(), broken);

    put(desktop.home() / ".claude.json", ClaudeCodeHome::servers);
    const auto again = application.find(u"push button"_s, u"Look again"_s);
    ASSERT_TRUE(again && again->act(u"Press"_s));
    EXPECT_TRUE(eventually([&] { return !refusal->isShowing(); })) << "it has been mended";
}

TEST_F(ConnectedApps, WhatWasChangedSinceIsTakenOutFromItsOpenRow) {
    RunningApplication application(desktop, {u"--window=settings"_s, u"--pane=connected"_s});
    const auto toggle = application.find(u"check box"_s, u"Claude Code"_s);
    ASSERT_TRUE(toggle) << application.errors().toStdString();
    desktop.click(toggle->extents().center());
    ASSERT_TRUE(eventually([&] { return toggle->isChecked(); }));
    put(desktop.home() / ".claude.json", ClaudeCodeHome::servers); // half of it is gone
    const auto general = application.find(u"page tab"_s, u"General"_s);
    ASSERT_TRUE(general);
    desktop.click(general->extents().center());
    desktop.press({u"Down"_s}); // back, which looks again
    EXPECT_TRUE(application.findNamed(u"Claude Code is not as Wendlow left it."_s));
    const auto out = application.find(u"push button"_s, u"Disconnect"_s);
    ASSERT_TRUE(out && out->act(u"Press"_s));
    EXPECT_TRUE(eventually([&] { return isAsBefore(); }));
    EXPECT_TRUE(application.findNamed(u"Disconnected. Restart Claude Code to finish."_s));
}

TEST_F(ConnectedApps, ARowOpensToWhatTheToolKeeps) {
    const std::string work = (desktop.home() / "Work").string();
    put(desktop.home() / "Work/notes.txt", "");
    const auto store = desktop.home() / ".claude/projects";
    const auto folder = store / replaced(work, {{"/", "-"}});
    put(folder / "memory/MEMORY.md", std::string(6000, 'm'));
    put(store / "-nowhere-at-all/session.jsonl", "{}");
    const auto memory = put(desktop.home() / ".claude/CLAUDE.md", "be brief\n");

    RunningApplication application(desktop, {u"--window=settings"_s, u"--pane=connected"_s});
    const auto name = [](const std::string& path) {
        return u"Copy "_s + QString::fromStdString(path);
    };
    const auto chevron = application.findNamed(u"Show details of Claude Code"_s);
    ASSERT_TRUE(chevron) << application.errors().toStdString();
    desktop.click(chevron->extents().center());
    const auto project = application.findNamed(name(work));
    ASSERT_TRUE(project);
    EXPECT_TRUE(project->description().startsWith(u"MEMORY.md · 6 KB, "_s))
        << project->description().toStdString();
    EXPECT_TRUE(application.findNamed(name("/nowhere/at/all (decoded path not verified on disk)")));
    EXPECT_TRUE(application.find(u"list"_s, u"Memory files of Claude Code"_s));
    ASSERT_TRUE(application.findNamed(name(memory.string())));

    // Closed and opened by key, it is read again.
    std::filesystem::remove(memory);
    std::filesystem::remove_all(folder);
    desktop.press({u"Return"_s});
    ASSERT_TRUE(eventually([&] { return !project->isShowing(); }));
    desktop.press({u"Return"_s});
    EXPECT_TRUE(application.findNamed(u"no memory files found"_s));
    EXPECT_FALSE(project->isShowing());
}

} // namespace
} // namespace wendlow::testing
