#include "Files.h"
#include "RunProgram.h"
#include "Scopes/EditorMigrationWriter.h"
#include "Scopes/EditorScopePaths.h"
#include "Scopes/MigrationScript.h"
#include "Scopes/ScopeFields.h"
#include "TemporaryHome.h"

#include <array>
#include <csignal>
#include <future>

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <unistd.h>

namespace wendlow::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

using Board = std::vector<EditorScopeRow>;

EditorScopeRow row(std::string path, std::vector<std::string> folders = {},
                   std::vector<EditorCount> kinds = {}) {
    return {.path = std::move(path), .folders = std::move(folders), .kinds = std::move(kinds)};
}

Board board() {
    return {row("/ab", {"/z"}, {{.name = "rule", .count = 50}}), row("/a/b", {"/p", "/q"}),
            row("/a", {}, {{.name = "rule", .count = 2}, {.name = "note", .count = 1}}),
            row("/a/b/c", {}, {{.name = "note", .count = 4}})};
}

/// Whether the lines stand in the text in this order, nothing between them.
auto holdsLines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return HasSubstr(text);
}

TEST(EditorScopePaths, goUpDownAndElsewhere) {
    for (const auto& [path, parent] :
         {std::pair("/", "/"), {"/a", "/"}, {"/a/b", "/a"}, {"a", "/"}})
        EXPECT_EQ(EditorScopePaths::parent(path), parent) << path;
    const std::array<const char*, 4> moves[] = {{"/a", "/a", "/x", "/x"},
                                                {"/a/b/c", "/a", "/x", "/x/b/c"},
                                                {"/ab", "/a", "/x", "/ab"},
                                                {"/a/b/c", "/a/b", "/a", "/a/c"},
                                                {"/a/b", "/a", "/", "/b"},
                                                {"/a/b", "/a", "/x///", "/x/b"},
                                                {"/a/b", "/a", "/a/new", "/a/new/b"},
                                                {"/a", "/", "/x", "/a"},
                                                {"/b", "/a", "/x", "/b"},
                                                {"/", "/", "/x", "/x"}};
    for (const auto& [path, from, to, moved] : moves)
        EXPECT_EQ(EditorScopePaths::reparent(path, from, to), moved) << path << " to " << to;
    EXPECT_EQ(EditorScopePaths::join("/x/", ""), "/x/");
    EXPECT_EQ(EditorScopePaths::join("//", "/a"), "/a");
    for (const char* const name :
         {"a\nb", "\r", "\t", "\x7f", "\u0085", "a\u2028", "\u2029", "\xff"})
        EXPECT_TRUE(EditorScopePaths::breaksLines(name)) << name;
    EXPECT_FALSE(EditorScopePaths::breaksLines("/שלום “👩🏽‍💻” \\ \" é"));
}

TEST(ScopeFields, sayWhatKeepsThemFromBeingPaths) {
    using namespace ScopeFields;
    const char* const begins = "A scope’s path begins with “/”.";
    const char* const pieces = "A scope’s path has no empty piece and does not end with “/”.";
    const char* const control = "A scope’s path holds no line break or other control character.";
    for (const auto& [path, fault] : {std::pair("/", ""),
                                      {"/a b", ""},
                                      {"", begins},
                                      {"a", begins},
                                      {" /a", begins},
                                      {"/a/", pieces},
                                      {"//a", pieces},
                                      {"/a\n", control}})
        EXPECT_EQ(faultOfScope(path), fault) << path;
    EXPECT_EQ(faultOfFolder("~/a"), "A folder’s path begins with “/”.");
    EXPECT_EQ(faultOfFolder("/a//"), "");
    EXPECT_EQ(faultOfRename("/a", "/a"), "That is its path already.");
    EXPECT_EQ(faultOfRename("/a", "/a/b"), "");
    const char* const inside = "Its contents can’t move to itself or below it.";
    for (const auto& [to, fault] :
         {std::pair("/a", inside), {"/a/b", inside}, {"/ab", ""}, {"/", ""}, {"a", begins}})
        EXPECT_EQ(faultOfRetire("/a", to), fault) << to;
    EXPECT_EQ(faultOfRetire("/", "/a"), inside) << "the root has no outside";
}

