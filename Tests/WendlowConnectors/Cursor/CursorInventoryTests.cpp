#include "CursorHome.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using testing::CursorHome;
using ::testing::ElementsAre;
using testing::put;
namespace fs = std::filesystem;

TEST(CursorInventory, readsTheFolderOffTheWorkspace) {
    const CursorHome home;
    const std::pair<const char*, std::optional<std::string>> cases[] = {
        {"{\n\t\"folder\": \"file:///home/me/app\"\n}", "/home/me/app"},
        {R"({"folder":"file:///a%20b%2Fc/%C3%A9%23/"})", "/a b/c/é#"},
        {R"({"folder":"file://host/é?query#part"})", "/é"},
        {R"({"folder":"file:/"})", "/"},
        {R"({"folder":"vscode-remote://ssh-remote%2Bbox/home/me"})", {}},
        {R"({"folder":"/home/me/app"})", {}},
        {R"({"folder":"file://host"})", {}},
        {R"({"folder":"file:///a%2"})", {}},
        {R"({"folder":"file:///a%-1"})", {}},
        {R"({"folder":"file:///a%00"})", {}},
        {R"({"folder":"file:///a%FF"})", {}},
        {R"({"folder":["file:///a"]})", {}},
        {R"({"workspace":"file:///a.code-workspace"})", {}},
        {R"(["folder"])", {}},
        {R"({"folder":"file:///a")", {}},
        {"", {}},
    };
    for (const auto& [bytes, folder] : cases)
        EXPECT_EQ(CursorConnector::folderPath(put(home.path("w.json"), bytes)), folder) << bytes;
    EXPECT_EQ(CursorConnector::folderPath(home.path("none.json")), std::nullopt);
    EXPECT_EQ(CursorConnector::folderPath(home.path("")), std::nullopt);
}

TEST(CursorInventory, listsWorkspacesAndRules) {
    const CursorHome home;
    const auto connector = home.connector();
    const fs::path store = home.paths().workspaceStorageDirectory;
    EXPECT_EQ(connector.projects(),
              (ProjectReport{store.string(), {}, "no workspace store found"}));
    put(store / "plain", "neither a project nor undecoded");
    EXPECT_EQ(connector.projects().note, "no workspace store found");
    const auto touch = [](const fs::path& path, int seconds) {
        fs::last_write_time(path, std::chrono::file_clock::from_sys(
                                      std::chrono::sys_seconds(std::chrono::seconds(seconds))));
    };
    /// A workspace whose newest child, folder and far-away contents have these dates.
    const auto add = [&](const std::string& name, const std::string& folder, int child, int own) {
        touch(put(store / name / "workspace.json", R"({"folder":"file://)" + folder + "\"}"),
              child);
        put(store / name / "deep/er", "never looked at");
        touch(store / name / "deep", 1);
        fs::create_symlink(home.path("new"), store / name / "link");
        const timespec old[] = {{1, 0}, {1, 0}};
        ::utimensat(AT_FDCWD, (store / name / "link").c_str(), old, AT_SYMLINK_NOFOLLOW);
        touch(store / name, own);
    };
    put(home.path("new"), "followed, it would be the newest");
    add("b", "/same", 10, 30);
    add("a", "/same", 30, 20);
    add("c", "/newest", 40, 5);
    add("d", "/oldest", 3, 4);
    put(store / "e/state.vscdb", "no workspace.json");
    const auto [source, projects, note] = connector.projects();
    EXPECT_EQ(source, store.string());
    EXPECT_EQ(note, "1 workspace entry names no project folder and was not decoded");
    const auto project = [](const std::string& path, int seconds) {
        return ConnectorProject{path, FileDate(std::chrono::seconds(seconds)), std::nullopt};
    };
    EXPECT_THAT(projects, ElementsAre(project("/newest", 40), project("/same", 30),
                                      project("/same", 30), project("/oldest", 4)));
    fs::create_directories(store / "f/workspace.json");
    EXPECT_EQ(connector.projects().note,
              "2 workspace entries name no project folder and were not decoded");

    EXPECT_TRUE(connector.memoryFiles().files.empty());
    put(home.path(".cursor/rules/b.mdc"), "12");
    put(home.path(".cursor/rules/a.md"), "1");
    put(home.path(".cursor/rules/c.txt"), "1");
    const auto files = connector.memoryFiles().files;
    ASSERT_EQ(files.size(), 2U);
    EXPECT_EQ(files[0].path, home.path(".cursor/rules/a.md"));
    EXPECT_EQ(files[1].bytes, 2);
}

} // namespace
} // namespace wendlow
