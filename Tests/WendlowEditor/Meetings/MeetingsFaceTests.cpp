#include "Meetings/MeetingsFaceModel.h"
#include "Support/ScriptedStore.h"

#include <QAbstractItemModelTester>

#include <gmock/gmock.h>

namespace wendlow::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
namespace Delete = EditorLineDeleteCase;

constexpr const char* changedSince =
    "This line changed since you loaded the meeting, so nothing was deleted. The words shown now "
    "are the current ones — delete again if you still want them gone.";
constexpr const char* stillMoving =
    "That line moved while it was on screen, and it is still moving. Close the meeting and open it "
    "again, then try once more.";

/// The words of a meeting, a row each, numbered from 1.
EditorTranscript said(std::vector<std::string> texts, std::int64_t firstRow = 1) {
    EditorTranscript transcript{.id = "m1"};
    for (std::string& text : texts)
        transcript.lines.push_back({.id = firstRow++,
                                    .speaker = "Mara",
                                    .text = std::move(text),
                                    .witness = "w",
                                    .at = 1});
    return transcript;
}

/// The face over a store whose meetings the test gives.
struct Face {
    ScriptedMeetings meetings;
    EditorAnswer answer;
    MemoryDetails details;
    EditorAsk ask{.term = {}};
    std::optional<MeetingsFaceModel> made;
    MeetingsFaceModel& model;

    Face() : model(made.emplace(meetings)) {
        meetings.list.emplace();
        model.setOpen(true);
    }
    void read() {
        meetings.list = {
            {.id = "m1", .title = "Atlas", .day = "Tue", .speakers = {"Mara"}, .lines = 3},
            {.id = "meeting:zoom:2", .lines = 1}};
        meetings.count = 2;
        meetings.loaded = true;
        Q_EMIT meetings.changed();
    }
    void show() {
        model.show({.ask = ask,
                    .answer = std::make_shared<const EditorAnswer>(answer),
                    .counted = false,
                    .generation = 0,
                    .details = details});
    }
    /// Opens the first meeting, which says this.
    void open(std::vector<std::string> texts) {
        read();
        model.openMeeting(0);
        meetings.answer(said(std::move(texts)));
    }
    std::vector<std::string> lines() {
        std::vector<std::string> all;
        for (int row = 0; row < model.lines()->rowCount(); ++row) {
            const auto told = [&](int role) { return model.lines()->index(row).data(role); };
            all.push_back(told(TranscriptLines::WordsRole).toString().toStdString() +
                          (told(TranscriptLines::ErasingRole).toBool() ? " (going)" : ""));
        }
        return all;
    }
    std::string error() { return model.transcriptError().toStdString(); }
};
struct MeetingsFace : ::testing::Test, Face {
    QAbstractItemModelTester rowsTester{model.rows()};
    QAbstractItemModelTester linesTester{model.lines()};
};

