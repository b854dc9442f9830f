#include "Files.h"
#include "HomeFolder.h"
#include "TemporaryRooms.h"

#include <csignal>
#include <thread>

#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

namespace wendlow {
namespace {

using ::testing::HasSubstr;
using testing::TemporaryRooms;

/// Pages of it are in the file by then; it is far from its end.
TEST(PracticeDatabase, HoldsNothingOfAFillThatWasKilled) {
    TemporaryRooms rooms;
    rooms.close();
    const pid_t child = ::fork();
    if (child == 0) {
        rooms.reopen();
        static_cast<void>(rooms->fill(FillSize::power));
        ::_exit(1);
    }
    const auto wal = rooms.file().string() + "-wal";
    for (int look = 0; look < 2000; ++look) {
        if (std::filesystem::exists(wal) && std::filesystem::file_size(wal) > 1'000'000)
            break;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    ::kill(child, SIGKILL);
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status)) << "it had ended by itself";
    rooms.reopen();
    constexpr std::string_view documents = "SELECT count(*) FROM documents";
    EXPECT_EQ(rooms.figure(documents), 0);
    rooms->documents().database().execute(
        "INSERT INTO document_words(document_words, rank) VALUES('integrity-check', 1)");
    EXPECT_EQ(rooms.figure("SELECT integrity_check = 'ok' FROM pragma_integrity_check"), 1);
    ASSERT_TRUE(rooms->fill(FillSize::day).has_value());
    EXPECT_EQ(rooms.figure(documents), 300 + 150 + 6);
}

/// A store as the product's own daemon might keep it.
void makeForeign(const std::filesystem::path& file) {
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(file.c_str(), &database), SQLITE_OK);
    sqlite3_exec(database, "CREATE TABLE note(id INTEGER PRIMARY KEY, path TEXT)", nullptr, nullptr,
                 nullptr);
    sqlite3_close(database);
}

TEST(PracticeDatabase, SaysWhyItCannotBeOpened) {
    TemporaryRooms rooms;
    rooms->documents().database().execute("PRAGMA user_version = 99");
    rooms.close();
    const auto sentence = [](const std::filesystem::path& file) {
        const auto opened = PracticeRooms::open(file, testing::tickingClock());
        return opened ? std::string("opened") : opened.error();
    };
    const auto folder = rooms.file().parent_path();
    testing::put(folder / "text.db", std::string(5000, 'x'), 0600);
    makeForeign(folder / "other.db");
    const auto other = testing::get(folder / "other.db");
    const std::pair<std::filesystem::path, std::string> rows[] = {
        {rooms.file(), "it has tables of version 99, and this practice gateway knows those of "
                       "version 1"},
        {folder / "text.db", "file is not a database"},
        {folder / "other.db", "it holds the tables of another program"},
        {folder, "Is a directory"},
        {folder / "text.db/x.db", "Not a directory"}};
    for (const auto& [file, why] : rows)
        EXPECT_EQ(sentence(file), file.string() + " could not be opened — " + why);
    EXPECT_EQ(testing::get(folder / "text.db"), std::string(5000, 'x'));
    EXPECT_TRUE(testing::get(folder / "other.db") == other);
}

TEST(PracticeDatabase, IsFilledAlikeEachTimeAndOnlyWhenEmpty) {
    TemporaryRooms first;
    TemporaryRooms second;
    ASSERT_TRUE(first->fill(FillSize::day).has_value());
    ASSERT_TRUE(first->fill(FillSize::power).has_value());
    ASSERT_TRUE(second->fill(FillSize::day).has_value());
    for (const std::string_view request :
         {R"({"textBrowse":{"limit":1000}})", R"({"textBrowse":{"term":"backup","kind":"memory"}})",
          R"({"standingRules":{"card":true,"scope":"/studio/atlas/search"}})",
          R"({"modBoard":{}})"})
        EXPECT_EQ(first.read(request), second.read(request));
    EXPECT_THAT(first.read(R"({"textBrowse":{"limit":1,"kind":"memory"}})"),
                HasSubstr(R"("total":300,)"));
    // The hard texts are there, and can be found.
    for (const std::string_view term :
         {"القرار", "החלטה", "東京の地図は縮尺を揃える", "straße", "90"})
        EXPECT_THAT(first.read(fmt::format(
                        R"({{"textBrowse":{{"term":"{}","scopes":["/studio/letters"]}}}})", term)),
                    Not(HasSubstr(R"("total":0,)")))
            << term;
    EXPECT_THAT(first.read(R"({"standingRules":{"card":true,"scope":"/studio/workshop"}})"),
                HasSubstr("1 rule here has a rules-file tag that names no module"));
    EXPECT_THAT(first.note(R"({"scopeBoard":{}})"),
                HasSubstr(fmt::format(R"("folders":["{}/Projects/atlas"])", homeFolder())));
}

TEST(PracticeDatabase, IsReadByAScriptBesideIt) {
    TemporaryRooms rooms;
    ASSERT_TRUE(rooms->fill(FillSize::day).has_value());
    EXPECT_EQ(rooms.figure("SELECT count(*) FROM note"), 300);
    const auto number =
        rooms.figure("SELECT id FROM note WHERE path = '/home' ORDER BY id LIMIT 1");
    // Under each of its spellings it is the same memory, of that scope.
    const auto grabbed = [&](std::string_view id) {
        return rooms.read(fmt::format(R"({{"grab":{{"id":"{}"}}}})", id));
    };
    const std::string thing = grabbed(fmt::format("m{}", number));
    EXPECT_THAT(thing, HasSubstr(R"("filed":"/home")"));
    EXPECT_EQ(grabbed(fmt::format("m:{}", number)), thing);
    EXPECT_EQ(grabbed(fmt::format("m:m{}", number)), thing);
    for (const std::string_view none : {"m:", "m:m", "m:x1", "m::1", "m:-1", "m:1 "})
        EXPECT_EQ(grabbed(none), R"({"thing":{}})") << none;
    rooms.hold(fmt::format(R"(
notes edit {{"id":"m:{0}","path":"/home/cellar"}} → noteID m{0}
notes delete {{"id":"m:{0}"}} → text Deleted m{0}.
notes edit {{"id":"m:{0}","path":"/"}}
→ failure no memory has the id “m:{0}”; nothing was changed)",
                           number));
    EXPECT_EQ(rooms.figure("SELECT count(*) FROM note"), 299);
    // A copy holds what has not come into the main file yet.
    const auto copy = rooms.file().parent_path() / "copy.db";
    rooms->documents().database().execute(fmt::format("VACUUM INTO '{}'", copy.string()));
    rooms.close();
    std::filesystem::rename(copy, rooms.file());
    std::filesystem::remove(rooms.file().string() + "-wal");
    rooms.reopen();
    EXPECT_EQ(rooms.figure("SELECT count(*) FROM note"), 299);
    rooms->documents().database().execute(
        "INSERT INTO document_words(document_words, rank) VALUES('integrity-check', 1)");
}

} // namespace
} // namespace wendlow
