#include "Model/EditorAnswer.h"
#include "Model/EditorMeeting.h"
#include "Model/EditorRail.h"
#include "Model/EditorRules.h"
#include "Model/EditorScope.h"
#include "Model/EditorWorld.h"

#include <limits>

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using ::testing::ElementsAre;

TEST(EditorCount, isOrderedByCountThenByCodePoint) {
    std::vector<EditorCount> census{{"b", 1}, {"é", 2}, {"a", 1}, {"Z", 1}, {"c", 3}};
    sortCensus(census);
    std::vector<std::string> names;
    for (const EditorCount& row : census)
        names.push_back(row.name);
    EXPECT_THAT(names, ElementsAre("c", "é", "Z", "a", "b"));
}

TEST(EditorPick, canAlwaysGoOutOnTheWire) {
    EXPECT_THAT(EditorPick(EditorCount{.name = "3"}).members, ElementsAre(FilterValue("3")));
    const EditorCount folded{
        .name = "3", .count = 2, .members = {FilterValue(3.0), FilterValue("3")}};
    EXPECT_EQ(EditorPick(folded).members, folded.members);
    EXPECT_NE(EditorPick(folded), EditorPick("3"));
    EXPECT_EQ(EditorPick("true").members.front(), FilterValue("true"));
}

TEST(EditorAsk, isTheSameQuestionOnAnotherPage) {
    EditorAsk ask{.term = "x"};
    EditorAsk next = ask;
    next.offset = 50;
    next.limit = 10;
    EXPECT_NE(ask, next);
    EXPECT_TRUE(ask.sameQuery(next));
    EXPECT_NE(hash_value(ask), hash_value(next));
    next.type = "";
    EXPECT_FALSE(ask.sameQuery(next));
    EXPECT_FALSE(ask.hasChips());
    ask.filters["status"] = {EditorPick("open")};
    EXPECT_TRUE(ask.hasChips());
}

TEST(EditorAnswer, keepsItsPageWhileItIsAskedForAgain) {
    EditorAnswer answer = EditorAnswer::failed("no", {.term = "x"});
    answer.total = 3;
    answer.rows = EditorMemoryHits(3);
    const EditorAnswer again = answer.awaitingRefresh();
    EXPECT_EQ(again.state, EditorAnswerState(EditorAnswerStateCase::Pending{}));
    EXPECT_EQ(again.rows.size(), 3U);
    EXPECT_EQ(again.ask, answer.ask);
    EXPECT_EQ(EditorAnswer::pending().ask, std::nullopt);
    EXPECT_FALSE(EditorAnswer::warming({}).ready());
}

TEST(EditorMoment, knowsWhichToolItComesFromAndHowItIsDrawn) {
    const std::string mark = "one.tarnbeck.wendlow.transcript.";
    struct Case {
        std::optional<std::string> bundle;
        bool framed;
        std::optional<std::string> sessionTool, agentTool;
        bool isTranscript, drawsTextCard;
    };
    const Case cases[] = {
        {mark + "codex", true, "claude", "codex", true, true},
        {mark, true, {}, {}, false, false},
        {mark, false, "claude", "claude", false, true},
        {"com.example.editor", false, {}, {}, false, false},
        {{}, true, "claude", "claude", false, false},
        {"x" + mark + "codex", false, {}, {}, false, false},
    };
    for (const auto& [bundle, framed, sessionTool, agentTool, isTranscript, drawsTextCard] :
         cases) {
        SCOPED_TRACE(bundle.value_or("none"));
        EditorMoment moment{.id = "1"};
        moment.bundle = bundle;
        moment.framed = framed;
        moment.sessionTool = sessionTool;
        EXPECT_EQ(moment.agentTool(), agentTool);
        EXPECT_EQ(moment.isTranscript(), isTranscript);
        EXPECT_EQ(moment.drawsTextCard(), drawsTextCard);
    }
    const std::pair<std::string, std::optional<std::int64_t>> keys[] = {
        {"12", 12}, {"+7", 7},  {"-7", -7},
        {"", {}},   {"+", {}},  {"+-7", {}},
        {"7a", {}}, {" 7", {}}, {"9223372036854775808", {}}};
    for (const auto& [id, key] : keys)
        EXPECT_EQ(EditorMoment{.id = id}.thumbnailKey(), key) << id;
}

TEST(EditorMeeting, takesItsApplicationOutOfItsId) {
    const std::pair<const char*, const char*> cases[] = {
        {"meeting:zoom:17", "zoom"},
        {"meeting:zoom:17:a", "zoom"},
        {"zoom", "zoom"},
        {"meeting::17", "meeting::17"},
        {"call:zoom:17", "call:zoom:17"},
        {"meeting:zoom", "meeting:zoom"},
        {":meeting:zoom:17", "zoom"},
    };
    for (const auto& [id, app] : cases)
        EXPECT_EQ(EditorMeeting{.id = id}.app(), app) << id;
}

TEST(EditorScope, isSearchedAndCopiedDepthFirst) {
    EditorScope root = EditorScope::root();
    root.children = {{.id = "/a", .title = "a", .children = {{.id = "/a/b", .title = "first"}}},
                     {.id = "/a/b", .title = "second"}};
    ASSERT_NE(root.find("/a/b"), nullptr);
    EXPECT_EQ(root.find("/a/b")->title, "first");
    EXPECT_EQ(root.find("/a/"), nullptr);
    const auto renamed = root.updating("/a/b", [](EditorScope& scope) { scope.title = "new"; });
    EXPECT_EQ(renamed.children[0].children[0].title, "new");
    EXPECT_EQ(renamed.children[1].title, "second");
    const auto without = root.removing("/a/b");
    EXPECT_EQ(without.children.size(), 1U);
    EXPECT_TRUE(without.children[0].children.empty());
    EXPECT_EQ((EditorScopeRow{.path = "/"}.depth()), 0U);
    EXPECT_EQ((EditorScopeRow{.path = "//a/b/"}.depth()), 2U);
}

