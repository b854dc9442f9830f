#include "DateWords.h"
#include "Moments/HeldMoments.h"
#include "Moments/MomentLayout.h"
#include "Moments/MomentTextCard.h"
#include "Moments/MomentViewport.h"
#include "Moments/MomentWords.h"

#include <QTimeZone>

#include <gmock/gmock.h>

#include <fmt/format.h>
#include <random>

namespace wendlow::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

EditorMoment moment(int id, int day = 0) {
    return {.id = std::to_string(id), .at = EditorDate(std::chrono::hours(24 * day + 12))};
}

std::string ids(const EditorMoments& moments) {
    std::string all;
    for (const EditorMoment& one : moments)
        all += one.id + ' ';
    return all;
}

EditorMoments page(std::initializer_list<int> numbers) {
    EditorMoments moments;
    for (const int number : numbers)
        moments.push_back(moment(number));
    return moments;
}

TEST(HeldMoments, growOnlyAndKeepTheirPlaces) {
    const struct {
        std::vector<EditorMoments> answers;
        const char* held;
        std::size_t last;
    } cases[] = {
        {{page({1, 2}), page({1, 2, 3})}, "1 2 3 ", 1},
        {{page({1, 2}), page({9, 1, 2, 3})}, "1 2 9 3 ", 2},
        {{page({1, 2}), page({1})}, "1 2 ", 0},
        {{page({1, 2}), page({})}, "1 2 ", 0},
        {{page({1, 1, 2, 1}), page({1, 1, 2, 1, 3})}, "1 2 3 ", 1},
        {{page({1, 2}), page({5, 6}), page({1, 2, 3})}, "1 2 5 6 3 ", 1},
    };
    for (const auto& [answers, expected, last] : cases) {
        HeldMoments held;
        std::size_t come = 0;
        for (const EditorMoments& answer : answers)
            come = held.fold(answer);
        EXPECT_EQ(ids(held.moments()), expected);
        EXPECT_EQ(come, last) << expected;
    }
    // Pages that go on from one another are held as they are, and not copied.
    HeldMoments held;
    EditorMoments answer = page({1, 2});
    held.fold(answer);
    answer.push_back(moment(3));
    held.fold(answer);
    EXPECT_EQ(&held[2], &answer[2]);
    held.fold(answer.first(1));
    EXPECT_EQ(held.fold(answer), 0U);
    EXPECT_EQ(ids(held.moments()), "1 2 3 ") << "also behind a shorter page";
    answer.push_back(moment(2));
    answer.push_back(moment(4));
    EXPECT_EQ(held.fold(answer), 1U);
    EXPECT_EQ(ids(held.moments()), "1 2 3 4 ");
    answer.push_back(moment(5));
    held.fold(answer);
    EXPECT_EQ(ids(held.moments()), "1 2 3 4 5 ") << "also behind one that came twice";
}

TEST(MomentViewport, asksForPicturesInTheOrderHeld) {
    HeldMoments held;
    EditorMoments moments;
    for (const char* const id : {"7", "seed1", "-3", "9", "12345678901234567890", "11"})
        moments.push_back({.id = id, .framed = true});
    EditorMoment session{.id = "13"};
    session.framed = true;
    session.bundle = "one.tarnbeck.wendlow.transcript.codex";
    moments.push_back(session);
    held.fold(moments);
    MomentViewport viewport;
    EXPECT_THAT(viewport.keys(held), IsEmpty());
    for (const std::size_t place : {6U, 5U, 4U, 3U, 2U, 1U, 0U, 3U})
        viewport.appeared(place);
    EXPECT_THAT(viewport.keys(held), ElementsAre(7, -3, 9, 11));
    viewport.disappeared(2);
    viewport.disappeared(2);
    EXPECT_THAT(viewport.keys(held), ElementsAre(7, 9, 11));
}

/// Five days of 1 to 9 moments that come in no order of their days.
struct Layout {
    HeldMoments held;
    MomentLayout layout{
        [](const EditorMoment& one) { return one.at.time_since_epoch() / std::chrono::hours(24); }};

    explicit Layout(int columns, int count = 25) {
        std::mt19937 random(7);
        EditorMoments moments;
        for (int id = 0; id < count; ++id)
            moments.push_back(moment(id, 100 - static_cast<int>(random() % 5)));
        held.fold(moments);
        layout.measure({.columns = columns, .top = 86, .headHeight = 44});
        layout.add(held, 0);
    }
};

