#include "Support/OnADesktop.h"

#include <QJsonArray>

#include <gmock/gmock.h>

namespace wendlow::testing {
namespace {

using namespace Qt::StringLiterals;

const QString changedSince =
    u"This line changed since you loaded the meeting, so nothing was deleted. The words shown now are the current ones — delete again if you still want them gone."_s;
const QString stillMoving =
    u"That line moved while it was on screen, and it is still moving. Close the meeting and open it again, then try once more."_s;

/// Meetings and mods in the real window, held against what the gateway holds.
class Ledger : public OnADesktop {
protected:
    void open(const QString& face) {
        application.emplace(desktop, QStringList{u"--window=editor"_s});
        ASSERT_TRUE(window()) << application->errors().toStdString();
        ASSERT_TRUE(eventually([&] { return window()->isActive(); }));
        press(face);
        desktop.press({u"Tab"_s, u"Right"_s});
    }
    std::optional<Accessible> window() const { return application->window(u"Memories"_s); }
    /// The id of the newest meeting.
    QString newest() const {
        const QString list =
            gateway.ask(R"({"read":{"_0":{"meetingList":{}}}})")["_0"_L1].toString();
        return list.section(u"\n- "_s, 1, 1).section(u" · "_s, 0, 0);
    }
    QJsonArray lines(const QString& meeting) const {
        const auto transcript = gateway.ask(R"({"read":{"_0":{"meetingTranscript":{"id":")" +
                                            meeting.toStdString() + R"("}}}})");
        return transcript["_0"_L1]["lines"_L1].toArray();
    }
    static QString line(const QJsonValue& of) {
        return of["speaker"_L1].toString() + u": "_s + of["text"_L1].toString();
    }
    /// By Tab to the first line, which Return deletes.
    void deleteFirst() const { desktop.press({u"Home"_s, u"Tab"_s, u"Return"_s}); }
    QString rail(const QString& verb, const QString& face) const {
        const auto count =
            verb == u"modBoard"
                ? gateway.ask(R"({"read":{"_0":{"modBoard":{}}}})")["_0"_L1]["mods"_L1]
                      .toArray()
                      .size()
                : gateway.ask(R"({"read":{"_0":{"meetingList":{}}}})")["_0"_L1].toString().count(
                      u"\n- "_s);
        return u"%1, %2"_s.arg(face).arg(count);
    }
};

TEST_F(Ledger, DeletesALineForGoodAndNoOther) {
    gateway.start();
    const QString meeting = newest();
    QJsonArray before = lines(meeting);
    ASSERT_GT(before.size(), 3);
    open(rail(u"meetingList"_s, u"Meetings"_s));
    desktop.press({u"Home"_s, u"Return"_s});
    ASSERT_TRUE(is("list item", line(before[0])));
    EXPECT_THAT(nameless(u"Memories"_s), ::testing::IsEmpty());
    // What lies behind hears nothing.
    desktop.press({u"b"_s, u"ctrl+f"_s, u"Down"_s, u"Right"_s});
    ASSERT_TRUE(is("list item", line(before[0])));
    deleteFirst();
    EXPECT_TRUE(eventually([&] { return lines(meeting).size() + 1 == before.size(); }));
    before.removeFirst();
    EXPECT_EQ(lines(meeting), before);
    // The list has counted again, and the keys are in it.
    desktop.press({u"Escape"_s});
    const auto counted = [&](const Accessible& row) {
        return row.description().endsWith(u", %1 lines"_s.arg(before.size())) && row.isFocused();
    };
    EXPECT_TRUE(eventually([&] { return window()->find(counted).has_value(); }));
    const auto isLine = [&](const Accessible& row) { return row.name() == line(before[0]); };
    EXPECT_TRUE(eventually([&] { return !window()->find(isLine); }));
    desktop.press({u"Return"_s});
    EXPECT_TRUE(is("list item", line(before[0])));
}

