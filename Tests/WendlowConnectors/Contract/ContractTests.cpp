// Plays the scenarios beside this file: what a person sees of the four tools, and what becomes of
// their files.

#include "Connectors.h"
#include "Stage.h"

#include <fstream>

#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace wendlow::testing {
namespace {

class Scenario : public ::testing::Test {
public:
    Scenario(std::string tool, std::string text)
        : m_tool(std::move(tool)), m_text(std::move(text)) {}
    void TestBody() override { EXPECT_EQ(Stage(m_tool).play(m_text), m_text); }

private:
    std::string m_tool, m_text;
};

/// Every "== name" begins one.
bool registered(const std::string& tool) {
    const auto file = std::filesystem::path(WENDLOW_SCENARIOS) / (tool + ".txt");
    std::ifstream lines(file);
    std::string name, text;
    const auto finish = [&] {
        if (name.empty())
            return;
        std::ranges::replace_if(name, [](char byte) { return byte < 'A' || byte > 'z'; }, '_');
        ::testing::RegisterTest(("Contract_" + tool).c_str(), name.c_str(), nullptr, nullptr,
                                file.c_str(), 1,
                                [=]() -> Scenario* { return new Scenario(tool, text); });
        text.clear();
    };
    for (std::string line; std::getline(lines, line);)
        if (line.starts_with("== ")) {
            finish();
            name = line.substr(3);
        } else if (!name.empty()) {
            text += line + "\n";
        }
    finish();
    return !name.empty();
}

const std::array scenarios{registered("claude-code"), registered("codex"), registered("cursor"),
                           registered("opencode")};

TEST(Contract, isToldForEveryTool) {
    EXPECT_EQ(std::ranges::count(scenarios, true), 4);
}

TEST(Contract, HoldsForAFileOf13MB) {
    std::string history = R"({"projects": {"": 0)";
    while (history.size() < 13'000'000)
        history += R"(, "/home/me": { "history": ["pasted \"text\" é )" + std::string(4000, 'x') +
                   R"("] })";
    const std::string scenario = "put @hooks " + history + "}}\nput @servers {}\nround\n";
    EXPECT_TRUE(Stage("claude-code").play(scenario) == scenario);
}

/// A pipe that nobody writes to, and a device without an end, wherever a tool keeps a file.
TEST(Contract, WaitsForNothingThatIsNoFile) {
    ::alarm(120); // and ends this program where something does wait
    for (const char* name :
         {".claude/settings.json", ".claude.json", ".claude/CLAUDE.md", ".claude/memory/a.md",
          ".claude/projects/-p/memory/MEMORY.md", ".codex/hooks.json", ".codex/config.toml",
          ".codex/AGENTS.md", ".codex/sessions/a.jsonl", ".cursor/hooks.json", ".cursor/mcp.json",
          ".cursor/rules/a.mdc", ".config/opencode/opencode.jsonc",
          ".config/opencode/opencode.json", ".config/opencode/plugins/wendlow.js",
          "Library/Application Support/Wendlow/Connectors/codex.json",
          "Library/Application Support/Cursor/User/workspaceStorage/a/workspace.json",
          "Applications/Cursor.app/Contents/Info.plist"})
        for (const bool isPipe : {true, false}) {
            SCOPED_TRACE(name);
            const TemporaryHome home;
            for (const char* folder : {".claude", ".codex", ".cursor", ".config/opencode"})
                std::filesystem::create_directories(home / folder);
            const auto path = home / name;
            std::filesystem::create_directories(path.parent_path());
            if (!isPipe || ::mkfifo(path.c_str(), 0600) != 0)
                std::filesystem::create_symlink("/dev/zero", path);
            for (const auto& tool :
                 Connectors::all(home.path(), home / "Wendlow.app", home / "Applications")) {
                tool->scan();
                tool->projects();
                tool->memoryFiles();
                tool->staleOwnWiring();
                tool->install();
                tool->remove();
            }
            const bool isOurs = std::string_view(name).contains("/Wendlow/");
            EXPECT_TRUE(isOurs || (isPipe ? std::filesystem::is_fifo(path)
                                          : std::filesystem::is_character_file(path)));
        }
    ::alarm(0);
}

TEST(Contract, NoCommandNamesAProgramThatAShellWouldNotFind) {
    const TemporaryHome home;
    for (const char* folder : {".claude", ".codex", ".cursor"})
        std::filesystem::create_directory(home / folder);
    for (const auto& tool :
         Connectors::all(home.path(), home / "My Wendlow.app", home / "Applications")) {
        if (tool->identity().id == "opencode")
            continue; // its plugin starts the program itself
        const auto outcome = tool->install();
        EXPECT_EQ(outcome.result, ConnectorOutcome::Result::refused);
        ASSERT_EQ(outcome.observations.size(), 1U);
        EXPECT_EQ(outcome.observations[0].subject,
                  home / "My Wendlow.app/Contents/MacOS/wendlow-hook");
        EXPECT_TRUE(std::filesystem::is_empty(home / ("." + tool->identity().id.substr(0, 6))));
    }
}

} // namespace
} // namespace wendlow::testing
