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

constexpr std::string_view memory =
    R"({"write":{"text":"kept","why":"","writer":"w","type":"note","path":"/"}})";

/// A process that does `work` until it is killed. What it writes to its pipe is what it was told.
class Victim {
public:
    template<class Work> explicit Victim(const Work& work) {
        int ends[2] = {};
        EXPECT_EQ(::pipe(ends), 0);
        m_process = ::fork();
        if (m_process == 0) {
            work(ends[1]);
            ::_exit(1);
        }
        ::close(ends[1]);
        m_told = ends[0];
    }
    Victim(const Victim&) = delete;
    Victim& operator=(const Victim&) = delete;
    ~Victim() { ::close(m_told); }

    char next() const {
        char byte = 0;
        return ::read(m_told, &byte, 1) == 1 ? byte : '\0';
    }
    /// How many more bytes were told before the end.
    int kill() const {
        ::kill(m_process, SIGKILL);
        int status = 0;
        ::waitpid(m_process, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status)) << "it had ended by itself";
        int count = 0;
        while (next() != '\0')
            ++count;
        return count;
    }

private:
    pid_t m_process = 0;
    int m_told = -1;
};

constexpr std::string_view documents = "SELECT count(*) FROM documents";

bool isSound(TemporaryRooms& rooms) {
    rooms->documents().database().execute(
        "INSERT INTO document_words(document_words, rank) VALUES('integrity-check', 1)");
    return rooms.figure("SELECT integrity_check = 'ok' FROM pragma_integrity_check") == 1;
}

TEST(PracticeDatabase, KeepsEveryWriteThatWasAnsweredWhenItsProcessIsKilled) {
    for (int round = 1; round <= 3; ++round) {
        TemporaryRooms rooms;
        rooms.close();
        const Victim victim([&](int pipe) {
            rooms.reopen();
            while (rooms.note(memory).starts_with(R"({"noteID")"))
                if (::write(pipe, "w", 1) != 1)
                    return;
        });
        int answered = 0;
        while (answered < 40 * round && victim.next() == 'w')
            ++answered;
        answered += victim.kill();
        rooms.reopen();
        EXPECT_TRUE(isSound(rooms));
        // The one that was under way may have been written and not yet answered.
        const auto kept = rooms.figure(documents);
        EXPECT_TRUE(kept == answered || kept == answered + 1) << kept << " of " << answered;
        EXPECT_THAT(rooms.read(R"({"textBrowse":{"term":"kept","limit":1}})"),
                    HasSubstr(fmt::format(R"("total":{},)", kept)));
    }
}

TEST(PracticeDatabase, HoldsNothingOfAFillThatWasKilled) {
    TemporaryRooms rooms;
    rooms.close();
    const Victim victim([&](int pipe) {
        rooms.reopen();
        [[maybe_unused]] const auto told = ::write(pipe, "w", 1);
        static_cast<void>(rooms->fill(FillSize::power));
    });
    ASSERT_EQ(victim.next(), 'w');
    // Long enough that pages of the fill are in the file; far from its end.
    const auto wal = rooms.file().string() + "-wal";
    for (int look = 0; look < 2000; ++look) {
        if (std::filesystem::exists(wal) && std::filesystem::file_size(wal) > 1'000'000)
            break;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    victim.kill();
    rooms.reopen();
    EXPECT_EQ(rooms.figure(documents), 0);
    EXPECT_TRUE(isSound(rooms));
    ASSERT_TRUE(rooms->fill(FillSize::day).has_value());
    EXPECT_EQ(rooms.figure(documents), 300 + 150 + 6);
}

TEST(PracticeDatabase, IsPrivateToThePerson) {
    TemporaryRooms rooms;
    rooms.note(memory);
    EXPECT_EQ(testing::modeOf(rooms.file().parent_path()), 0700U);
    EXPECT_EQ(testing::namesIn(rooms.file().parent_path()),
              (std::vector<std::string>{"data.db", "data.db-shm", "data.db-wal"}));
    for (const char* const suffix : {"", "-wal", "-shm"})
        EXPECT_EQ(testing::modeOf(rooms.file().string() + suffix), 0600U) << suffix;
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