TEST(EditorScopeMigration, tellsWhatItWouldDo) {
    auto move = EditorScopeMigration::rename(board(), "/a", "/x");
    EXPECT_THAT(move.destinations, ElementsAre("/x", "/x/b", "/x/b/c"));
    EXPECT_EQ(
        move.summary(),
        "/a → /x would move 7 memories, update 2 folder maps, and re-path 3 scopes. It runs as "
        "a standalone migration script with a verified backup — never an in-place edit from "
        "this window.");
    move.redirect("/");
    EXPECT_EQ(move, EditorScopeMigration::rename(board(), "/a", "/"));
    EXPECT_EQ(EditorScopeMigration::retire({row("/a/b", {"/p"}, {{.name = "n", .count = 1}})},
                                           "/a/b", "/a")
                  .summary(),
              "/a/b holds 1 memory across 1 scope. Retiring it moves them to /a and rewrites 1 "
              "folder map. A scope with contents never silently deletes; empty scopes just "
              "disappear.");
    EXPECT_EQ(EditorScopeMigration::retire(board(), "/", "/x").affected.size(), 4U);
    for (const auto& [path, slug] :
         {std::pair("/", "root"), {"", "root"}, {"/a", "a"}, {"//a/b c/", "a-b c"}})
        EXPECT_EQ(EditorScopeMigration::slug(path), slug);
    EXPECT_EQ(move.scriptName("2026-11-19"), "migrate-scope-rename-a-2026-11-19.py");
    EXPECT_EQ(EditorScopeMigration::retire({}, "/", "/x").scriptName("d"),
              "migrate-scope-retire-root-d.py");
}

TEST(MigrationScript, beginsWithWhatItWillDo) {
    const std::string renamed =
        EditorScopeMigration::rename(board(), "/a", "/x").script("2026-11-19", R"(/W "\.app/mcp)");
    EXPECT_TRUE(
        renamed.starts_with("#!/usr/bin/env python3\n# One-shot migration: RENAME the scope "
                            "/a -> /x, subtree included.\n# Generated by the Wendlow "
                            "Editor's Scopes face on 2026-11-19. The Editor NEVER "
                            "performs\n# a scope rename"));
    EXPECT_THAT(renamed, holdsLines({"#   7 memories · 3 scopes · 2 folder maps",
                                     "#   /a -> /x   (3 memories)",
                                     "#   /a/b -> /x/b   (0 memories, folders: /p, /q)",
                                     "#   /a/b/c -> /x/b/c   (4 memories)", "#"}));
    EXPECT_THAT(renamed, holdsLines({R"(MCP = "/W \"\\.app/mcp")",
                                     "DB = os.path.expanduser(\"~/Library/Application "
                                     "Support/Wendlow/data.db\")"}));
    EXPECT_THAT(renamed, holdsLines({"MOVES = [", R"(    ("/a/b/c", "/x/b/c"),)",
                                     R"(    ("/a/b", "/x/b"),)", R"(    ("/a", "/x"),)", "]", ""}));
    EXPECT_THAT(renamed,
                holdsLines({"FOLDERS = [", R"(    ("/p", "/x/b"),)", R"(    ("/q", "/x/b"),)", "]",
                            "", "def mcp_call(name, args):"}));
    EXPECT_TRUE(renamed.ends_with("   (stop the daemon first)\")\n"));
    const std::string retired =
        EditorScopeMigration::retire({row("/a")}, "/a", "/").script("2026-11-19", "mcp");
    EXPECT_THAT(retired, HasSubstr("RETIRE the scope /a, moving its contents to /.\n"));
    EXPECT_THAT(retired, HasSubstr("#   0 memories · 1 scopes · 0 folder maps\n"));
    // A character is what a person sees as one: the family is shorter than two letters.
    EXPECT_THAT(EditorScopeMigration::rename({row("/👨‍👩‍👧"), row("/ab")}, "/", "/x")
                    .script("d", "m"),
                holdsLines({"MOVES = [", R"(    ("/ab", "/ab"),)",
                            R"(    ("/👨‍👩‍👧", "/👨‍👩‍👧"),)"}));
}

