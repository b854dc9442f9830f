#include "CodexHome.h"

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using testing::CodexHome;
using ::testing::ElementsAre;
using testing::put;
namespace fs = std::filesystem;

std::string session(const std::string& cwd) {
    return R"({"timestamp":"t","type":"session_meta","payload":{"id":"i","cwd":")" + cwd +
           "\"}}\n{\"type\":\"message\"}\n";
}

TEST(CodexInventory, readsTheFolderOffTheFirstRecord) {
    const CodexHome home;
    const std::size_t bound = 262'144;
    const std::string head = R"({"type":"session_meta","payload":{"cwd":"/p","x":")";
    const auto sized = [&](std::size_t length) {
        return head + std::string(length - head.size() - 3, 'x') + "\"}}\n";
    };
    const std::pair<std::string, std::optional<std::string>> cases[] = {
        {session("/a é\\u00e9"), "/a éé"},
        {"{\"type\":\"session_meta\",\"payload\":{\"cwd\":\"\"}}\r\n", ""},
        {sized(4095), "/p"},
        {sized(4096), "/p"},
        {sized(100'000), "/p"},
        {sized(bound - 1), "/p"},
        {sized(bound), {}},
        {std::string(3 * bound, 'x'), {}},
        {session("/a").substr(0, 40), {}},
        {R"({"type":"session_meta","payload":{"cwd":"/no line feed"}})", {}},
        {R"({"type":"other","payload":{"cwd":"/a"}})"
         "\n",
         {}},
        {R"({"type":"session_meta","payload":{"cwd":7}})"
         "\n",
         {}},
        {R"({"type":"session_meta","payload":"/a"})"
         "\n",
         {}},
        {"[]\n", {}},
        {"\n" + session("/a"), {}},
        {"", {}},
    };
    for (const auto& [bytes, cwd] : cases)
        EXPECT_EQ(CodexConnector::sessionCwd(put(home.path("s.jsonl"), bytes)), cwd)
            << bytes.substr(0, 60) << bytes.size();
    EXPECT_EQ(CodexConnector::sessionCwd(home.path("none.jsonl")), std::nullopt);
    EXPECT_EQ(CodexConnector::sessionCwd(home.path("")), std::nullopt);
}

TEST(CodexInventory, groupsSessionsByFolder) {
    const CodexHome home;
    const auto connector = home.connector();
    const fs::path store = home.path(".codex/sessions");
    const ProjectReport none{store.string(), {}, "no session store found"};
    EXPECT_EQ(connector.projects(), none);
    fs::create_directories(store / "2026/a folder.jsonl");
    EXPECT_EQ(connector.projects(), none);
    put(store / "bad.jsonl", "{}\n");
    put(store / "notes.txt", session("/not a session"));
    EXPECT_EQ(connector.projects().note, "1 session file records no project cwd");
    put(store / "2026/bad.jsonl", "");
    EXPECT_EQ(connector.projects().note, "2 session files record no project cwd");

    put(home.path("project/AGENTS.md"), "12345");
    const auto at = [&](const std::string& name, const std::string& cwd, int seconds) {
        fs::last_write_time(put(store / name, session(cwd)),
                            std::chrono::file_clock::from_sys(
                                std::chrono::sys_seconds(std::chrono::seconds(seconds))));
    };
    at("2026/11/20/one.jsonl", home.path("project"), 1000);
    at("2026/11/21/two.jsonl", "/nowhere", 2000);
    at("2026/11/21/three.jsonl", home.path("project"), 3000);
    fs::create_symlink(home.path("linked"), store / "loop");
    fs::create_symlink("..", store / "2026/loop");
    const auto [source, projects, note] = connector.projects();
    EXPECT_EQ(source, store.string());
    EXPECT_EQ(note, std::nullopt);
    ASSERT_EQ(projects.size(), 2U);
    EXPECT_EQ(projects[0].path, home.path("project"));
    EXPECT_EQ(projects[0].lastActivity, FileDate(std::chrono::seconds(3000)));
    EXPECT_EQ(projects[0].memory->path, home.path("project/AGENTS.md"));
    EXPECT_EQ(projects[0].memory->bytes, 5);
    EXPECT_EQ(projects[1].path, "/nowhere");
    EXPECT_EQ(projects[1].memory, std::nullopt);
}

/// How many bytes this process has read.
std::uint64_t bytesRead() {
    std::ifstream counters("/proc/self/io");
    std::string name;
    std::uint64_t count = 0;
    counters >> name >> count;
    return count;
}

TEST(CodexInventory, isNotHeldUpByLargeFoldersAndFiles) {
    const CodexHome home;
    const fs::path store = home.path(".codex/sessions");
    for (int index = 0; index < 10'000; ++index)
        put(store / std::to_string(index % 30) / (std::to_string(index) + ".jsonl"),
            session("/p" + std::to_string(index % 7)));
    put(store / "endless.jsonl", std::string(400'000, '{'));
    const fs::path sparse = put(store / "sparse.jsonl", session("/large"));
    fs::resize_file(sparse, std::uintmax_t{2} << 30);
    fs::resize_file(put(store / "hole.jsonl", ""), std::uintmax_t{2} << 30);
    const auto before = bytesRead();
    EXPECT_EQ(home.connector().projects().projects.size(), 8U);
    // A first piece of each file, and of the two without a line feed as much as a record may have.
    EXPECT_LT(bytesRead() - before, 10'001U * 4096U + 2U * 262'144U + 10'000U);
}

TEST(CodexInventory, listsItsMemoryFiles) {
    const CodexHome home;
    EXPECT_TRUE(home.connector().memoryFiles().files.empty());
    put(home.path("AGENTS.md"), "1");
    put(home.path(".codex/AGENTS.md"), "12");
    std::vector<std::string> paths;
    for (const auto& file : home.connector().memoryFiles().files)
        paths.push_back(file.path);
    EXPECT_THAT(paths, ElementsAre(home.path(".codex/AGENTS.md"), home.path("AGENTS.md")));
}

} // namespace
} // namespace wendlow
