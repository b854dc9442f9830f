#include "Floor/EditorTranscriptTool.h"
#include "Meetings/EditorLineEraser.h"
#include "Meetings/MeetingLabels.h"
#include "Meetings/TranscriptLines.h"
#include "Support/ScriptedStore.h"

#include <QAbstractItemModelTester>

#include <gmock/gmock.h>

namespace wendlow::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Line = EditorTranscript::Line;
namespace Case = EditorLineEraseCase;
namespace Delete = EditorLineDeleteCase;

Line line(std::int64_t id, const char* text, const char* speaker = "Mara", double at = 1.5) {
    return {.id = id,
            .speaker = speaker,
            .text = text,
            .witness = std::string(speaker) + "/" + text + "@" + std::to_string(id),
            .at = at};
}

EditorTranscript transcript(std::vector<Line> lines) {
    return {.id = "m", .lines = std::move(lines)};
}

QCoro::Task<> keep(ScriptedMeetings& meetings, Line erased,
                   std::optional<EditorLineEraseResult>& result) {
    result = co_await EditorLineEraser::erase(std::move(erased), "m", meetings);
}

TEST(EditorLineEraser, deletesTheLineThatWasMeantAndNoOther) {
    const Delete::Refused refused;
    const auto seen = line(5, "Yes");
    const std::string first = "m: 5 Mara/Yes@5";
    const auto here = [](std::vector<Line> lines) { return transcript(std::move(lines)); };
    struct Row {
        const char* what;
        std::vector<EditorLineDelete> deletes;
        std::optional<EditorTranscriptResult> fresh;
        EditorLineEraseResult result;
        std::vector<std::string> asked;
    };
    const auto moved = here({line(5, "No"), line(8, "Yes")});
    const Row rows[] = {
        {"at once", {Delete::Deleted{here({})}}, {}, Case::Erased{here({})}, {first}},
        {"unread", {Delete::Deleted{}}, {}, Case::Erased{}, {first}},
        {"gone daemon", {Delete::Failed{"gone"}}, {}, Case::Failed{"gone"}, {first}},
        {"unreadable", {refused}, std::unexpected("late"), Case::Failed{"late"}, {first, "m"}},
        {"moved",
         {refused, Delete::Deleted{here({line(5, "No")})}},
         moved,
         Case::Erased{here({line(5, "No")})},
         {first, "m", "m: 8 Mara/Yes@8"}},
        {"moved, then gone",
         {refused, Delete::Failed{"gone"}},
         moved,
         Case::Failed{"gone"},
         {first, "m", "m: 8 Mara/Yes@8"}},
        {"moves on",
         {refused, refused},
         moved,
         Case::Stuck{moved},
         {first, "m", "m: 8 Mara/Yes@8"}},
        {"twins, one of them in its row",
         {refused},
         here({line(5, "Yes"), line(6, "Yes")}),
         Case::Stuck{here({line(5, "Yes"), line(6, "Yes")})},
         {first, "m"}},
        {"other words",
         {refused},
         here({line(5, "Yes!")}),
         Case::Changed{here({line(5, "Yes!")})},
         {first, "m"}},
        {"another speaker",
         {refused},
         here({line(5, "Yes", "Jonas")}),
         Case::Changed{here({line(5, "Yes", "Jonas")})},
         {first, "m"}},
        {"another time",
         {refused},
         here({line(5, "Yes", "Mara", 1.5000000001)}),
         Case::Changed{here({line(5, "Yes", "Mara", 1.5000000001)})},
         {first, "m"}},
        {"gone, and its like at another time",
         {refused},
         here({line(6, "Yes", "Mara", 2)}),
         Case::Unchanged{here({line(6, "Yes", "Mara", 2)})},
         {first, "m"}},
        {"nobody ever spoke", {refused}, here({}), Case::Unchanged{here({})}, {first, "m"}},
    };
    for (const Row& row : rows) {
        ScriptedMeetings meetings;
        std::optional<EditorLineEraseResult> result;
        [[maybe_unused]] const auto task = keep(meetings, seen, result);
        meetings.answerDelete(row.deletes.front());
        if (row.fresh)
            meetings.answer(*row.fresh);
        if (row.deletes.size() > 1)
            meetings.answerDelete(row.deletes.back());
        EXPECT_EQ(result, row.result) << row.what;
        EXPECT_EQ(meetings.asked, row.asked) << row.what;
    }
}

