// What a cancel puts back of a tool's files beside their bytes, by the real connector of one.

#include "ClaudeCode/ClaudeCodeConnector.h"
#include "Files.h"
#include "TemporaryHome.h"
#include "ToolNote.h"
#include "ToolsBefore.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <functional>
#include <map>
#include <set>

#include <fcntl.h>
#include <sys/stat.h>

namespace wendlow {
namespace {

namespace fs = std::filesystem;
using ::testing::Contains;
using testing::get;
using ::testing::HasSubstr;
using testing::put;

constexpr const char* settings = ".claude/settings.json";
constexpr const char* servers = ".claude.json";
constexpr const char* copyMark = ".wendlow-backup-";
constexpr const char* settingsCopies = ".claude/settings.json, copies";
constexpr const char* serversCopies = ".claude.json, copies";

/// A person's home with Claude Code in it, which a journey comes to.
struct Machine {
    testing::TemporaryHome root;
    fs::path home = root / "home";
    fs::path support = home / "Library/Wendlow";
    ClaudeCodePaths paths = ClaudeCodePaths::under(home, root / "Wendlow.app");
    int seconds = 1'800'000'000;
    ClaudeCodeConnector tool{
        paths,
        {.now = [this] { return Transaction::Date(std::chrono::seconds(seconds++)); },
         .beforeRename = {}}};
    std::vector<std::string> log;
    ToolsBefore before = ToolsBefore::onDisk(
        {home, support}, [this](const std::string& line) { log.push_back(line); });
    fs::path note = ToolNote::path(support, "claude-code");