// The script names this test.
TEST(EditorScopesFaceTests, scriptUsesTheCatalogsArgumentNames) {
    const std::string script = EditorScopeMigration::rename(board(), "/a", "/x").script("d", "m");
    EXPECT_THAT(script, HasSubstr(R"(mcp_call("memory_edit", {"id": mid, "scope": new}))"));
    EXPECT_THAT(script,
                HasSubstr(R"(mcp_call("scope_map_folder", {"folder": folder, "scope": new}))"));
}

constexpr const char* python = "/usr/bin/python3";

TEST(MigrationScript, isReadByPythonWhateverTheNames) {
    const TemporaryHome home;
    const std::string hostile = R"(/“a” \n "; print('run') #)";
    const std::string rightToLeft = "/שלום/👩🏽‍💻";
    const Board rows{row("/s" + hostile, {"/home/me" + hostile + "\\"}), row("/s" + rightToLeft)};
    const auto store = home / "Library/Application Support/Wendlow/data.db";
    std::filesystem::create_directories(store.parent_path());
    const auto outcome = EditorMigrationWriter::write(
        EditorScopeMigration::rename(rows, "/s", "/t"), "2026-11-19",
        {.directory = home / ".wendlow/migrations", .mcp = home / R"(W "x\.app/mcp)"});
    ASSERT_TRUE(outcome.ok()) << outcome.words;
    const Environment environment{{"HOME", home.path().string()}};
    const std::string fill =
        "import sqlite3, sys; c = sqlite3.connect(sys.argv[1]); c.execute('CREATE "
        "TABLE note(id INTEGER, path TEXT)'); c.executemany('INSERT INTO note "
        "VALUES(?, ?)', [(1, sys.argv[2]), (2, sys.argv[2]), (3, '/s')]); "
        "c.commit()";
    ASSERT_EQ(runProgram(python, {"-c", fill, store, rows[0].path}).status, 0);
    const auto run = runProgram(outcome.words, {}, environment);
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "2 memories to move across 2 scopes\n"
                       "  /s" +
                           hostile + " -> /t" + hostile + "   (2 memories)\n" + "  /s" +
                           rightToLeft + " -> /t" + rightToLeft + "   (0 memories)\n" +
                           "  folder /home/me" + hostile + "\\ -> /t" + hostile + "\n" +
                           "DRY RUN - nothing written. Re-run with --apply.\n");
    EXPECT_THAT(namesIn(store.parent_path()), ElementsAre("data.db"));
}

/// A place to write to, and what a failure leaves there.
struct MigrationWriter : ::testing::Test {
    TemporaryHome home;
    EditorMigrationWriter::Place place{.directory = home / ".wendlow/migrations", .mcp = "/mcp"};
    const std::filesystem::path file = place.directory / "migrate-scope-rename-a-2026-11-19.py";
    EditorScopeMigration migration = EditorScopeMigration::rename(board(), "/a", "/x");

    EditorWriteOutcome write() const {
        return EditorMigrationWriter::write(migration, "2026-11-19", place);
    }
    std::string refusal() const {
        const auto outcome = write();
        EXPECT_FALSE(outcome.ok());
        return outcome.words;
    }
    std::string couldNot() const {
        return "Couldn’t write the migration script to " + file.string() + ": ";
    }
};

TEST_F(MigrationWriter, writesAScriptThatRunsIntoAPrivateFolder) {
    const Umask open(0);
    EXPECT_EQ(write(), EditorWriteOutcome::wrote(file.string()));
    EXPECT_EQ(get(file), migration.script("2026-11-19", "/mcp"));
    EXPECT_EQ(modeOf(file), 0755U);
    EXPECT_EQ(modeOf(place.directory), 0700U);
    EXPECT_EQ(modeOf(home / ".wendlow"), 0700U);
    // The second one of a day replaces the first, and no link is written through.
    put(home / "elsewhere", "theirs", 0644);
    std::filesystem::remove(file);
    std::filesystem::create_symlink(home / "elsewhere", file);
    EXPECT_TRUE(write().ok());
    EXPECT_FALSE(std::filesystem::is_symlink(file));
    EXPECT_EQ(get(home / "elsewhere"), "theirs");
    EXPECT_THAT(namesIn(place.directory), ElementsAre(file.filename().string()));
}