TEST_F(Ledger, SaysWhatADeleteHasComeTo) {
    struct {
        const char* ways;
        QString says;
        int gone;
    } const rows[] = {{"change,stay", changedSince, 0},
                      {"move,move,stay", stillMoving, 0},
                      {"move,stay", {}, 1},
                      {"go,stay", {}, 1},
                      // Last, for the twins stay.
                      {"twin,stay", stillMoving, 0}};
    for (const auto& [ways, words, gone] : rows) {
        gateway.startWith({"--lines", ways});
        const QString meeting = newest();
        const QJsonArray before = lines(meeting);
        open(rail(u"meetingList"_s, u"Meetings"_s));
        desktop.press({u"Home"_s, u"Return"_s});
        ASSERT_TRUE(is("list item", line(before[0]))) << ways;
        deleteFirst();
        if (!words.isEmpty()) {
            EXPECT_TRUE(says(words)) << ways;
        }
        if (gone > 0) {
            EXPECT_TRUE(is("list item", line(before[1])));
            EXPECT_TRUE(eventually([&] { return lines(meeting).size() + gone == before.size(); }));
        } else {
            EXPECT_GE(lines(meeting).size(), before.size()) << "nothing is deleted by guess";
        }
        application.reset();
    }
}

TEST_F(Ledger, KeepsTheTranscriptWhereTheDaemonGoesInADelete) {
    gateway.start();
    const QString meeting = newest();
    const QJsonArray before = lines(meeting);
    open(rail(u"meetingList"_s, u"Meetings"_s));
    desktop.press({u"Home"_s, u"Return"_s});
    ASSERT_TRUE(is("list item", line(before[0])));
    gateway.wedge();
    deleteFirst();
    gateway.kill();
    EXPECT_TRUE(says(u"Wendlow isn't running — start it to access your memory."_s));
    EXPECT_TRUE(is("list item", line(before[0])));
    gateway.start();
    EXPECT_EQ(lines(meeting), before);
    desktop.press({u"Return"_s});
    EXPECT_TRUE(eventually([&] { return lines(meeting).size() + 1 == before.size(); }));
}

TEST_F(Ledger, ShowsEveryOutcomeAndOpensAReport) {
    gateway.startWith({"--mods", "every-outcome"});
    open(rail(u"modBoard"_s, u"Mods"_s));
    EXPECT_TRUE(is("heading", u"Mods"_s));
    const QJsonValue board = gateway.ask(R"({"read":{"_0":{"modBoard":{}}}})")["_0"_L1];
    const QString slug = board["mods"_L1][0]["slug"_L1].toString();
    EXPECT_TRUE(is("list item", slug));
    EXPECT_THAT(nameless(u"Memories"_s), ::testing::IsEmpty());
    QStringList told;
    const auto walk = [&] {
        for (const Accessible& each :
             window()->all([](const Accessible& thing) { return !thing.description().isEmpty(); }))
            told.append(each.description());
        return told.join(u'\n');
    };
    EXPECT_TRUE(eventually([&] { return walk().contains(u"waiting for the tide"_s); }));
    for (const char* const words :
         {"ok, 7 turns", "failed", "hit the turn cap", "stopped — too many changes", "timed out",
          "no runner binary", "refused — no verified backup", "refused — tool not granted",
          "sign-in needed", "skipped — no runner", "skipped — runner not consented"})
        EXPECT_TRUE(told.join(u'\n').contains(QString::fromUtf8(words))) << words;
    // To the first run: past the head, the files and what the mod does.
    const auto files = board["mods"_L1][0]["files"_L1].toArray().size();
    const auto does = board["mods"_L1][0]["behaviors"_L1].toArray().size();
    desktop.press(QStringList(files + does + 1, u"Down"_s) + QStringList{u"Return"_s});
    EXPECT_TRUE(says(u"Report shown in part — the full run is in its banked transcript."_s));
    EXPECT_TRUE(says(u"1s · 7 turns · 2 store changes in its window"_s));
    EXPECT_THAT(nameless(u"Memories"_s), ::testing::IsEmpty());
    desktop.press({u"Tab"_s, u"Return"_s, u"End"_s});
    EXPECT_TRUE(is("heading", u"Runs of mods no longer installed"_s));
}

} // namespace
} // namespace wendlow::testing