TEST(MomentLayout, placesEachMomentOnceAndFindsItAgain) {
    for (const int columns : {1, 3, 4}) {
        Layout made(columns);
        MomentLayout& layout = made.layout;
        // Page by page it comes out the same.
        MomentLayout paged([](const EditorMoment& one) {
            return one.at.time_since_epoch() / std::chrono::hours(24);
        });
        paged.measure(layout.measures());
        HeldMoments pages;
        for (const std::size_t size : {4U, 11U, 25U}) {
            const std::size_t before = pages.size();
            pages.fold(made.held.moments().first(size));
            paged.add(pages, before);
        }
        double y = 0;
        std::int64_t day = 1'000;
        for (std::size_t shown = 0; shown < layout.count(); ++shown) {
            const std::size_t held = layout.held(shown);
            EXPECT_EQ(layout.shown(held), shown);
            EXPECT_EQ(paged.held(shown), held);
            const auto spot = layout.spot(shown);
            EXPECT_EQ(paged.spot(shown), spot);
            const auto itsDay = made.held[held].at.time_since_epoch() / std::chrono::hours(24);
            EXPECT_LE(itsDay, day) << "the newest day first";
            const double step = shown == 0 ? 86 : itsDay == day ? 182 : 162 + 12 + 44;
            EXPECT_EQ(spot.top - y, itsDay == day && spot.column > 0 ? 0 : step);
            y = spot.top;
            day = itsDay;
        }
        EXPECT_EQ(layout.height(), y + 162);
    }
}

TEST(MomentLayout, findsWhatIsInSightAtEveryHeight) {
    for (const int columns : {1, 3}) {
        const Layout made(columns);
        const MomentLayout& layout = made.layout;
        const auto top = [&](std::size_t shown) { return layout.spot(shown).top; };
        const std::size_t last = layout.count() - 1;
        for (double y = -50; y < layout.height() + 50; y += 7) {
            std::size_t first = 0;
            while (first < last && top(first) + 162 <= y)
                ++first;
            EXPECT_EQ(layout.firstBelow(y), first) << y;
            std::size_t above = last;
            while (above > 0 && top(above) >= y)
                --above;
            EXPECT_EQ(layout.lastAbove(y), y > 86 ? above : layout.lastAbove(87)) << y;
            std::size_t day = layout.days() - 1;
            while (day > 0 && layout.headTop(day) > y)
                --day;
            EXPECT_EQ(layout.dayAt(y), day) << y;
        }
    }
}

TEST(MomentLayout, stepsFromRowToRowAcrossDays) {
    using Step = MomentLayout::Step;
    const Layout made(3);
    const MomentLayout& layout = made.layout;
    const std::size_t last = layout.count() - 1;
    for (std::size_t at = 0; at <= last; ++at) {
        const auto spot = layout.spot(at);
        const std::size_t down = layout.step(at, Step::down);
        const std::size_t up = layout.step(at, Step::up);
        for (const auto& [to, below] : {std::pair(down, true), {up, false}}) {
            if (to == at)
                continue;
            const auto there = layout.spot(to);
            EXPECT_EQ(there.top > spot.top, below);
            EXPECT_LE(there.column, spot.column);
            // No row is passed over.
            for (std::size_t other = std::min(at, to); other <= std::max(at, to); ++other)
                EXPECT_TRUE(layout.spot(other).top == spot.top ||
                            layout.spot(other).top == there.top);
        }
        EXPECT_EQ(layout.step(at, Step::left), at == 0 ? 0 : at - 1);
        EXPECT_EQ(layout.step(at, Step::right), std::min(at + 1, last));
    }
    EXPECT_EQ(layout.step(0, Step::up), 0U);
    EXPECT_EQ(layout.step(last, Step::down), last);
}

