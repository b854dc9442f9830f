#include "Seeded/SeededQuery.h"

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

EditorAnswer answer(SeedWorld world, EditorAsk ask) {
    return SeededQuery(SeedWorlds::contents(world)).answer(ask);
}

TEST(SeededQuery, ofALargeWorldIsTheSameAtEveryStart) {
    EditorAsk ask{.term = "timetable midnight"};
    const auto first = answer(SeedWorld::powerUser, ask);
    EXPECT_EQ(first, answer(SeedWorld::powerUser, ask));
    EXPECT_EQ(first.rows.size(), 50U);
    EXPECT_GT(first.total, 100);
    EXPECT_TRUE(first.narrowed);
    EXPECT_EQ(first.order, EditorMemorySort::relevance);
    EXPECT_EQ(first.rows[0].score, 1);
    EXPECT_EQ(first.sliceTotal, answer(SeedWorld::powerUser, {.term = ""}).total);

    // The pages join without a seam.
    EditorAsk next = ask;
    next.offset = 50;
    const auto second = answer(SeedWorld::powerUser, next);
    next.offset = 0;
    next.limit = 100;
    const auto both = answer(SeedWorld::powerUser, next);
    EXPECT_EQ(both.rows[50], second.rows[0]);
    next.offset = 1'000'000;
    EXPECT_THAT(answer(SeedWorld::powerUser, next).rows, IsEmpty());
}

TEST(SeededQuery, countsWhatAChoiceWouldGive) {
    EditorAsk ask{.term = ""};
    ask.type = "ticket";
    ask.filters["status"] = {EditorPick("doing")};
    const auto doing = answer(SeedWorld::someData, ask);
    ASSERT_EQ(doing.total, 1);
    EXPECT_EQ(doing.rows[0].memory.filters.at("status"), "doing");
    EXPECT_EQ(doing.sliceTotal, 3);
    // The panel of the key still offers the others, and the shelf the other types.
    EXPECT_THAT(
        doing.filterValueCounts.at("status"),
        ElementsAre(EditorCount{"doing", 1}, EditorCount{"done", 1}, EditorCount{"next", 1}));
    EXPECT_THAT(doing.filterValueCounts.at("estimate"), ElementsAre(EditorCount{"3", 1}));
    EXPECT_THAT(doing.typeCounts, ElementsAre(EditorCount{"focus", 1}, EditorCount{"ticket", 1}));

    ask.filters = {{"status", {EditorPick("unheard")}}};
    const auto none = answer(SeedWorld::someData, ask);
    EXPECT_EQ(none.total, 0);
    EXPECT_EQ(none.filterValueCounts.at("status").size(), 3U) << "there is a way back";

    // A scope holds what is filed below it, whole segments only.
    const auto total = [](const char* scope) {
        EditorAsk scoped{.term = "harbour"};
        scoped.scopes = {scope};
        return answer(SeedWorld::someData, scoped).total;
    };
    EXPECT_GT(total("/work/ferry"), 1);
    EXPECT_GE(total("/work"), total("/work/ferry"));
    EXPECT_EQ(total("/"), answer(SeedWorld::someData, {.term = "harbour"}).total);
    EXPECT_EQ(total("/work/fer"), 0);
}

TEST(SeededQuery, searchesMomentsLikeMemories) {
    EditorAsk ask{.term = "tide"};
    ask.kind = EditorKind::moment;
    const auto moments = answer(SeedWorld::someData, ask);
    ASSERT_EQ(moments.moments.size(), 1U);
    EXPECT_EQ(moments.moments[0].title, "Log of the tide service");
    EXPECT_EQ(moments.rows.size(), 1U);
    EXPECT_EQ(moments.kindCounts.at(EditorKind::moment), 1);
}

} // namespace
} // namespace wendlow