TEST(EditorMemory, isOrderedByDayAndCounted) {
    const auto hit = [](const char* id, const char* type, int day, const char* status) {
        return EditorMemoryHit{.memory = {.id = id,
                                          .type = type,
                                          .title = {},
                                          .filters = {{"status", status}},
                                          .day = editorDate(day)},
                               .scopeID = "/"};
    };
    const EditorMemoryHits hits{hit("b", "note", 1, "open"), hit("c", "rule", 2, "done"),
                                hit("a", "note", 1, "open")};
    const auto ids = [](const EditorMemoryHits& rows) {
        std::string all;
        for (const auto& row : rows)
            all += row.memory.id;
        return all;
    };
    EXPECT_EQ(ids(dayOrdered(hits, DayOrder::newestFirst)), "cab");
    EXPECT_EQ(ids(dayOrdered(hits, DayOrder::oldestFirst)), "abc");
    EXPECT_THAT(typeCensus(hits), ElementsAre(EditorCount{"note", 2}, EditorCount{"rule", 1}));
    EXPECT_THAT(scopeCensus(hits), ElementsAre(EditorCount{"/", 3}));
    EXPECT_THAT(filterKeyCensus(hits), ElementsAre(EditorCount{"status", 3}));
    EXPECT_THAT(filterValueCensus(hits, "status"),
                ElementsAre(EditorCount{"open", 2}, EditorCount{"done", 1}));
    EXPECT_TRUE(filterValueCensus(hits, "none").empty());
}

TEST(EditorDate, holdsWhatTheClockCannot) {
    EXPECT_EQ(editorDate(1.5).time_since_epoch(), std::chrono::milliseconds(1500));
    EXPECT_GT(editorDate(std::numeric_limits<double>::infinity()), editorDate(9e9));
    EXPECT_LT(editorDate(-1e300), editorDate(-9e9));
    EXPECT_EQ(editorDate(std::numeric_limits<double>::quiet_NaN()), EditorDate{});
}

TEST(EditorRulesFiles, takesOnlyNamesThatAreFilesAndAttributes) {
    const std::pair<const char*, std::optional<std::string>> cases[] = {{" Style-2 \n", "style-2"},
                                                                        {"a", "a"},
                                                                        {"7", "7"},
                                                                        {"", {}},
                                                                        {"-a", {}},
                                                                        {"a-", {}},
                                                                        {"-", {}},
                                                                        {"a b", {}},
                                                                        {"é", {}},
                                                                        {"a_b", {}},
                                                                        {" RULES ", {}},
                                                                        {"wendlow-memory", {}},
                                                                        {"rules2", "rules2"}};
    for (const auto& [text, name] : cases)
        EXPECT_EQ(EditorRulesFiles::normalizedName(text), name) << text;
    EXPECT_TRUE(EditorRulePlacement{}.isLegal());
    EXPECT_FALSE(EditorRulePlacement{.file = "mods"}.isLegal());
    EXPECT_THAT((EditorRulePlacement{.file = "style"}.filters()),
                ElementsAre(std::pair<const std::string, std::string>("rules-file", "style")));
}

TEST(TypeShelf, dimsWhatASearchDoesNotMatchAndMovesNothing) {
    const std::vector<EditorCount> standing{{"note", 9}, {"rule", 5}, {"mod", 2}, {"ticket", 1}};
    EditorAnswer answer;
    answer.typeCounts = {{"ticket", 1}, {"note", 2}};
    EXPECT_THAT(TypeShelf::rows(standing, answer),
                ElementsAre(TypeShelfRow{"note", 9}, TypeShelfRow{"rule", 5},
                            TypeShelfRow{"mod", 2}, TypeShelfRow{"ticket", 1}));
    answer.narrowed = true;
    EXPECT_THAT(TypeShelf::rows(standing, answer),
                ElementsAre(TypeShelfRow{"note", 2}, TypeShelfRow{"rule", 0, true},
                            TypeShelfRow{"mod", 0, true}, TypeShelfRow{"ticket", 1}));
    EXPECT_EQ(RailCounts::memories(standing), 10);
    EXPECT_EQ(RailCounts::rules(standing), 5);
    EXPECT_EQ(RailCounts::rules({}), 0);
    answer.kindCounts = {{EditorKind::moment, 4}};
    EXPECT_EQ(TypeShelf::recordCount(EditorKind::moment, answer, 9), 4);
    EXPECT_EQ(TypeShelf::recordCount(EditorKind::meeting, answer, {}), std::nullopt);
}

TEST(TypeWords, makesManyOfOne) {
    const std::pair<const char*, const char*> cases[] = {
        {"decided", "decided"}, {"notes", "notes"}, {"entry", "entries"},
        {"day", "days"},        {"y", "ys"},        {"1y", "1ys"},
        {"éy", "éies"},         {"focus", "focus"}, {"key", "keys"},
        {"ticket", "tickets"}};
    for (const auto& [one, many] : cases)
        EXPECT_EQ(TypeWords::pluralized(one), many);
}

} // namespace
} // namespace wendlow
