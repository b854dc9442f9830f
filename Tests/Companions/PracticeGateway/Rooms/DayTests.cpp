#include "TemporaryRooms.h"

#include "DayManner.h"
#include "LedgerFigures.h"

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using testing::TemporaryRooms;

constexpr double morning = 1'795'248'000; // 2026-11-21 08:00 UTC

struct Piece {
    double from; ///< in minutes after 8:00
    double to;
    std::string app;
    bool attended = true;
    Attention attention = Attention::work;
    std::optional<std::string> site = std::nullopt;
};

std::vector<Activity> pieces(std::initializer_list<Piece> list) {
    std::vector<Activity> activities;
    for (const Piece& piece : list)
        activities.push_back({.day = "2026-11-21",
                              .start = morning + piece.from * 60,
                              .end = morning + piece.to * 60,
                              .app = piece.app,
                              .isBrowser = piece.site.has_value(),
                              .attended = piece.attended,
                              .attention = piece.attention,
                              .site = piece.site,
                              .chapter = 1});
    return activities;
}

TEST(LedgerFigures, CountOverlapsOnceAndBreakRunsAtGaps) {
    std::vector<Activity> spread; // six runs, of which five are shown
    for (double from = 0; from <= 100; from += 20)
        spread.push_back(pieces({{from, from + 12, "A"}}).front());
    const struct {
        std::vector<Activity> activities;
        std::int64_t covered;
        std::vector<std::int64_t> focus; ///< minutes
        std::int64_t runs;
        std::int64_t sitting;
    } rows[] = {
        {{}, 0, {}, 0, 0},
        {pieces({{0, 10, "A"}}), 10, {10}, 1, 10},
        {pieces({{0, 9, "A"}}), 9, {}, 0, 9},
        {pieces({{0, 10, "A"}, {12, 20, "B"}}), 18, {20}, 1, 20},
        {pieces({{0, 10, "A"}, {13, 30, "B"}}), 27, {17, 10}, 2, 30},
        {pieces({{0, 10, "A"}, {25.1, 40, "B"}}), 24, {14, 10}, 2, 14},
        {pieces({{0, 30, "A"}, {5, 10, "B"}, {20, 40, "C"}}), 40, {40}, 1, 40},
        // What an AI did alone is no focus of anybody.
        {pieces({{0, 60, "A", false}, {10, 25, "B"}}), 60, {15}, 1, 15},
        {spread, 72, {12, 12, 12, 12, 12}, 6, 112},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(&row - rows);
        EXPECT_EQ(LedgerFigures::covered(row.activities) / 60, row.covered);
        const DayStretchReport report = LedgerFigures::stretches("2026-11-21", row.activities);
        std::vector<std::int64_t> focus;
        for (const auto& run : report.focus)
            focus.push_back(run.seconds / 60);
        EXPECT_EQ(focus, row.focus);
        EXPECT_EQ(report.runCount, row.runs);
        EXPECT_EQ(report.sitting.value_or(DayStretchSitting{}).seconds / 60, row.sitting);
    }
}

TEST(DayRoom, AnswersOfOneDay) {
    ::setenv("TZ", "UTC", 1);
    TemporaryRooms rooms;
    {
        ActivityLedger ledger(rooms->documents().database());
        ledger.put(Chapter{1, "2026-11-21", "The index", morning, morning + 3600});
        for (const Activity& activity :
             pieces({{0, 20, "Cursor", true, Attention::ai},
                     {20, 30, "Safari", true, Attention::work, "sqlite.org"},
                     {20, 50, "Cursor", false, Attention::ai},
                     {30, 31, "Safari", true, Attention::scrolling, "reddit.com"},
                     {31, 60, "Mail", true, Attention::humans}}))
            ledger.put(activity);
        Activity before = pieces({{-1440, -1430, "Mail"}}).front();
        before.day = "2026-11-20";
        ledger.put(before);
    }
    rooms.hold(R"(
read dayAttention {"day":"2026-11-21"}
→ attention {"_0":{"day":"2026-11-21","aiSeconds":1200,"humansSeconds":1740,"scrollingSeconds":60,"scrollingGlances":1}}
read dayWeb {"day":"2026-11-21"}
→ web {"_0":{"day":"2026-11-21","browserSeconds":660,"sites":[{"domain":"sqlite.org","seconds":600},{"domain":"reddit.com","seconds":60}]}}
read dayTopSessions {"day":"2026-11-21"}
→ topSessions {"_0":{"day":"2026-11-21","sessions":[{"title":"The index","seconds":5400,"chapterId":"c1"}]}}
read dayLongestChapter {"day":"2026-11-21"} → longestChapter {"_0":{"title":"The index","spanSeconds":3600}}
read getDay {"day":"2026-11-21"} → text - 08:00–09:00 · The index · c1\n
read dayPresence {"day":"2026-11-21","app":"Cursor"}
→ presence {"_0":{"day":"2026-11-21","apps":[{"app":"Cursor","attended":1200,"unattended":1800,"active":3000,"isBrowser":false,"intervals":[{"start":1795248000,"end":1795249200,"kind":"attended"},{"start":1795249200,"end":1795251000,"kind":"unattended"}]}],"active":3000},"app":"Cursor"}
read spanHours {"from":"2026-11-15","to":"2026-11-21"}
→ spanHours {"_0":{"from":"2026-11-15","to":"2026-11-21","attended":4200,"unattended":1800,"active":4200,"apps":[{"app":"Cursor","attended":1200,"unattended":1800,"active":3000},{"app":"Mail","attended":2340,"unattended":0,"active":2340},{"app":"Safari","attended":660,"unattended":0,"active":660}],"days":[{"day":"2026-11-20","attended":600,"unattended":0},{"day":"2026-11-21","attended":3600,"unattended":1800}]}}
read dayLongestChapter {"day":"2026-11-01"} → longestChapter {}
read dayCard {"day":"2026-11-01"} → thing {}
read dayWeb {"day":"2026-02-30"} → failure “2026-02-30” is not a day; a day is written as 2026-11-21
read spanHours {"from":"2026-11-21","to":"today"} → failure “today” is not a day; a day is written as 2026-11-21
read tally {"span":"week","mode":"sites"} → text 2026-11-15 to 2026-11-21\n- sqlite.org: 10m\n- reddit.com: 1m\n
read tally {"span":"2026-11-20..2026-11-21","mode":"days","entity":"Mail"}
→ text 2026-11-20 to 2026-11-21\n- 2026-11-20: 10m\n- 2026-11-21: 29m\n
read tally {"span":"yesterday"} → text 2026-11-20 to 2026-11-20\n- Mail: 10m\n
read tally {"span":"week","mode":"moods"} → failure “moods” is no way to count hours; those are apps, sites and days
read coverage → text 2026-11-20 to 2026-11-21: something is known of 2 of 2 days, 1h 10m in all
)");
    EXPECT_THAT(rooms.read(R"({"allTime":{}})"),
                HasSubstr(R"("moments":0,"meetings":0,"days":2,"yourWorkSeconds":4200,)"
                          R"("aiWorkSeconds":1800,)"));
}

