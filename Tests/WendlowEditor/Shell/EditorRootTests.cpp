#include "Shell/EditorRoot.h"
#include "Shell/EditorWords.h"
#include "Support/ScriptedStore.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <gmock/gmock.h>

namespace wendlow::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Scopes = std::set<std::string>;

SearchHit hitTo(const char* id, SearchHit::Destination destination) {
    return {
        .id = id, .destination = std::move(destination), .title = {}, .subtitle = {}, .symbol = {}};
}

struct Window {
    ScriptedStore store;
    EditorRoot root{store};

    /// The store has answered the first question.
    explicit Window(EditorMemoryHits rows = {}) { store.page.settle(std::move(rows)); }
    std::size_t rows() const { return root.answer().rows.size(); }
    bool pending() const {
        return std::holds_alternative<EditorAnswerStateCase::Pending>(root.answer().state);
    }
    EditorAsk ask(const std::function<void(EditorAsk&)>& change) const {
        EditorAsk next = root.ask();
        change(next);
        return next;
    }
};

TEST(EditorRoot, AsksOnceForEachKeyAndKeepsTheRowsMeanwhile) {
    Window window(memories(3));
    EXPECT_EQ(window.store.meeting.loads, 1);
    EXPECT_EQ(window.store.page.asked.size(), 1U);
    EXPECT_EQ(window.store.page.asked[0].limit, 50);
    window.store.tell();
    EXPECT_EQ(window.store.page.asked.size(), 1U) << "the key is the same";
    window.root.requestDetails({"decision0"});
    window.store.page.answerDetail(EditorMemoryDetail{.id = "decision0", .why = "w", .body = "b"});
    EXPECT_EQ(window.root.details().size(), 1U);

    window.store.grow();
    EXPECT_THAT(window.root.details(), IsEmpty());
    EXPECT_EQ(window.store.page.asked.size(), 2U);
    EXPECT_TRUE(window.pending());
    EXPECT_EQ(window.rows(), 3U) << "a refresh does not empty the page";
    window.store.page.settle(memories(4));
    EXPECT_EQ(window.rows(), 4U);
    EXPECT_TRUE(window.root.answer().ready());
}

TEST(EditorRoot, DropsWhatIsLateOrAnswersSomethingElse) {
    Window window(memories(3));
    const EditorAsk first = window.ask([](EditorAsk& ask) { ask.scopes = {"/a"}; });
    const EditorAsk second = window.ask([](EditorAsk& ask) { ask.scopes = {"/b"}; });
    window.root.setAsk(first);
    window.root.setAsk(second);
    window.store.page.answer(settled(first, memories(1)));
    EXPECT_EQ(window.rows(), 3U) << "late";
    window.store.page.answer(settled(second, memories(2)));
    EXPECT_EQ(window.rows(), 2U);
    window.root.setAsk(first);
    window.store.page.answer(settled(second, memories(1)));
    EXPECT_EQ(window.rows(), 2U) << "to another ask";
    EXPECT_TRUE(window.pending());
    EXPECT_FALSE(window.store.page.isWaiting());
}

TEST(EditorRoot, ShowsAStoreThatHasGivenUpAsFailed) {
    Window window(memories(3));
    window.store.error = "The door is shut.";
    window.store.tell();
    EXPECT_EQ(window.root.shown().state,
              EditorAnswerState(EditorAnswerStateCase::Failed{"The door is shut."}));
    EXPECT_TRUE(window.root.answer().ready());
    EXPECT_EQ(window.root.memories()->strip(), "The door is shut.");
    window.store.error.reset();
    window.root.tryAgain();
    EXPECT_EQ(window.root.memories()->strip(), "");
    EXPECT_TRUE(window.root.memories()->reading()) << "everything is read afresh";
    EXPECT_EQ(window.root.shown().rows.size(), 3U) << "and what there was stays meanwhile";
}

TEST(EditorRoot, GoesWhileEverythingIsUnderWay) {
    ScriptedStore store;
    {
        EditorRoot root(store);
        root.search()->setText("backup");
        root.requestDetails({"a", "b"});
    }
    store.page.settle(memories(1));
    store.page.settle(memories(1));
    store.page.answerDetail(std::nullopt);
    EXPECT_EQ(store.page.asked.size(), 2U);
    EXPECT_THAT(store.page.detailsAsked, ElementsAre("a"));
}