TEST_F(MeetingsFace, listsTheMeetingsOrSaysWhyNot) {
    Q_EMIT meetings.changed();
    EXPECT_EQ(model.countLine(), u"Reading your meetings…");
    EXPECT_EQ(model.emptyWords(), u"Reading your meetings…");
    EXPECT_TRUE(model.isReading());
    EXPECT_FALSE(model.isFilled());
    answer.state = EditorAnswerStateCase::Failed{"asleep"};
    show();
    EXPECT_EQ(model.trouble(), u"asleep") << "a store that has given up reads none";
    meetings.error = "no list";
    Q_EMIT meetings.changed();
    EXPECT_EQ(model.trouble(), u"no list");
    EXPECT_EQ(model.countLine() + model.emptyWords(), u"") << "not known, and not being read";
    meetings.error.reset();
    meetings.loaded = true;
    Q_EMIT meetings.changed();
    EXPECT_EQ(model.countLine(), u"0 meetings");
    EXPECT_EQ(model.emptyWords(), u"No meetings recorded yet.");
    read();
    EXPECT_EQ(model.countLine(), u"2 meetings");
    EXPECT_EQ(model.emptyWords() + model.trouble(), u"");
    const auto told = [&](int row, int role) {
        return model.rows()->index(row).data(role).toString();
    };
    EXPECT_EQ(told(0, MeetingRows::TitleRole), u"Atlas");
    EXPECT_EQ(told(0, MeetingRows::UnderRole), u"Tue · Mara");
    EXPECT_EQ(told(0, MeetingRows::CountRole), u"3 lines");
    EXPECT_EQ(told(1, MeetingRows::TitleRole), u"zoom");
    EXPECT_EQ(told(1, MeetingRows::UnderRole), u"no named speakers");
    // Being read anew it stays, and what it could not be read for is told beside it.
    meetings.loaded = false;
    meetings.error = "late";
    Q_EMIT meetings.changed();
    EXPECT_EQ(model.countLine(), u"2 meetings");
    EXPECT_EQ(model.trouble(), u"late");
    meetings.list->resize(1);
    Q_EMIT meetings.changed();
    EXPECT_EQ(model.countLine(), u"1 meeting");
    meetings.list.reset();
    meetings.error.reset();
    Q_EMIT meetings.changed();
    EXPECT_EQ(model.countLine(), u"");
    answer.state = EditorAnswerStateCase::Settled{};
    show();
    EXPECT_EQ(model.emptyWords(), u"This surface isn’t wired to your real data yet.");
    model.appear(ask);
    EXPECT_EQ(meetings.loads, 1);
}

TEST_F(MeetingsFace, readsTheMeetingThatIsOpenAndDropsTheOthers) {
    read();
    model.openMeeting(7);
    EXPECT_FALSE(model.isModal());
    model.openMeeting(0);
    EXPECT_TRUE(model.isModal());
    EXPECT_EQ(model.openTitle(), u"Atlas");
    EXPECT_EQ(model.openSpan() + model.openWho(), u"TueMara");
    EXPECT_EQ(model.transcriptWords(), u"Reading the transcript…");
    EXPECT_TRUE(model.back());
    EXPECT_FALSE(model.isModal());
    EXPECT_FALSE(model.back());
    model.openMeeting(1);
    meetings.answer(said({"of the one that was closed"}));
    EXPECT_TRUE(model.isReadingTranscript());
    EXPECT_THAT(lines(), IsEmpty());
    meetings.answer(EditorTranscript{.id = "meeting:zoom:2"});
    EXPECT_EQ(model.transcriptWords(), u"No words were recorded for this meeting.");
    EXPECT_FALSE(model.isReadingTranscript());
    model.openMeeting(0);
    meetings.answer(std::unexpected("no such door"));
    EXPECT_EQ(error(), "no such door");
    EXPECT_EQ(model.transcriptWords(), u"");
    model.openMeeting(0);
    EXPECT_EQ(error(), "");
    model.leave(ask);
    EXPECT_FALSE(model.isModal());
    EXPECT_THAT(meetings.asked, ElementsAre("m1", "meeting:zoom:2", "m1", "m1"));
    // The face may go while the transcript is read.
    made.reset();
    meetings.answer(said({}));
}

TEST_F(MeetingsFace, showsWhatADeleteHasComeTo) {
    using Lines = std::vector<std::string>;
    struct Row {
        const char* what;
        EditorLineDelete deleted;
        std::optional<EditorTranscriptResult> fresh;
        Lines lines;
        std::string error;
    };
    const Delete::Refused refused;
    const Row rows[] = {
        {"erased", Delete::Deleted{said({"a", "c"})}, {}, {"a", "c"}, ""},
        {"erased, unread", Delete::Deleted{}, {}, {"a", "c"}, ""},
        {"unchanged", refused, said({"a"}), {"a"}, ""},
        {"changed", refused, said({"a", "B", "c"}), {"a", "B", "c"}, changedSince},
        {"stuck", refused, said({"b", "b"}), {"b", "b"}, stillMoving},
        {"failed", Delete::Failed{"gone"}, {}, {"a", "b", "c"}, "gone"},
    };
    for (const Row& row : rows) {
        Face face;
        face.open({"a", "b", "c"});
        face.model.eraseLine(1);
        EXPECT_THAT(face.lines(), ElementsAre("a", "b (going)", "c"));
        face.model.eraseLine(1);
        EXPECT_EQ(face.meetings.asked.size(), 2U) << "a second click does nothing";
        face.meetings.answerDelete(row.deleted);
        if (row.fresh)
            face.meetings.answer(*row.fresh);
        EXPECT_EQ(face.lines(), row.lines) << row.what;
        EXPECT_EQ(face.error(), row.error) << row.what;
        // The next click clears what the last one has come to.
        face.model.eraseLine(0);
        EXPECT_EQ(face.error(), "");
    }
}

