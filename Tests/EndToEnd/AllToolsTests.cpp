#include "Support/Desktop.h"
#include "Support/ToolHomes.h"

#include <gmock/gmock.h>

#include <map>

namespace wendlow::testing {
namespace {

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

constexpr auto bundle = WENDLOW_BUNDLE;

/// Every file of a home that a verb may concern, with its bytes; copies that verbs made are left
/// out.
std::map<std::string, std::string> filesOf(const fs::path& home) {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(home)) {
        const std::string name = fs::relative(entry.path(), home).string();
        const bool isCopy = name.contains(".wendlow-backup-");
        const bool isOfATool = name.starts_with(".claude") || name.starts_with(".codex") ||
                               name.starts_with(".cursor") ||
                               name.starts_with(".config/opencode") ||
                               name.starts_with("Library/Application Support/Wendlow/Connectors");
        if (entry.is_regular_file() && isOfATool && !isCopy)
            files.emplace(name, *get(entry.path()));
    }
    return files;
}

struct Tool {
    QString name;
    std::string receipt;
    std::map<std::string, std::string> own; ///< what the person has there
    std::vector<std::string> made;          ///< what connecting adds to that
};

const std::vector<Tool> tools{
    {u"Claude Code"_s, "claude-code", {}, {}},
    {u"Codex"_s, "codex", ToolHomes::codex, {}},
    {u"Cursor"_s, "cursor", ToolHomes::cursor, {}},
    {u"OpenCode"_s, "opencode", ToolHomes::openCode, {".config/opencode/plugins/wendlow.js"}},
};

/// All four tools on one machine, worked through the window one after the other.
TEST(AllTools, areConnectedAndGiveEveryByteBack) {
    const Desktop desktop;
    ASSERT_TRUE(desktop.isReady()) << "no screen, bus or accessibility bus could be started";
    const fs::path home = desktop.home().path();
    ToolHomes::fill(home);
    const auto before = filesOf(home);
    RunningApplication application(desktop, {u"--window=settings"_s, u"--pane=connected"_s});
    ASSERT_TRUE(application.window(u"Wendlow"_s)) << application.errors().toStdString();

    // Works a tool's switch and waits for the verb. Its words open the row; they are folded away
    // again, or they would push the other tools off the screen.
    const auto toggled = [&](const Tool& tool) {
        const auto toggle = application.find(u"check box"_s, tool.name);
        const bool wanted = toggle && !toggle->isChecked();
        const bool done =
            toggle && (toggle->act(u"Toggle"_s) || toggle->act(u"Press"_s)) &&
            eventually([&] { return toggle->isChecked() == wanted && toggle->isEnabled(); });
        const auto fold = application.find(u"push button"_s, u"Hide details of "_s + tool.name);
        return done && fold && fold->act(u"Press"_s);
    };
    auto expected = before;
    for (const Tool& tool : tools) {
        SCOPED_TRACE(tool.name.toStdString());
        ASSERT_TRUE(toggled(tool));

        // This tool's files have changed, and only these.
        const auto now = filesOf(home);
        for (const auto& [name, bytes] : now) {
            const auto known = expected.find(name);
            const bool isNew = known == expected.end();
            const bool isOwn =
                tool.own.contains(name) || (tool.own.empty() && name.starts_with(".claude"));
            const bool isMade =
                std::ranges::find(tool.made, name) != tool.made.end() ||
                name == "Library/Application Support/Wendlow/Connectors/" + tool.receipt + ".json";
            EXPECT_EQ(isNew, isMade) << name;
            const bool stays = name == ".config/opencode/themes/own.json" || !isOwn;
            EXPECT_TRUE(isNew || (bytes == known->second) == stays) << name;
            const bool isReceipt = name.starts_with("Library");
            EXPECT_TRUE(isReceipt || stays || bytes.contains("wendlow")) << name;
        }
        EXPECT_EQ(now.size(), expected.size() + tool.made.size() + 1);
        expected = now;
    }
    const auto scan = desktop.run(QLatin1String(bundle) + u"/Contents/MacOS/wendlow-connect"_s,
                                  {u"scan"_s, u"--json"_s});
    EXPECT_EQ(scan.count(u"\"connected\""_s), 4) << scan.toStdString();

    for (const Tool& tool : tools) {
        SCOPED_TRACE(tool.name.toStdString());
        ASSERT_TRUE(toggled(tool));
    }
    EXPECT_EQ(filesOf(home), before);
}

} // namespace
} // namespace wendlow::testing