TEST(EditorRoot, AnOpenMemoryThatCannotBeReadSaysSoUntilItIsOpenedAgain) {
    Window window;
    window.root.setOpenType("decision");
    window.store.page.settle(memories(2));
    MemoriesModel& list = *window.root.memories()->list();
    const auto says = [&](int role) {
        return list.lines()->data(list.lines()->index(1), role).toBool();
    };
    list.toggle(1);
    EXPECT_FALSE(says(MemoryLines::MissingRole));
    window.store.page.answerDetail(std::nullopt);
    EXPECT_TRUE(says(MemoryLines::MissingRole));
    EXPECT_FALSE(window.store.page.detailWaits()) << "it is not asked for in a circle";
    list.toggle(1);
    list.toggle(1);
    EXPECT_FALSE(says(MemoryLines::MissingRole)) << "it is under way";
    window.store.page.answerDetail(EditorMemoryDetail{.id = "decision1", .why = "w", .body = "b"});
    EXPECT_TRUE(says(MemoryLines::KnownRole));
    EXPECT_THAT(window.store.page.detailsAsked, ElementsAre("decision1", "decision1"));
    // What is shown outlives that nothing newer comes.
    window.store.grow();
    window.store.page.settle(memories(2));
    window.store.page.answerDetail(std::nullopt);
    EXPECT_TRUE(says(MemoryLines::KnownRole) && !says(MemoryLines::MissingRole));
}

TEST(EditorRoot, AChangeOfFaceDecidesWhatStays) {
    struct Case {
        EditorFace from, to;
        bool keepsScopes;
        EditorKind kind;
    };
    using enum EditorFace;
    for (const auto& [from, to, keepsScopes, kind] :
         {Case{memory, moments, true, EditorKind::moment},
          Case{moments, memory, true, EditorKind::memory},
          Case{memory, rules, false, EditorKind::memory},
          Case{rules, scopes, false, EditorKind::memory},
          Case{moments, meetings, false, EditorKind::memory}}) {
        Window window;
        window.root.setFace(from);
        if (from == memory)
            window.root.setOpenType("decision");
        window.root.setAsk(window.ask([](EditorAsk& ask) {
            ask.scopes = {"/a"};
            ask.sort = EditorMemorySort::oldest;
            ask.filters = {{"owner", {EditorPick("Ines")}}};
            ask.limit = 74;
        }));
        const auto asked = window.store.page.asked.size();
        window.root.setFace(to);
        EXPECT_EQ(window.store.page.asked.size(), asked + 1) << "one question for one change";
        EditorAsk wanted{.term = {}};
        wanted.kind = kind;
        if (keepsScopes) {
            wanted.scopes = {"/a"};
            wanted.sort = EditorMemorySort::oldest;
        }
        EXPECT_EQ(window.root.ask(), wanted) << static_cast<int>(from) << static_cast<int>(to);
        EXPECT_EQ(window.root.openType(), std::nullopt);
        EXPECT_EQ(window.root.showsScopeChip(), to != scopes);
    }
}

TEST(EditorRoot, AnotherTypeBeginsOnItsFirstPageWithoutFilters) {
    Window window;
    window.root.setAsk(window.ask([](EditorAsk& ask) {
        ask.filters = {{"owner", {EditorPick("Ines")}}};
        ask.limit = 98;
        ask.offset = 3;
        ask.sort = EditorMemorySort::oldest;
    }));
    window.root.setOpenType("decision");
    EditorAsk wanted{.term = {}};
    wanted.type = "decision";
    wanted.sort = EditorMemorySort::oldest;
    EXPECT_EQ(window.root.ask(), wanted);
    EXPECT_EQ(window.root.memories()->title(), "decisions");
}

TEST(EditorRoot, AHitOpensItsPlace) {
    struct Case {
        SearchHit::Destination destination;
        EditorFace face;
        std::optional<std::string> type;
        Scopes scopes;
    };
    using enum EditorFace;
    for (const auto& [destination, face, type, scopes] :
         {Case{SearchDestination::Memory{"ticket"}, memory, "ticket", {}},
          Case{SearchDestination::Rule{"/work"}, rules, std::nullopt, {"/work"}},
          Case{SearchDestination::Moment{"7"}, moments, std::nullopt, {}},
          Case{SearchDestination::Meeting{"m"}, meetings, std::nullopt, {}},
          Case{SearchDestination::Scope{"/x"}, EditorFace::scopes, std::nullopt, {}},
          Case{SearchDestination::Mod{}, mods, std::nullopt, {}}}) {
        Window window;
        window.root.search()->setText("backup");
        window.root.open(hitTo("x", destination));
        EXPECT_EQ(window.root.face(), face);
        EXPECT_EQ(window.root.openType(), type);
        EXPECT_EQ(window.root.ask().scopes, scopes);
        EXPECT_FALSE(window.root.search()->searching());
        EXPECT_EQ(window.root.search()->text(), "");
    }
}

/// Opens this from a search that has found it.
void openFound(Window& window, const EditorMemoryHit& hit) {
    window.root.search()->setText("number 30");
    window.store.page.settle({hit});
    window.store.page.settle();
    window.root.openHit(0);
}

TEST(EditorRoot, AHitOfAMemoryUnfoldsItWithTheWordsMarked) {
    Window window;
    openFound(window, memories(31).back());
    window.store.page.settle(memories(60));
    const auto& lines = window.root.memories()->list()->lines()->rows();
    ASSERT_EQ(lines.size(), 36U) << "whole pages up to it";
    EXPECT_TRUE(lines[30].open);
    const auto* const model = window.root.memories()->list()->lines();
    EXPECT_EQ(model->data(model->index(30), MemoryLines::TitleMarkupRole),
              "<b>Number</b> <b>30</b>");
    EXPECT_THAT(window.store.page.detailsAsked, ::testing::Contains("decision30"));
}

