#include "Files.h"
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
    const std::pair<std::filesystem::path, std::string> rows[] = {
        {rooms.file(), "it has tables of version 99, and this practice gateway knows those of "
                       "version 1"},
        {folder / "text.db", "file is not a database"},
        {folder, "Is a directory"},
        {folder / "text.db/x.db", "Not a directory"}};
    for (const auto& [file, why] : rows)
        EXPECT_EQ(sentence(file), file.string() + " could not be opened — " + why);
    EXPECT_EQ(testing::get(folder / "text.db"), std::string(5000, 'x'));
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
    EXPECT_THAT(first.note(R"({"scopeBoard":{}})"), HasSubstr(R"("folders":["~/Projects/atlas"])"));
}

} // namespace
} // namespace wendlow