    Machine() {
        put(paths.hookBinary, "program", 0755);
        put(home / settings, R"({"model": "opus"})", 0640);
        put(home / servers, "{}\n", 0600);
        fs::create_directories(support);
    }
    fs::path at(const char* name) const { return home / name; }
    /// Gives everything there is a time of its own, long ago.
    void age() const {
        std::vector<fs::path> all{home};
        for (const auto& each : fs::recursive_directory_iterator(home))
            all.push_back(each.path());
        long number = 0;
        for (const fs::path& each : all) {
            const timespec time{1'000'000'000 + ++number, 123'456'789};
            const timespec times[] = {time, time};
            ASSERT_EQ(::utimensat(AT_FDCWD, each.c_str(), times, AT_SYMLINK_NOFOLLOW), 0);
        }
    }
    void connect() const {
        before.beforeConnect(tool);
        ASSERT_EQ(tool.install().result, ConnectorOutcome::Result::changed);
        before.afterConnect(tool);
    }
    void cancel() const {
        std::ignore = tool.remove();
        before.putBack(tool);
    }
    /// All that lies in the home and the home itself, but for what is the product's own.
    std::map<std::string, std::string> everything() const {
        std::map<std::string, std::string> all;
        const auto add = [&](const fs::path& path, const std::string& name) {
            struct stat status{};
            EXPECT_EQ(::lstat(path.c_str(), &status), 0);
            all[name] = fmt::format("{:o} {}.{} {}", status.st_mode, status.st_mtim.tv_sec,
                                    status.st_mtim.tv_nsec, get(path).value_or(""));
        };
        add(home, "~");
        for (const auto& each : fs::recursive_directory_iterator(home))
            if (const auto name = each.path().lexically_relative(home).string();
                !name.starts_with("Library"))
                add(each.path(), name);
        return all;
    }
    /// The one copy beside a file that holds this.
    fs::path copyWith(const char* name, const std::string& piece) const {
        for (const auto& each : fs::directory_iterator(at(name).parent_path()))
            if (each.path().string().starts_with(at(name).string() + copyMark) &&
                get(each.path()).value_or("").contains(piece))
                return each.path();
        ADD_FAILURE() << "no copy of " << name << " with " << piece;
        return {};
    }
};

/// The copies of a file count as one.
std::set<std::string> differences(const std::map<std::string, std::string>& one,
                                  const std::map<std::string, std::string>& other) {
    std::set<std::string> names;
    for (const auto& [these, those] : {std::pair(&one, &other), std::pair(&other, &one)})
        for (const auto& [name, entry] : *these)
            if (const auto found = those->find(name);
                found == those->end() || found->second != entry)
                names.insert(name.contains(copyMark)
                                 ? name.substr(0, name.find(copyMark)) + ", copies"
                                 : name);
    return names;
}

TEST(ToolsBefore, PutsBackWhatNobodyElseHasTouched) {
    using Does = std::function<void(Machine&)>;
    const Does connect = [](Machine& machine) { machine.connect(); };
    const Does nothing = [](Machine&) {};
    const auto connectThen = [](const Does& does) {
        return [does](Machine& machine) {
            machine.connect();
            does(machine);
        };
    };
    // A link to a person's file, which holds what the copy held.
    const auto plantLink = [](Machine& machine) {
        const fs::path copy = machine.copyWith(settings, "opus");
        fs::rename(copy, machine.at("theirs"));
        fs::create_symlink(machine.at("theirs"), copy);
    };
    const struct {
        const char* name;
        Does had;     ///< before the journey
        Does between; ///< the journey up to the cancel
        std::set<std::string> differ;
    } cases[] = {
        {"connected and cancelled", nothing, connect, {}},
        {"connected, unplugged, connected, cancelled",
         nothing,
         connectThen([](Machine& machine) {
             std::ignore = machine.tool.remove();
             machine.connect();
         }),
         {}},
        {"killed between the note and the verb",
         nothing,
         [](Machine& machine) { machine.before.beforeConnect(machine.tool); },
         {}},
        {"killed there, written by its tool, and connected by the next journey",
         nothing,
         [](Machine& machine) {
             machine.before.beforeConnect(machine.tool);
             put(machine.at(settings), "{}", 0640);
             machine.connect();
         },
         {settings}},
        {"killed while its files were written",
         nothing,
         [](Machine& machine) {
             const std::string before = *get(machine.at(servers));
             machine.before.beforeConnect(machine.tool);
             std::ignore = machine.tool.install();
             put(machine.at(servers), before, 0600); // had not come to this one
             machine.connect();
         },
         {}},
        {"without a folder of the tool's",
         [](Machine& machine) { fs::remove_all(machine.at(".claude")); },
         connect,
         {}},
        {"without the file with the servers",
         [](Machine& machine) { fs::remove(machine.at(servers)); },
         connect,
         {}},
        {"with another file for the servers",
         [](Machine& machine) { put(machine.at(".claude/.config.json"), "{}"); },
         connect,
         {}},
        {"with copies from before, of which verbs keep the newest two",
         [](Machine& machine) {
             for (const char* stamp : {"20200101-000000", "20200102-000000", "20200103-000000"})
                 put(machine.at(servers).string() + copyMark + stamp, "old");
         },
         connect,
         {"~", serversCopies}},
        {"written by its tool in between",
         nothing,
         connectThen([](Machine& machine) {
             put(machine.at(servers), *get(machine.at(servers)) + "\n", 0600);
         }),
         {"~", servers, serversCopies}},
        {"unplugged, and written by its tool then",
         nothing,
         connectThen([](Machine& machine) {
             std::ignore = machine.tool.remove();
             put(machine.at(servers), "{ }", 0600);
         }),
         {"~", servers, serversCopies}},
        {"more than ours in our entry, of which the copy of the removal tells",
         nothing,
         connectThen([](Machine& machine) {
             put(machine.at(servers),
                 testing::replaced(*get(machine.at(servers)),
                                   {{R"("args": [])", R"("args": ["of the person's"])"}}),
                 0600);
         }),
         {"~", servers, serversCopies}},
        {"a copy that holds something else",
         nothing,
         connectThen([](Machine& machine) { put(machine.copyWith(settings, "opus"), "theirs"); }),
         {".claude", settings, settingsCopies}},
        {"a link in place of a copy",
         nothing,
         connectThen(plantLink),
         {"~", ".claude", settings, settingsCopies, "theirs"}},
        {"a link in place of the tool's folder",
         nothing,
         connectThen([](Machine& machine) {
             fs::rename(machine.at(".claude"), machine.at("moved"));
             fs::create_directory_symlink("moved", machine.at(".claude"));
         }),
         {"~", ".claude", settings, "moved", "moved/settings.json", "moved/settings.json, copies"}},
        {"connected without a journey",
         [](Machine& machine) { std::ignore = machine.tool.install(); },
         nothing,
         {"~", ".claude", settings, settingsCopies, servers, serversCopies}},
        {"a note that cannot be read",
         nothing,
         connectThen([](Machine& machine) { put(machine.note, "[{}]"); }),
         {"~", ".claude", settings, settingsCopies, servers, serversCopies}},
    };
    for (const auto& [name, had, between, differ] : cases) {
        SCOPED_TRACE(name);
        Machine machine;
        had(machine);
        machine.age();
        const auto before = machine.everything();
        between(machine);
        machine.cancel();
        EXPECT_EQ(differences(before, machine.everything()), differ);
        EXPECT_FALSE(fs::exists(machine.note));
    }
}

TEST(ToolsBefore, GoesByNoNoteThatNamesWhatIsNotTheTools) {
    Machine machine;
    const fs::path letter = put(machine.at("Documents/letter"), "theirs");
    const fs::path copy = put(letter.string() + copyMark + "20200101-000000", "theirs");
    machine.connect();
    auto folders = *ToolNote::read(machine.note);
    // What is true of a foreign file, but for its copies and times; by its own folder, by ways
    // that lead there, and by a name that leads out of the tool's.
    Machine other;
    put(other.at(settings), "theirs");
    other.before.beforeConnect(other.tool);
    const auto described = *ToolNote::read(other.note);
    std::optional<std::string> bytes;
    for (const FolderBefore& folder : described)
        for (const FileBefore& file : folder.files)
            if (file.name == "settings.json")
                bytes = file.bytes;
    ASSERT_TRUE(bytes);
    const auto plant = [&](const fs::path& folder, const std::string& name) {
        folders.push_back(
            {.path = folder.string(),
             .names = std::nullopt,
             .time = {1, 0},
             .files = {{.name = name, .bytes = bytes, .time = {1, 0}, .copies = {}}}});
    };
    plant(machine.at("Documents"), "letter");
    plant(machine.at(".claude/../Documents"), "letter");
    plant(machine.at(".claude"), "../Documents/letter");
    plant(machine.home, "Documents/letter");
    ToolNote::write(folders, machine.note);
    const auto before = machine.everything();
    machine.before.putBack(machine.tool);
    EXPECT_EQ(differences(before, machine.everything()), std::set<std::string>());
    EXPECT_TRUE(fs::exists(copy));
    EXPECT_THAT(machine.log, Contains(HasSubstr("Documents left as it is (it is none of the "
                                                "tool's)")));
}

TEST(ToolNote, ComesBackWholeOrNotAtAll) {
    const testing::TemporaryHome home;
    const fs::path at = ToolNote::path(home / "support", "codex");
    EXPECT_EQ(ToolNote::read(at), std::nullopt);
    const ToolNote::Folders folders{
        {.path = "/h/\"x\"",
         .names = "n",
         .time = {-1, 999'999'999},
         .files = {{.name = "a", .bytes = "b", .time = {1, 0}, .copies = {"c", "d"}, .wired = "w"},
                   {.name = "e", .bytes = std::nullopt, .time = {}, .copies = {}}}},
        {.path = "/h", .names = std::nullopt, .time = {}, .files = {}}};
    ToolNote::write(folders, at);
    EXPECT_EQ(ToolNote::read(at), folders);
    const std::string whole = *get(at);
    for (std::size_t cut = 0; cut < whole.size(); ++cut)
        EXPECT_EQ(ToolNote::read(put(at, whole.substr(0, cut))), std::nullopt) << cut;
    for (const auto& [from, to] :
         {std::pair("999999999", "1000000000"), std::pair("[-1,", "[-1.5,"),
          std::pair("\"names\"", "\"other\""), std::pair("\"b\"", "[]")})
        EXPECT_EQ(ToolNote::read(put(at, testing::replaced(whole, {{from, to}}))), std::nullopt)
            << to;
}

} // namespace
} // namespace wendlow