TEST_F(MeetingsFace, deletesOneLineAfterTheOther) {
    open({"a", "b", "c"});
    model.eraseLine(2);
    model.eraseLine(0);
    EXPECT_THAT(lines(), ElementsAre("a (going)", "b", "c (going)"));
    EXPECT_THAT(meetings.asked, ElementsAre("m1", "m1: 3 w"));
    meetings.answerDelete(Delete::Deleted{said({"a", "b"})});
    EXPECT_THAT(lines(), ElementsAre("a (going)", "b"));
    EXPECT_EQ(meetings.asked.back(), "m1: 1 w");
    meetings.answerDelete(Delete::Failed{"gone"});
    EXPECT_THAT(lines(), ElementsAre("a", "b"));
    EXPECT_EQ(error(), "gone");
    // What waits is deleted as it was seen, whatever stands in its row by then.
    model.eraseLine(0);
    model.eraseLine(1);
    meetings.answerDelete(Delete::Deleted{said({"other words"}, 2)});
    EXPECT_EQ(meetings.asked.back(), "m1: 2 w");
    meetings.answerDelete(Delete::Refused{});
    meetings.answer(said({"other words"}, 2));
    EXPECT_THAT(lines(), ElementsAre("other words"));
    EXPECT_EQ(error(), changedSince);
}

TEST_F(MeetingsFace, carriesOutADeleteWhoseMeetingIsClosed) {
    open({"a", "b", "c"});
    model.eraseLine(0);
    model.eraseLine(1);
    model.dismiss();
    model.openMeeting(1);
    meetings.answer(said({"x"}));
    EXPECT_THAT(lines(), ElementsAre("x")) << "of rows with the same number none is going";
    meetings.answerDelete(Delete::Refused{});
    meetings.answer(said({"A"}));
    EXPECT_THAT(lines(), ElementsAre("x"));
    EXPECT_EQ(error(), "");
    EXPECT_EQ(meetings.asked.back(), "m1: 2 w") << "the second one has its turn";
    // Opened again before it is done, the meeting shows it.
    model.openMeeting(0);
    meetings.answer(said({"a", "b"}));
    EXPECT_THAT(lines(), ElementsAre("a", "b (going)"));
    meetings.answerDelete(Delete::Deleted{});
    EXPECT_THAT(lines(), ElementsAre("a"));
    // The face may go with a delete under way.
    model.eraseLine(0);
    made.reset();
    meetings.answerDelete(Delete::Refused{});
    meetings.answer(said({}));
}

TEST_F(MeetingsFace, bringsTheMeetingThatWasFoundIntoSight) {
    std::vector<int> revealed;
    QObject::connect(&model, &MeetingsFaceModel::revealed,
                     [&](int row) { revealed.push_back(row); });
    FoundHit found;
    found.hit.destination = SearchDestination::Meeting{"meeting:zoom:2"};
    model.reveal(found, ask);
    EXPECT_THAT(revealed, IsEmpty()) << "the list is still to come";
    read();
    Q_EMIT meetings.changed();
    EXPECT_THAT(revealed, ElementsAre(1));
}

} // namespace
} // namespace wendlow::testing
