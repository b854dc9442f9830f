#include "MeetingRoom.h"
#include "TemporaryRooms.h"

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using ::testing::HasSubstr;
using testing::TemporaryRooms;

constexpr double start = 1'795'250'700; // 2026-11-21 08:45 UTC

class Meetings : public ::testing::Test {
protected:
    Meetings() {
        ::setenv("TZ", "UTC", 1);
        put({.id = "meeting:zoom:1",
             .app = "zoom",
             .start = start,
             .end = start + 3900,
             .title = "Budget · \"round two\"\nfor spring",
             .reelBytes = 500,
             .lines = {{"Mara", start + 5, "Two copies of the backup."},
                       {"Jonas, junior", start + 50, "And both tried?"},
                       {"", start + 70, "Yes."},
                       {"Mara", start + 90, "Yes."}}});
        put({.id = "meeting:meet:2",
             .app = "meet",
             .start = start - 86'400,
             .end = start - 86'400 + 120,
             .lines = {{"", start - 86'000, "Backup, anybody?"}}});
        put({.id = "meeting:zoom:3",
             .app = "zoom",
             .start = start + 86'400,
             .end = start + 86'400 + 59,
             .title = "Nobody spoke",
             .lines = {}});
    }

    void put(const MeetingRecord& meeting) {
        PracticeDatabase& database = rooms->documents().database();
        Transaction transaction(database);
        MeetingRoom(rooms->documents()).put(meeting, "/studio");
        transaction.commit();
    }
    std::string list(std::string_view arguments = "") {
        const auto answer = rooms.read(fmt::format(R"({{"meetingList":{{{}}}}})", arguments));
        return std::get<AnswerCase::Text>(WireCodec::decodeResponse(answer).value())._0;
    }
    MeetingTranscriptAnswer transcript() {
        const auto answer = rooms.read(R"({"meetingTranscript":{"id":"meeting:zoom:1"}})");
        return std::get<AnswerCase::Transcript>(WireCodec::decodeResponse(answer).value())._0;
    }
    std::string erase(std::string_view meeting, std::int64_t line, std::string_view witness) {
        return rooms.control(
            fmt::format(R"({{"deleteUtterance":{{"meeting":"{}","rowid":{},"witness":"{}"}}}})",
                        meeting, line, witness));
    }

    TemporaryRooms rooms;
};

const std::string budget =
    "- meeting:zoom:1 · 2026-11-21 08:45–09:50 · 1h 5m · "
    "\"Budget - \"round two\" for spring\" · Mara, Jonas  junior · 4 lines\n";
const std::string unnamed = "- meeting:meet:2 · 2026-11-20 08:45–08:47 · 2m · 1 unnamed guest · "
                            "1 lines\n";
const std::string silent = "- meeting:zoom:3 · 2026-11-22 08:45–08:45 · 0m · \"Nobody spoke\" · "
                           "no named speakers · 0 lines\n";

TEST_F(Meetings, AreListedInALineThatCanBeTakenApart) {
    EXPECT_EQ(list(), "3 meetings\n" + silent + budget + unnamed);
    EXPECT_EQ(list(R"("day":"2026-11-21")"), "1 meeting\n" + budget);
    EXPECT_EQ(list(R"("app":"zoom")"), "2 meetings\n" + silent + budget);
    EXPECT_EQ(list(R"("person":"MARA")"), "1 meeting\n" + budget);
    EXPECT_EQ(list(R"("person":"Guest")"), "No meetings.");
}

TEST_F(Meetings, AreReadInWords) {
    rooms.hold(R"(
read meetingTranscript {"id":"meeting:zoom:3"} → failure no transcript is kept for “meeting:zoom:3”
read meetingTranscript {"id":"meeting:zoom:9"} → failure no transcript is kept for “meeting:zoom:9”
read meetingAt {"id":"meeting:zoom:1","at":"08:45"}
→ text [08:45] Mara: Two copies of the backup.\n[08:45] Jonas, junior: And both tried?\n[08:46] Guest: Yes.\n[08:46] Mara: Yes.\n
read meetingAt {"id":"meeting:zoom:1","at":"09:00"} → text Nothing was said at 09:00.
read meetingStats {"id":"meeting:zoom:1"}
→ text 1h 5m, 4 lines\n- Mara: 2 lines\n- Jonas, junior: 1 lines\n- Guest: 1 lines\n
read meetingGet {"id":"meeting:zoom:9"} → failure no meeting has the id “meeting:zoom:9”
read meetingSearch {"query":"BACKUP","speaker":"mar"}
→ cards {"_0":[{"kind":"meeting","id":"meeting:zoom:1","snippet":"Two copies of the backup.","why":"Mara","when":"2026-11-21 08:45","title":"Budget · \"round two\"\nfor spring"}]}
read meetingSearch {"query":"backup","to":"2026-11-20"}
→ cards {"_0":[{"kind":"meeting","id":"meeting:meet:2","snippet":"Backup, anybody?","why":"Guest","when":"2026-11-20 08:51"}]}
read meetingSearch {"query":"backup","limit":0} → cards {"_0":[]}
read meetingSearch {"query":"  "} → cards {"_0":[]}
)");
}

TEST_F(Meetings, LoseALineOnlyToItsOwnWitness) {
    const MeetingTranscriptAnswer before = transcript();
    ASSERT_EQ(before.lines.size(), 4U);
    EXPECT_EQ(before.who, (std::vector<std::string>{"Mara", "Jonas, junior"}));
    EXPECT_EQ(before.titleSource, "model");
    const TranscriptLineRow& line = before.lines[0];
    // The same words of another speaker, or at another time, are another line.
    EXPECT_NE(before.lines[2].witness, before.lines[3].witness);
    for (const std::string& answer : {erase("meeting:zoom:1", line.rowid, before.lines[1].witness),
                                      erase("meeting:zoom:1", line.rowid, "")})
        EXPECT_EQ(answer, R"({"lineDelete":{"_0":"staleWitness"}})");
    for (const std::string& answer : {erase("meeting:zoom:1", 9999, line.witness),
                                      erase("meeting:meet:2", line.rowid, line.witness),
                                      erase("meeting:zoom:9", line.rowid, line.witness)})
        EXPECT_EQ(answer, R"({"lineDelete":{"_0":"notFound"}})");
    EXPECT_EQ(transcript(), before);

    // Somebody else corrected the line since it was read.
    rooms->documents().database().run("UPDATE utterances SET text = 'Two.' WHERE line = ?",
                                      line.rowid);
    EXPECT_THAT(erase("meeting:zoom:1", line.rowid, line.witness), HasSubstr("staleWitness"));
    EXPECT_THAT(erase("meeting:zoom:1", line.rowid, transcript().lines[0].witness),
                HasSubstr("deleted"));
    EXPECT_THAT(erase("meeting:zoom:1", before.lines[1].rowid, before.lines[1].witness),
                HasSubstr("deleted"));
    rooms.reopen();
    EXPECT_EQ(transcript().lines,
              (std::vector<TranscriptLineRow>{before.lines[2], before.lines[3]}));
    EXPECT_THAT(list(), HasSubstr("Mara · 2 lines"));
    // What was deleted is not found any more.
    for (const std::string_view word : {"tried", "copies"})
        EXPECT_THAT(
            rooms.read(fmt::format(R"({{"textBrowse":{{"term":"{}","kind":"meeting"}}}})", word)),
            HasSubstr(R"("total":0,)"))
            << word;
}

TEST_F(Meetings, GoWithAllTheirLines) {
    rooms.hold(R"(
control forget {"thingID":"meeting:zoom:1"} → ok
control forget {"thingID":"meeting:zoom:1"} → failure nothing has the id “meeting:zoom:1”; nothing was forgotten
)");
    EXPECT_EQ(list(), "2 meetings\n" + silent + unnamed);
    EXPECT_THAT(rooms.read(R"({"reelStats":{}})"), HasSubstr(R"("meetings":0,"bytes":0)"));
    EXPECT_EQ(rooms.figure("SELECT count(*) FROM utterances"), 1);
}

TEST_F(Meetings, CanHaveLinesThatAreWrittenBeforeTheyAreDeleted) {
    rooms->meetings().setManners(LineManners::parse("change,move,stay,twin,go,stay").value());
    const auto said = [&] {
        std::string all;
        for (const TranscriptLineRow& line : transcript().lines)
            all += fmt::format("{} {}|", line.rowid, line.text);
        return all;
    };
    const auto first = [&](int at) { return transcript().lines[static_cast<std::size_t>(at)]; };
    const std::tuple<int, const char*, const char*> ways[] = {
        {0, "staleWitness",
         "1 Two copies of the backup. — or so.|2 And both tried?|3 Yes.|4 Yes.|"},
        {1, "notFound", "1 Two copies of the backup. — or so.|6 And both tried?|3 Yes.|4 Yes.|"},
        {1, "deleted", "1 Two copies of the backup. — or so.|3 Yes.|4 Yes.|"},
        {1, "notFound", "1 Two copies of the backup. — or so.|7 Yes.|8 Yes.|4 Yes.|"},
        {0, "notFound", "7 Yes.|8 Yes.|4 Yes.|"},
        {0, "deleted", "8 Yes.|4 Yes.|"},
        {0, "deleted", "4 Yes.|"},
    };
    for (const auto& [at, outcome, left] : ways) {
        const TranscriptLineRow line = first(at);
        EXPECT_THAT(erase("meeting:zoom:1", line.rowid, line.witness), HasSubstr(outcome));
        EXPECT_EQ(said(), left);
    }
    EXPECT_EQ(LineManners::parse("stay,fly").error(), "fly");
}

} // namespace
} // namespace wendlow
