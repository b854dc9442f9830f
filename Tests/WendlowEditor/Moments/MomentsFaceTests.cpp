#include "Moments/MomentsFaceFixture.h"

namespace wendlow::testing::paging {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

TEST_F(Face, readsOnPageByPage) {
    EXPECT_EQ(model.emptyWords(), u"Reading your screens…");
    EXPECT_EQ(model.heading(), u"Moments");
    settleAsAsked();
    EXPECT_EQ(model.heading(), u"Today");
    EXPECT_EQ(model.subheading(), u"400 moments in all");
    EXPECT_THAT(asked, IsEmpty()) << "the last is not in sight";
    for (const std::int64_t limit : {96, 144, 192}) {
        look(model.grid()->contentHeight() - 700);
        ASSERT_THAT(asked, SizeIs(limit / 48 - 1));
        EXPECT_EQ(asked.back().limit, limit);
        look(model.grid()->contentHeight() - 600);
        EXPECT_THAT(asked, SizeIs(limit / 48 - 1)) << "one at a time";
        const auto before = cells();
        EXPECT_TRUE(model.isRefreshing() && !before.empty());
        settleAsAsked();
        EXPECT_EQ(model.grid()->count(), limit);
        for (const auto& [place, words] : before)
            EXPECT_EQ(cells()[place], words) << "nothing moves";
    }
    look(model.grid()->contentHeight() - 700);
    settle(moments(0, 192), 192);
    look(model.grid()->contentHeight() - 800);
    look(model.grid()->contentHeight() - 700);
    EXPECT_THAT(asked, SizeIs(4)) << "there is no more";

    // Another question, and another state of the world, begin anew.
    for (int time = 0; time < 2; ++time) {
        if (time == 0)
            ++generation;
        else
            ask.scopes = {"/work"};
        ask.limit = time == 0 ? 240 : 50;
        answer = answer.awaitingRefresh();
        show();
        EXPECT_EQ(ask.limit, 50);
        EXPECT_GT(model.grid()->count(), 100) << "what is here stays until that is read";
        settle(moments(200, 250));
        EXPECT_EQ(model.grid()->count(), 50);
        EXPECT_EQ(model.visibleCount(), 48);
        settle(moments(0, 150));
    }
}

TEST_F(Face, keepsWhatIsSeenInItsPlaceWhenMoreComesAbove) {
    settle(moments(30, 80));
    look(1500); // below the newest day, whatever the zone makes of it
    const auto shifted = [&] {
        double by = 0;
        const auto heard =
            QObject::connect(model.grid(), &MomentGrid::shifted, [&](double far) { by += far; });
        ask.limit = 96;
        // Since the person looked; of the newest day.
        EditorMoments page;
        for (EditorMoment fresh : moments(20, 30)) {
            fresh.at = noon - 30h;
            page.push_back(fresh);
        }
        for (const EditorMoment& old : moments(30, 110))
            page.push_back(old);
        settle(page);
        QObject::disconnect(heard);
        return by;
    };
    std::map<QString, double> before;
    for (const auto& [place, words] : cells())
        before[words.section(u" at "_s, 0, 0)] = words.section(u',', 1).toDouble();
    const double by = shifted();
    EXPECT_GT(by, 0);
    int stayed = 0;
    for (const auto& [place, words] : cells())
        if (const auto was = before.find(words.section(u" at "_s, 0, 0)); was != before.end()) {
            // What the keys are at is kept though it is out of sight.
            if (was->second < 1300)
                continue;
            EXPECT_EQ(words.section(u',', 1).toDouble() - by, was->second);
            ++stayed;
        }
    EXPECT_GT(stayed, 9);
}

TEST_F(Face, goesToTheLastOfAllInStridesBehindWhatIsHeld) {
    int revealed = -1;
    QObject::connect(&model, &MomentsFaceModel::revealed, [&](int place) { revealed = place; });
    settleAsAsked(6'000);
    model.goToEnd();
    EXPECT_EQ(ask.offset, 50);
    EXPECT_EQ(ask.limit, MomentsFaceModel::stride);
    settleAsAsked(6'000);
    EXPECT_EQ(ask.offset, 2'450);
    // Three came at the top meanwhile: what was held is three further down.
    settle(moments(2'447, 4'847), 6'003);
    EXPECT_EQ(ask.offset, 4'847);
    settle(moments(4'847, 6'000), 6'000);
    EXPECT_EQ(model.grid()->count(), 6'000);
    EXPECT_EQ(revealed, 5'999);
    const std::size_t questions = asked.size();
    look(model.grid()->contentHeight() - 700);
    EXPECT_EQ(asked.size(), questions) << "all are held";
    model.goToEnd();
    EXPECT_EQ(asked.size(), questions);
    // A few cells are enough for all of them, and the one that the keys are at stays.
    model.grid()->setCurrent(0);
    look(model.grid()->contentHeight() / 2);
    EXPECT_LT(model.grid()->rowCount(), 40);
    EXPECT_EQ(cells().begin()->first, 0);
    EXPECT_GT(std::next(cells().begin())->first, 2'000);
}

TEST_F(Face, saysWhatIsTheMatter) {
    const std::pair<EditorAnswerState, const char*> states[] = {
        {Case::Warming{}, "Your screens will be ready in a moment — the index is still building."},
        {Case::Failed{"The daemon is gone."}, "The daemon is gone."}};
    for (const auto& [state, words] : states) {
        answer = {.ask = ask, .state = state};
        show();
        EXPECT_EQ(model.emptyWords(), QString::fromUtf8(words));
        EXPECT_EQ(model.strip(), u""_s);
        EXPECT_TRUE(model.isFailing());
    }
    settle({}, 0);
    EXPECT_EQ(model.emptyWords(), u"No moments captured yet.");
    EXPECT_FALSE(model.isFailing());
    settle(moments(0, 1), 1);
    EXPECT_EQ(model.subheading(), u"1 moment");
    EXPECT_EQ(model.emptyWords(), u"");
    answer.state = Case::Failed{"The daemon is gone."};
    show();
    EXPECT_EQ(model.emptyWords(), u"") << "what is here stays";
    EXPECT_EQ(model.strip(), u"The daemon is gone.");
    model.leave(ask);
    EXPECT_EQ(model.grid()->count(), 0);
}

TEST_F(Face, noticesMidnight) {
    const auto passed = std::chrono::steady_clock::now();
    const EditorDate begin = std::chrono::floor<std::chrono::milliseconds>(noon);
    const auto midnight = DateWords::local(begin).date().addDays(1).startOfDay();
    const EditorDate before(std::chrono::milliseconds(midnight.toMSecsSinceEpoch() - 150));
    MomentsFaceModel late(pages, tiles,
                          {.ask = {}, .requestDetails = {}, .today = [&] {
                               return before + std::chrono::duration_cast<EditorDate::duration>(
                                                   std::chrono::steady_clock::now() - passed);
                           }});
    late.setOpen(true);
    late.appear(ask);
    late.show({.ask = ask,
               .answer = std::make_shared<const EditorAnswer>(
                   EditorAnswer{.ask = ask, .state = Case::Settled{}, .moments = moments(0, 60)}),
               .counted = true,
               .generation = 0,
               .details = details});
    late.grid()->measure(3, 162, 20, 86, 12, 44);
    late.grid()->look(300, 700);
    ASSERT_EQ(late.heading(), u"Today");
    ASSERT_EQ(late.grid()->stickyTitle(), u"Today");
    ASSERT_TRUE(soon([&] { return late.grid()->stickyTitle() != u"Today"; }));
    EXPECT_EQ(late.heading(), DateWords::weekday(DateWords::local(noon).date(),
                                                 DateWords::local(noon).date().addDays(1)));
    EXPECT_EQ(late.grid()->stickyTitle(), late.heading());
}

TEST_F(Face, keepsADayAtTheTopWhileItsMomentsPass) {
    settle(moments(0, 100));
    MomentGrid& grid = *model.grid();
    EXPECT_EQ(grid.stickyTitle(), u"") << "its own head is in sight";
    const double next = grid.layout().headTop(1);
    look(next - 200);
    EXPECT_EQ(grid.stickyTitle(), u"Today");
    EXPECT_EQ(grid.stickyOffset(), 0);
    look(next - 20);
    EXPECT_EQ(grid.stickyOffset(), -24) << "the next one pushes it up";
    look(next + 1);
    EXPECT_EQ(grid.stickyTitle(), MomentWords::day(grid.dayOf(1), grid.dayOf(0)));
    for (const MomentHead& head : grid.heads()->rows())
        EXPECT_NE(head.title, grid.stickyTitle()) << "once is enough";
    look(next);
    EXPECT_EQ(grid.heads()->row(0).top, next);
}

TEST_F(Face, showsWhatASearchFoundWhereItIsHeld) {
    int revealed = -1;
    QObject::connect(&model, &MomentsFaceModel::revealed, [&](int place) { revealed = place; });
    FoundHit found;
    found.hit.destination = SearchDestination::Moment{"30"};
    model.reveal(found, ask);
    settle(moments(0, 50));
    EXPECT_EQ(revealed, 30);
}

} // namespace
} // namespace wendlow::testing::paging