TEST(EditorRoot, AHitThatWasNotReadStandsInFrontUntilSomethingElseIsAsked) {
    for (const std::string type : {"decision", "ticket"}) {
        Window window;
        window.root.setOpenType(type);
        window.store.page.settle(memories(50, type));
        auto& groups = *window.root.memories()->groups();
        groups.toggle(0); // closed
        openFound(window, memories(99, type).back());
        const bool grouped = type == "ticket";
        const auto& lines =
            grouped ? groups.lines()->rows() : window.root.memories()->list()->lines()->rows();
        const std::size_t first = grouped ? 1 : 0; // below the head of its group
        ASSERT_GE(lines.size(), 12U);
        EXPECT_EQ(lines[first].id, "m:" + type + "98");
        EXPECT_TRUE(lines[first].open);
        window.root.setAsk(window.ask([](EditorAsk& ask) { ask.limit = 110; }));
        window.store.page.settle(memories(99, type));
        EXPECT_EQ(lines[first].id, "m:" + type + "98") << "it stays when it has been read";
        EXPECT_EQ(std::ranges::count(lines, true, &MemoryLine::open), grouped ? 2 : 1);
        window.root.setAsk(window.ask([](EditorAsk& ask) { ask.scopes = {"/a"}; }));
        window.store.page.settle(memories(40, type));
        EXPECT_EQ(lines[first].id, "m:" + type + "0");
    }
}

/// What no daemon should say breaks nothing.
TEST(EditorRoot, RowsThatAreWrongForTheAskAreShownAsTheyAre) {
    Window window;
    window.root.setOpenType("decision");
    const QAbstractItemModelTester tester(window.root.memories()->list()->lines());
    EditorMemoryHits rows = memories(5000, "finding");
    rows[1] = rows[0] = memory("", "finding", std::string(10000, 'x') + "\n", "no path");
    EditorAnswer answer = settled(window.root.ask(), rows);
    answer.total = 2;
    answer.typeCounts = answer.filterKeyCounts = {{.name = "", .count = -1}};
    window.store.page.answer(answer);
    EXPECT_EQ(window.root.memories()->list()->countLine(), "2 memories");
    EXPECT_EQ(window.root.memories()->list()->lines()->rowCount(), 12);
    window.root.memories()->list()->toggle(0);
    window.root.setOpenType("ticket");
    window.store.page.answer(settled(window.root.ask(), rows));
    EXPECT_EQ(window.root.memories()->groups()->footer(), "");
}

TEST(EditorRoot, StepsBackOneAtATime) {
    Window window;
    window.root.setOpenType("decision");
    window.store.page.settle(memories(3));
    auto& list = *window.root.memories()->list();
    list.filters()->togglePanel("/");
    list.toggle(1);
    window.root.search()->setText("backup");
    EXPECT_EQ(window.root.stage(), "search");
    EXPECT_TRUE(window.root.back());
    EXPECT_EQ(window.root.stage(), "memory");
    EXPECT_TRUE(window.root.back());
    EXPECT_FALSE(list.lines()->row(1).open);
    EXPECT_TRUE(window.root.back());
    EXPECT_FALSE(list.filters()->panelOpen());
    EXPECT_TRUE(window.root.back());
    EXPECT_EQ(window.root.openType(), std::nullopt);
    EXPECT_FALSE(window.root.back());
}

TEST(EditorRoot, RulesShowOneScope) {
    const auto row = [](const char* path, bool filed) {
        EditorScopeRow made{.path = path};
        if (filed)
            made.kinds = {{.name = "rule", .count = 1}};
        return made;
    };
    const std::vector board{row("/a", false), row("/c", true), row("/b", true)};
    EXPECT_EQ(EditorRoot::rulesScope({"/x"}, board), "/x");
    EXPECT_EQ(EditorRoot::rulesScope({"/x", "/y"}, board), "/");
    EXPECT_EQ(EditorRoot::rulesScope({}, board), "/b");
    EXPECT_EQ(EditorRoot::rulesScope({}, {row("/a", false)}), "/");
}

TEST(EditorRoot, ABlankStageSaysWhatItKnows) {
    EXPECT_EQ(EditorWords::blankStage("Gone.", 3), "Gone.");
    EXPECT_EQ(EditorWords::blankStage(std::nullopt, 3),
              "3 meetings are recorded. A meetings surface lands in a later phase.");
    EXPECT_EQ(EditorWords::blankStage(std::nullopt, std::nullopt),
              "This surface isn’t wired to your real data yet.");
    Window window;
    window.store.meeting.count = 3;
    window.root.setFace(EditorFace::mods);
    EXPECT_EQ(window.root.blankStageWords(), "This surface isn’t wired to your real data yet.")
        << "of meetings only the meetings speak";
}

} // namespace
} // namespace wendlow::testing