TEST(MomentTextCard, neverShowsASessionsNumber) {
    const EditorDate at(std::chrono::hours(24 * 20'000));
    const QString session = u"Session at "_s + MomentTextCard::time(at);
    const std::pair<const char*, QString> titles[] = {
        {" Plan\n", u"Plan"_s},
        {"", session},
        {" \n\t", session},
        {"0f8b2c34-11aa-4bcd-9EF0-123456789abc", session},
        {" 0f8b2c34-11aa-4bcd-9ef0-123456789abc ", session},
        {"0f8b2c34-11aa-4bcd-9ef0-123456789abg", u"0f8b2c34-11aa-4bcd-9ef0-123456789abg"_s},
        {"0f8b2c34-11aa-4bcd-9ef0-123456789ab", u"0f8b2c34-11aa-4bcd-9ef0-123456789ab"_s},
        {"0f8b2c34-11aa-4bcd-9ef0-123456789abc-", u"0f8b2c34-11aa-4bcd-9ef0-123456789abc-"_s},
        {"agent-0123456789abcdef", session},
        {"agent-0123456789ABCDEF0", session},
        {"agent-0123456789abcde", u"agent-0123456789abcde"_s},
        {"agent-0123456789abcdeg", u"agent-0123456789abcdeg"_s},
    };
    for (const auto& [title, shown] : titles) {
        EditorMoment moment{.id = "1", .at = at};
        moment.title = title;
        EXPECT_EQ(MomentTextCard::title(moment), shown) << title;
    }
}

TEST(MomentTextCard, tellsFilesApart) {
    const struct {
        std::vector<std::string> files;
        std::vector<std::string> names;
    } cases[] = {
        {{"/a/restore.py", "/a/plan.md"}, {"restore.py", "plan.md"}},
        {{"/a/b/x.py", "/a/c/x.py", "/d/c/x.py"}, {"b/x.py", "a/c/x.py", "d/c/x.py"}},
        {{"x.py", "/a/x.py"}, {"x.py", "a/x.py"}},
        {{"/x.py", "x.py"}, {"/x.py", "x.py"}},
        {{"/a/x", "/a/x", "/a/x/"}, {"x", "x", "x"}},
        {{"", "/"}, {"", "/"}},
    };
    for (const auto& [files, names] : cases)
        EXPECT_THAT(MomentTextCard::displayNames(files), ::testing::ElementsAreArray(names));

    EditorMoment moment{.id = "1"};
    EXPECT_EQ(MomentTextCard::filesLine(moment), u""_s);
    EXPECT_EQ(MomentTextCard::filesTooltip(moment), u""_s);
    moment.files = {"/a/restore.py", "/a/plan.md"};
    moment.fileCount = 2;
    EXPECT_EQ(MomentTextCard::filesLine(moment), u"restore.py · plan.md"_s);
    moment.fileCount = 5;
    EXPECT_EQ(MomentTextCard::filesLine(moment), u"restore.py · plan.md · +3"_s);
    EXPECT_EQ(MomentTextCard::filesTooltip(moment),
              u"Files seen (5)\nrestore.py\nplan.md\n3 more"_s);
    moment.abstract = " Two\n\twords  here ";
    moment.sessionTool = "claude-code";
    EXPECT_EQ(MomentTextCard::abstract(moment), u"Two words here"_s);
    EXPECT_EQ(MomentTextCard::badge(moment), u"Claude Code"_s);
    moment.bundle = "one.tarnbeck.wendlow.transcript.zed";
    EXPECT_EQ(MomentTextCard::badge(moment), u"Zed"_s) << "the transcript's own";
}

TEST(MomentWords, sayTheDayAndHowMany) {
    const QDate today(2026, 11, 20);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(MomentWords::heading(today, today), u"Today"_s);
    EXPECT_EQ(MomentWords::heading(QDate(2026, 11, 18), today), u"Wednesday, November 18"_s);
    EXPECT_EQ(MomentWords::day(QDate(2025, 11, 18), today), u"Tuesday, November 18, 2025"_s);
    EXPECT_EQ(DateWords::weekday(QDate(2026, 11, 18), today, QLocale(QLocale::German)),
              u"Mittwoch, 18. November"_s);
    EXPECT_EQ(DateWords::weekday(QDate(2026, 11, 18), today, QLocale(QLocale::Spanish)),
              u"miércoles, 18 de noviembre"_s);
    EXPECT_EQ(DateWords::weekday(QDate(2026, 11, 18), today, QLocale(QLocale::Japanese)),
              u"11月18日水曜日"_s);
    const std::pair<std::optional<std::int64_t>, const char*> counts[] = {
        {std::nullopt, ""}, {0, "0 moments in all"}, {1, "1 moment"}, {2, "2 moments in all"}};
    for (const auto& [count, words] : counts)
        EXPECT_EQ(MomentWords::subheading(count), QString::fromLatin1(words));
    namespace Case = EditorAnswerStateCase;
    const std::tuple<EditorAnswerState, std::optional<std::int64_t>, QString> empty[] = {
        {Case::Warming{}, 5,
         u"Your screens will be ready in a moment — the index is still building."_s},
        {Case::Settled{}, std::nullopt, u"No moments captured yet."_s},
        {Case::Settled{}, 0, u"No moments captured yet."_s},
        {Case::Settled{}, 1, u""_s},
        {Case::Pending{}, 5, u"Reading your screens…"_s},
        {Case::Failed{"no"}, 5, u"no"_s}};
    for (const auto& [state, count, words] : empty)
        EXPECT_EQ(MomentWords::empty(state, count), words);
    QLocale::setDefault(QLocale::system());
}

} // namespace
} // namespace wendlow::testing
