#include "ClaudeCode/ClaudeCodeConnector.h"
#include "Files.h"
#include "TemporaryHome.h"

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::put;
namespace fs = std::filesystem;

constexpr const char* unverified = " (decoded path not verified on disk)";

ClaudeCodeConnector connectorIn(const testing::TemporaryHome& home) {
    return ClaudeCodeConnector(ClaudeCodePaths::under(home.path(), home / "Wendlow.app"));
}

std::string encoded(std::string path) {
    std::ranges::replace(path, '/', '-');
    return path;
}

TEST(ClaudeCodeInventory, readsAProjectsPathOffItsFolderName) {
    const testing::TemporaryHome home;
    const auto decode = [](const fs::path& path) {
        return ClaudeCodeConnector::decodeProjectPath(encoded(path.string()));
    };
    const std::string temporary = encoded(home.path().string());
    EXPECT_EQ(ClaudeCodeConnector::decodeProjectPath("-nowhere-me-my-app"),
              std::string("/nowhere/me/my/app") + unverified);
    EXPECT_EQ(ClaudeCodeConnector::decodeProjectPath("relative-name"),
              std::string("/relative/name") + unverified);
    fs::create_directories(home / "my-app");
    EXPECT_EQ(decode(home / "my-app"), home / "my-app");
    fs::create_directories(home / "my/app");
    EXPECT_EQ(decode(home / "my-app"), home / "my/app") << "separators win";
    // A separator that leads nowhere further on is taken back.
    fs::create_directories(home / "my/other");
    fs::create_directories(home / "my-other-app");
    EXPECT_EQ(decode(home / "my-other-app"), home / "my-other-app");
    // As a name in another script is encoded: this has to end.
    EXPECT_THAT(ClaudeCodeConnector::decodeProjectPath(temporary + std::string(60, '-') + "x"),
                ::testing::EndsWith(unverified));
}

TEST(ClaudeCodeInventory, listsProjectsByTheirLastActivity) {
    const testing::TemporaryHome home;
    const fs::path store = home / ".claude/projects";
    const auto connector = connectorIn(home);
    const ProjectReport none{store.string(), {}, "no session store found"};
    EXPECT_EQ(connector.projects(), none);
    fs::create_directories(store / "-nowhere-a");
    put(store / "a file", "no project");
    fs::create_directories(store / "-nowhere-b/memory");
    put(store / "-nowhere-b/memory/MEMORY.md", "12345");
    put(store / "-nowhere-b/session.jsonl", "");
    const auto at = [](int seconds) {
        return std::chrono::file_clock::from_sys(
            std::chrono::sys_time<std::chrono::seconds>(std::chrono::seconds(seconds)));
    };
    fs::last_write_time(store / "-nowhere-a", at(2000));
    fs::last_write_time(store / "-nowhere-b/memory", at(1000));
    fs::last_write_time(store / "-nowhere-b/session.jsonl", at(3000));
    const ProjectReport report = connector.projects();
    EXPECT_EQ(report.source, store.string());
    EXPECT_EQ(report.note, std::nullopt);
    ASSERT_EQ(report.projects.size(), 2);
    EXPECT_EQ(report.projects[0].path, std::string("/nowhere/b") + unverified);
    EXPECT_EQ(report.projects[0].lastActivity, FileDate(std::chrono::seconds(3000)));
    EXPECT_EQ(report.projects[0].memory->path, store / "-nowhere-b/memory/MEMORY.md");
    EXPECT_EQ(report.projects[0].memory->bytes, 5);
    EXPECT_EQ(report.projects[1].lastActivity, FileDate(std::chrono::seconds(2000)));
    EXPECT_EQ(report.projects[1].memory, std::nullopt);
}

TEST(ClaudeCodeInventory, listsItsMemoryFiles) {
    const testing::TemporaryHome home;
    const auto paths = [&] {
        std::vector<std::string> result;
        for (const auto& file : connectorIn(home).memoryFiles().files)
            result.push_back(fs::path(file.path).lexically_relative(home / ".claude"));
        return result;
    };
    EXPECT_THAT(paths(), IsEmpty());
    fs::create_directories(home / ".claude/memory/folder.md");
    put(home / ".claude/memory/b.md", "b");
    put(home / ".claude/memory/a.md", "a");
    put(home / ".claude/memory/c.txt", "c");
    EXPECT_THAT(paths(), ElementsAre("memory/a.md", "memory/b.md"));
    put(home / ".claude/CLAUDE.md", "rules");
    EXPECT_THAT(paths(), ElementsAre("CLAUDE.md", "memory/a.md", "memory/b.md"));
}

} // namespace
} // namespace wendlow