TEST(DaysGoOn, SoThatTodayIsNeverEmpty) {
    ::setenv("TZ", "UTC", 1);
    std::int64_t now = 0;
    TemporaryRooms rooms([&] {
        return [&now] { return std::chrono::system_clock::time_point(std::chrono::seconds(now)); };
    });
    const auto knownOf = [&](std::string_view days) {
        return rooms.figure(
            fmt::format("SELECT coalesce(sum(end - start), 0) FROM activities WHERE {}", days));
    };
    const auto open = [&](double minutesAfterMorning) {
        now = static_cast<std::int64_t>(morning + minutesAfterMorning * 60);
        rooms.reopen();
        rooms->passTime();
    };
    open(240);
    EXPECT_EQ(knownOf("true"), 0) << "nobody asked for days";
    constexpr double aDay = 1440;
    // From one opening to the next: an hour, a night, to a minute past midnight, over a week, to an
    // evening after work.
    for (const double minutes :
         {240.0, 300.0, 2 * aDay - 60, 3 * aDay + 961, 11 * aDay, 11 * aDay + 720}) {
        open(minutes);
        ASSERT_TRUE(rooms->fill(FillSize::day).has_value());
        EXPECT_GE(knownOf(fmt::format("day = date({}, 'unixepoch')", now)), 60) << minutes;
        EXPECT_EQ(knownOf(fmt::format("end > {}", now)), 0) << "the future is known";
    }
    EXPECT_EQ(rooms.figure("SELECT count(DISTINCT day) FROM activities WHERE day >= '2026-11-21'"),
              12);
    EXPECT_EQ(knownOf("chapter NOT IN (SELECT number FROM chapters)"), 0);

    const auto count = [&] { return rooms.figure("SELECT count(*) FROM activities"); };
    std::int64_t known = knownOf("true");
    const std::int64_t before = count();
    for (int look = 0; look < 60; ++look) {
        now += 30;
        rooms->passTime();
        EXPECT_GE(knownOf("true"), known + 30) << look;
        known = knownOf("true");
    }
    EXPECT_GE(count(), before + 2);
    EXPECT_LE(count(), before + 4) << "it does one thing for a while";
}

TEST(DayManner, MakesAnswersOdd) {
    const GatewayResponse good[] = {
        AnswerCase::Presence{{.day = {}, .apps = {{.app = "A", .active = 60, .intervals = {}}}}},
        AnswerCase::Web{{.day = {}, .browserSeconds = 60, .sites = {{"a.example", 60}}}},
        AnswerCase::Attention{{.day = {}, .aiSeconds = 60}},
        AnswerCase::Stretches{{.day = {}, .focus = {{.seconds = 60, .apps = {}}}}},
        AnswerCase::Icons{{{"a.example", {"picture"}}}},
        AnswerCase::Ok{}};
    const auto changed = [&](std::string_view words) {
        std::string all;
        for (GatewayResponse response : good) {
            DayManner::parse(words).value().change(response);
            all += WireCodec::encode(response).value();
        }
        return all;
    };
    const std::string usual = changed("no-pictures");
    EXPECT_THAT(usual, HasSubstr(R"("active":60,)"));
    EXPECT_THAT(usual, Not(HasSubstr("cGljdHVyZQ")));
    EXPECT_THAT(changed("no-times"), Not(HasSubstr("60")));
    EXPECT_THAT(changed("negative"), Not(HasSubstr(":60")));
    EXPECT_THAT(changed("negative"), HasSubstr(R"("browserSeconds":-60)"));
    EXPECT_THAT(changed("enormous"), HasSubstr(R"("aiSeconds":9223372036854775747)"));
    EXPECT_THAT(changed("many-apps,odd-names"),
                AllOf(HasSubstr("Program 999"), HasSubstr("Two Words")));
    EXPECT_EQ(DayManner::parse("no-times,moody").error(), "moody");
}

} // namespace
} // namespace wendlow