TEST(TranscriptLines, takeOverWhatHasChangedAndMoveNothingElse) {
    const auto a = line(1, "a"), b = line(2, "b"), c = line(3, "c"), d = line(4, "d");
    struct Row {
        std::vector<Line> before, now;
        std::vector<std::string> changes;
    };
    const Row rows[] = {
        {{a, b, c}, {a, c}, {"- 1 1"}},
        {{a, b, c, d}, {b}, {"- 2 3", "- 0 0"}},
        {{a, c}, {a, b, c, d}, {"+ 1 1", "+ 3 3"}},
        {{a, b}, {c, b}, {"- 0 0", "+ 0 0"}},
        {{a, b, c}, {a, line(2, "B"), c}, {"* 1 1"}},
        {{a, b}, {a, b}, {}},
        {{a, b}, {b, a}, {"reset"}},
        {{a, a, b}, {a, b}, {"reset"}},
        {{}, {a}, {"+ 0 0"}},
        {{a}, {}, {"- 0 0"}},
    };
    for (const Row& row : rows) {
        TranscriptLines lines(nullptr);
        const QAbstractItemModelTester tester(&lines);
        lines.open(row.before);
        std::vector<std::string> changes;
        const auto note = [&changes](const char* sign) {
            return [&changes, sign](const QModelIndex&, int first, int last) {
                changes.push_back(std::string(sign) + " " + std::to_string(first) + " " +
                                  std::to_string(last));
            };
        };
        QObject::connect(&lines, &QAbstractItemModel::rowsRemoved, note("-"));
        QObject::connect(&lines, &QAbstractItemModel::rowsInserted, note("+"));
        QObject::connect(&lines, &QAbstractItemModel::dataChanged,
                         [&](const QModelIndex& first, const QModelIndex& last) {
                             note("*")({}, first.row(), last.row());
                         });
        QObject::connect(&lines, &QAbstractItemModel::modelReset,
                         [&] { changes.emplace_back("reset"); });
        lines.refresh(row.now);
        EXPECT_EQ(changes, row.changes);
        std::vector<Line> shown;
        for (int at = 0; at < lines.rowCount(); ++at)
            shown.push_back(lines.line(at));
        EXPECT_EQ(shown, row.now);
    }
}

TEST(MeetingLabels, leaveOutWhatIsNotKnown) {
    using Meeting = EditorMeeting;
    const std::pair<Meeting, const char*> spans[] = {
        {{.id = "", .day = "Tue", .from = "10:02", .to = "10:47", .duration = "45m"},
         "Tue · 10:02–10:47 · 45m"},
        {{.id = "", .day = "Tue", .to = "10:47", .duration = "45m"}, "Tue · 10:47 · 45m"},
        {{.id = "", .from = "10:02"}, "10:02"},
        {{.id = "", .day = "Tue", .duration = "45m"}, "Tue · 45m"},
        {{.id = ""}, ""},
    };
    for (const auto& [meeting, words] : spans)
        EXPECT_EQ(MeetingLabels::span(meeting), words);
    EXPECT_EQ(MeetingLabels::who({"Mara", "Jonas"}), "Mara, Jonas");
    EXPECT_EQ(MeetingLabels::who({}), "no named speakers");
    EXPECT_EQ(MeetingLabels::title({.id = "meeting:zoom:1"}), "zoom");
}

TEST(EditorTranscriptTool, knowsToolsInAnyCase) {
    const std::pair<const char*, const char*> names[] = {
        {"claude", "Claude Code"}, {"CLAUDE", "Claude Code"},      {"Claude-Code", "Claude Code"},
        {"codex", "Codex"},        {"OpenCode", "opencode"},       {"github-copilot", "Copilot"},
        {"myTool", "MyTool"},      {"e\u0301tude", "E\u0301tude"}, {"", ""}};
    for (const auto& [raw, name] : names)
        EXPECT_EQ(EditorTranscriptTool::name(raw), name);
}

} // namespace
} // namespace wendlow::testing