TEST_F(MigrationWriter, writesNothingWithoutAProgramOrWithANameThatBreaksLines) {
    const char* const breaks =
        "a name in this move holds a line break or another control character, "
        "so no script was written";
    for (const auto& [scope, folder, to] : {std::tuple("/a\nimport os", "/p", "/x"),
                                            {"/a", "/p\r", "/x"},
                                            {"/a", "/p", "/x\u2028"}}) {
        migration = EditorScopeMigration::rename({row(scope, {folder})}, scope, to);
        EXPECT_EQ(refusal(), breaks);
    }
    place.mcp.reset();
    EXPECT_EQ(refusal(), "Wendlow is not running from an installed app bundle, so there is no "
                         "wendlow-mcp here for the migration script to run its writes through.");
    EXPECT_FALSE(std::filesystem::exists(home / ".wendlow"));
}

TEST_F(MigrationWriter, usesNoFolderThatSomebodyElseMayHavePutThere) {
    std::filesystem::create_directories(home / "trap");
    std::filesystem::create_directories(home / ".wendlow");
    std::filesystem::create_directory_symlink(home / "trap", place.directory);
    EXPECT_EQ(refusal(), couldNot() + "the folder " + place.directory.string() +
                             " is a link, and nothing is written through one");
    EXPECT_THAT(namesIn(home / "trap"), IsEmpty());
    std::filesystem::remove(place.directory);
    std::filesystem::create_directory(place.directory);
    if (::chown(place.directory.c_str(), 65534, 65534) == 0) { // only root may give it away
        EXPECT_EQ(refusal(), couldNot() + "the folder " + place.directory.string() +
                                 " belongs to somebody else");
        EXPECT_THAT(namesIn(place.directory), IsEmpty());
    }
    std::filesystem::remove(place.directory);
    put(place.directory, "a file");
    EXPECT_THAT(refusal(), ::testing::StartsWith(couldNot()));
    std::filesystem::remove(place.directory);
    std::filesystem::create_directories(file / "a folder in its place");
    EXPECT_EQ(refusal(), couldNot() + "Is a directory");
    EXPECT_THAT(namesIn(place.directory), ElementsAre(file.filename().string()));
}

TEST_F(MigrationWriter, tellsOfAFolderThatIsReadOnly) {
    std::filesystem::create_directories(place.directory);
    const uid_t user = ::geteuid();
    if (user == 0) {
        for (const auto& folder : {home.path(), place.directory.parent_path(), place.directory})
            ASSERT_EQ(::chown(folder.c_str(), 65534, 65534), 0);
    }
    ASSERT_EQ(::chmod(place.directory.c_str(), 0500), 0);
    ASSERT_TRUE(user != 0 || ::seteuid(65534) == 0);
    const std::string words = refusal();
    ASSERT_EQ(::seteuid(user), 0);
    ASSERT_EQ(::chmod(place.directory.c_str(), 0700), 0);
    EXPECT_EQ(words, couldNot() + "Permission denied");
    EXPECT_THAT(namesIn(place.directory), IsEmpty());
}

TEST_F(MigrationWriter, leavesNoHalfOfAScriptWhereThereIsNoRoom) {
    ASSERT_TRUE(write().ok());
    const auto whole = get(file);
    migration.redirect("/other");
    // As on a full disk, the beginning of the file can still be written.
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{.rlim_cur = 1000, .rlim_max = before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const std::string words = refusal();
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(words, couldNot() + "File too large");
    EXPECT_EQ(get(file), whole);
    EXPECT_THAT(namesIn(place.directory), ElementsAre(file.filename().string()));
}

TEST_F(MigrationWriter, leavesOneWholeScriptOfTwoWindows) {
    auto other = migration;
    other.redirect("/other");
    const auto writeMany = [this](const EditorScopeMigration& of) {
        for (int at = 0; at < 50; ++at)
            EXPECT_TRUE(EditorMigrationWriter::write(of, "2026-11-19", place).ok());
    };
    auto beside = std::async(std::launch::async, writeMany, other);
    writeMany(migration);
    beside.get();
    EXPECT_THAT(get(file).value_or(""), ::testing::AnyOf(migration.script("2026-11-19", "/mcp"),
                                                         other.script("2026-11-19", "/mcp")));
    EXPECT_THAT(namesIn(place.directory), ElementsAre(file.filename().string()));
}

} // namespace
} // namespace wendlow::testing
