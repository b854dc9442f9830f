#include "GatewayWire.h"
#include "Live/MeetingList.h"
#include "Live/ScopeTree.h"
#include "Support/LiveDaemon.h"

#include <functional>

namespace wendlow {
namespace {

using ::testing::ElementsAre;
using testing::failure;
using ::testing::HasSubstr;
using testing::LiveDaemon;
using testing::LiveStore;
using testing::page;

TEST_F(LiveStore, asksAndReadsPagesAsTheWireHasThem) {
    EditorAsk ask{.term = "x"};
    ask.kind = EditorKind::moment;
    ask.sort = EditorMemorySort::oldest;
    ask.scopes = {"/b", "/a"};
    ask.limit = 0;
    ask.offset = -3;
    EditorPick three(EditorCount{.name = "3", .members = {FilterValue("3"), FilterValue(3.0)}});
    ask.filters = {{"size", {three, EditorPick("2")}}, {"done", {EditorPick("true")}}};
    auto wire = page(1);
    TextBrowseRow row{
        .id = "9", .type = "t", .scope = "/s", .title = "T", .at = 1.5, .filters = {}};
    row.filters = {{"n", FilterValue(3.0)}, {"n", FilterValue(2.5)}, {"b", FilterValue(true)}};
    row.app = "com.example";
    row.framed = true;
    wire._0.rows = {row};
    wire._0.order = "sideways";
    FilterKeyCensus census{.key = "n", .count = 9, .values = {}};
    census.values = {{FilterValue("3"), 1}, {FilterValue(2.5), 4}, {FilterValue(3.0), 5}};
    wire._0.byFilter = {census};
    const EditorAnswer answer = now(store->pages().query(ask, EditorAsker::page), wire);
    EXPECT_EQ(client->sent().back(),
              R"({"read":{"_0":{"textBrowse":{"term":"x","scopes":["/a","/b"],"limit":1,)"
              R"("kind":"moment","order":"oldest","filters":[{"key":"done","value":"true"},)"
              R"({"key":"size","value":"2"},{"key":"size","value":3},{"key":"size","value":"3"}],)"
              R"("offset":0}}}})");
    const EditorMemoryHit& hit = answer.rows[0];
    EXPECT_THAT(hit.memory.filters,
                ElementsAre(std::pair<const std::string, std::string>("b", "true"),
                            std::pair<const std::string, std::string>("n", "2.5")));
    EXPECT_EQ(hit.memory.day.time_since_epoch(), std::chrono::milliseconds(1500));
    EXPECT_EQ(answer.moments[0].bundle, "com.example");
    EXPECT_TRUE(answer.moments[0].framed);
    EXPECT_EQ(answer.order, EditorMemorySort::newest);
    EXPECT_THAT(answer.filterValueCounts.at("n"),
                ElementsAre(EditorCount{"3", 6, {FilterValue("3"), FilterValue(3.0)}},
                            EditorCount{"2.5", 4, {FilterValue(2.5)}}));
}

TEST(LivePages, moveTheRailOnlyByWhatDescribesTheWholeStore) {
    struct Case {
        EditorAsk ask;
        bool narrowed;
        bool moves;
        std::int64_t sliceTotal;
        std::int64_t allAfterwards = 4;
    };
    EditorAsk scoped{.term = {}}, filtered{.term = {}}, ofType{.term = {}}, typed{.term = "x"};
    scoped.scopes = {"/work"};
    filtered.filters["status"] = {EditorPick("open")};
    ofType.type = typed.type = "note";
    const Case cases[] = {
        {{.term = ""}, false, true, 2, 2},    {{.term = "narrows"}, true, false, 4},
        {{.term = "the"}, false, true, 2, 2}, {scoped, false, false, 4},
        {filtered, false, false, 4},          {typed, true, false, 3},
        {ofType, false, true, 4, 4},
    };
    for (const auto& [ask, narrowed, moves, sliceTotal, allAfterwards] : cases) {
        SCOPED_TRACE(ask.term);
        LiveDaemon live;
        live.open();
        live.changes.clear();
        auto wire = page(2, {{"new", 2}});
        wire._0.narrowed = narrowed;
        wire._0.byKind = {{"moment", 1}};
        auto& pages = live.store->pages();
        const EditorAnswer answer = live.now(pages.query(ask, EditorAsker::page), wire);
        EXPECT_EQ(answer.sliceTotal, sliceTotal);
        EXPECT_EQ(pages.memoryTypeCounts()[0].name, moves ? "new" : "note");
        EXPECT_EQ(pages.momentCount(), moves ? 1 : 7);
        EXPECT_EQ(live.changes.size(), moves ? 1U : 0U);
        live.now(pages.query(ask, EditorAsker::search), wire);
        EXPECT_EQ(live.changes.size(), moves ? 1U : 0U) << "the same counts are no news";
        wire._0.narrowed = true;
        const EditorAsk term{.term = "y"};
        EXPECT_EQ(live.now(pages.query(term, EditorAsker::search), wire).sliceTotal, allAfterwards);
    }
}

TEST(LivePages, giveTheDetailOfAMemoryAndSaySlowPages) {
    LiveDaemon live;
    auto& pages = live.store->pages();
    AnswerCase::Thing thing;
    thing._0 = Card{.kind = "memory", .id = "7", .snippet = "body", .why = "why"};
    EXPECT_EQ(live.now(pages.detail("7"), thing), (EditorMemoryDetail{"7", "why", "body"}));
    EXPECT_EQ(live.client->sent().back(), R"({"read":{"_0":{"grab":{"id":"7","full":false}}}})");
    EXPECT_EQ(live.now(pages.detail("7"), failure("no")), std::nullopt);
    auto slow = pages.query({.term = "x"}, EditorAsker::page);
    live.time += std::chrono::milliseconds(101);
    live.now(std::move(slow), page(0));
    EXPECT_THAT(live.notes, ElementsAre(HasSubstr("read.textBrowse")));
}

/// What each room says of an answer that is not what was asked for.
std::vector<std::string> wordsOf(const GatewayResponse& response) {
    LiveDaemon live;
    EditorStore& store = *live.store;
    std::vector<std::string> words;
    store.resetWorld();
    live.client->answer(response);
    live.client->answer(page(0));
    words.push_back(store.storeError().value());
    const auto listed = live.now(store.pages().query({.term = {}}, EditorAsker::beside), response);
    words.push_back(std::get<EditorAnswerStateCase::Failed>(listed.state).words);
    store.meetings().loadMeetings();
    live.client->answer(response);
    words.push_back(store.meetings().meetingsError().value());
    words.push_back(live.now(store.meetings().transcript("m"), response).error());
    store.mods().loadMods();
    live.client->answer(response);
    words.push_back(store.mods().modsError().value());
    const auto line = live.now(store.meetings().deleteLine("m", 5, "w"), response);
    words.push_back(std::get<EditorLineDeleteCase::Failed>(line).words);
    const auto rule = live.now(store.rules().editRuleLine("7", "a", "b"), response);
    EXPECT_FALSE(rule.ok());
    words.push_back(rule.words);
    return words;
}

TEST(LiveRooms, SayWhatIsWrongWithAnAnswer) {
    const auto strange = [](const std::string& what) {
        return "Wendlow answered" + what + " with something this mod does not understand.";
    };
    EXPECT_THAT(wordsOf(failure("read only")), ::testing::Each("read only"));
    EXPECT_THAT(wordsOf(AnswerCase::Ok()),
                ElementsAre(strange(" the scope board"), strange(""), strange(" the meeting list"),
                            strange(""), strange(" the mods board"), strange(" the delete"),
                            strange(" the write")));
    const std::string door = "This build of Wendlow has no that_door door.";
    EXPECT_THAT(wordsOf(AnswerCase::Unimplemented{"that_door"}),
                ElementsAre(strange(" the scope board"), strange(""), strange(" the meeting list"),
                            strange(""), HasSubstr("an older Wendlow daemon"), door, door));
}

TEST_F(LiveStore, tellAnOlderDaemonFromOneThatIsBusy) {
    ModSource& mods = store->mods();
    for (const GatewayResponse& older : {GatewayResponse(AnswerCase::Unimplemented{"mod_board"}),
                                         failure(std::string(GatewayWire::malformedRequest))}) {
        mods.loadMods();
        mods.loadMods();
        answer("modBoard", older);
        EXPECT_FALSE(client->isWaiting());
        EXPECT_EQ(mods.modsError(), "This Mac is still running an older Wendlow daemon, which "
                                    "cannot answer for your mods yet. Quitting and reopening "
                                    "Wendlow picks up the new one.");
        EXPECT_FALSE(mods.modsLoaded() || mods.modsBoard());
    }
    AnswerCase::ModBoard board;
    board._0.mods = {
        {.slug = "a", .scope = "/s", .rev = 2, .hint = "h", .files = {"f"}, .behaviors = {}}};
    mods.loadMods();
    answer("modBoard", board);
    EXPECT_EQ(mods.modsError(), std::nullopt);
    EXPECT_TRUE(mods.modsLoaded());
    EXPECT_THAT(mods.modsBoard()->mods,
                ElementsAre(EditorInstalledMod{"a", "/s", 2, "h", {"f"}, {}}));
}

TEST(MeetingList, isReadAsTheDaemonWordsIt) {
    const std::vector<EditorMeeting> expected{
        {"a", "Plan", "model", "2026-11-21", "10:00", "10:30", "30 min", {"Ada", "Lin"}, 12},
        {.id = "b", .day = "2026-11-21", .from = "10:00", .duration = "5 min"},
        {.id = "c", .day = "today", .duration = "1 h", .lines = 7},
        {.id = "d", .day = "x", .from = "1–2–3", .duration = "1 h", .speakers = {"bare"}}};
    EXPECT_EQ(MeetingList::parse(
                  "Meetings\n"
                  "- a · 2026-11-21 10:00–10:30 · 30 min · \"Plan\" · Ada, , Lin · 12 lines\n"
                  "- b · 2026-11-21 10:00 · 5 min · \"\" · no named speakers · x lines\n"
                  "- c · today · 1 h · 1 unnamed guest · 7 lines\n"
                  "- d · x 1–2–3 · 1 h · bare · Ada · 7 lines\n"
                  "- e · too · few\n"
                  "f · today · 1 h · Ada · 7 lines"),
              expected);
}

TEST(LiveMeetings, haveTranscriptsAndLinesThatCanBeDeleted) {
    namespace Case = EditorLineDeleteCase;
    AnswerCase::Transcript fresh;
    fresh._0 = {.meeting = "m", .title = "T", .titleSource = {}, .who = {"Ada"}, .lines = {}};
    fresh._0.lines = {{.rowid = 5, .speaker = "Ada", .at = 1.5, .text = "hm", .witness = "w"}};
    EditorTranscript words{.id = "m", .title = "T", .who = {"Ada"}};
    words.lines = {{.id = 5, .speaker = "Ada", .text = "hm", .witness = "w", .at = 1.5}};
    using Row = std::pair<std::vector<GatewayResponse>, EditorLineDelete>;
    const AnswerCase::LineDelete gone{LineDeleteOutcome::deleted};
    const Row rows[] = {
        {{gone, fresh}, Case::Deleted{words}},
        {{gone, failure("late"), fresh}, Case::Deleted{words}},
        {{gone, failure("late"), AnswerCase::Ok()}, Case::Deleted{std::nullopt}},
        {{gone, failure("no transcript for m")}, Case::Deleted{EditorTranscript{.id = "m"}}},
        {{AnswerCase::LineDelete{LineDeleteOutcome::staleWitness}}, Case::Refused{}},
        {{AnswerCase::LineDelete{LineDeleteOutcome::notFound}}, Case::Refused{}},
    };
    for (const auto& [answers, outcome] : rows) {
        LiveDaemon live;
        std::optional<EditorLineDelete> result;
        const auto task = live.keep(live.store->meetings().deleteLine("m", 5, "w"), result);
        EXPECT_EQ(
            live.client->sent().back(),
            R"({"control":{"_0":{"deleteUtterance":{"meeting":"m","rowid":5,"witness":"w"}}}})");
        for (const GatewayResponse& answer : answers)
            live.answer(live.client->sent().size() == 1 ? "deleteUtterance" : "meetingTranscript",
                        answer);
        EXPECT_EQ(result, outcome);
        EXPECT_EQ(live.store->generation(), std::holds_alternative<Case::Deleted>(outcome) ? 1 : 0);
        EXPECT_FALSE(live.client->isWaiting()) << "a list that is not known is not read again";
    }
}

TEST_F(LiveStore, CountsTheLinesOfItsMeetingsAgainWhereOneHasGone) {
    open();
    const auto lines = [](int count) {
        return AnswerCase::Text{"- m · today · 1 h · Ada · " + std::to_string(count) + " lines"};
    };
    const auto shown = [this] { return (*store->meetings().meetings())[0].lines; };
    const AnswerCase::LineDelete gone{LineDeleteOutcome::deleted};
    std::optional<EditorLineDelete> first, second;
    const auto one = keep(store->meetings().deleteLine("m", 5, "w"), first);
    answer("deleteUtterance", gone);
    answer("meetingTranscript", AnswerCase::Transcript());
    EXPECT_TRUE(first) << "nobody waits for the list";
    EXPECT_EQ(shown(), 3);
    EXPECT_TRUE(store->meetings().meetingsLoaded());
    // Another line goes while the list is on its way: that one counts it still.
    const auto two = keep(store->meetings().deleteLine("m", 6, "w"), second);
    answer("meetingList", lines(2));
    EXPECT_EQ(shown(), 2);
    answer("deleteUtterance", gone);
    answer("meetingTranscript", AnswerCase::Transcript());
    answer("meetingList", lines(1));
    EXPECT_EQ(shown(), 1);
    EXPECT_FALSE(client->isWaiting());
}

TEST_F(LiveStore, WriteAndReadAgainWhatTheWriteMoved) {
    std::optional<EditorWriteOutcome> outcome;
    auto rule = keep(store->rules().addRule("t", "w", {.file = "style"}, "/s"), outcome);
    answer(R"({"notes":{"_0":{"write":{"text":"t","why":"w","writer":"wendlow-editor",)"
           R"("type":"rule","path":"/s","filters":{"rules-file":"style"}}}}})",
           AnswerCase::NoteID{"n1"});
    EXPECT_EQ(store->generation(), 1);
    EXPECT_FALSE(outcome) << "the counts are read first";
    answer("textBrowse", page(9, {{"rule", 9}}));
    EXPECT_EQ(outcome, EditorWriteOutcome::wrote("Saved n1."));
    EXPECT_EQ(store->pages().memoryTypeCounts()[0].count, 9);

    auto illegal = keep(store->rules().addRule("t", "w", {.file = "Mods"}, "/s"), outcome);
    EXPECT_THAT(outcome->words, ::testing::StartsWith("“Mods” isn’t a legal rules-file name: one"));
    EXPECT_FALSE(outcome->ok());

    auto map = keep(store->scopes().mapFolder("/home/p", "/work"), outcome);
    answer(R"("mapPath":{"folder":"/home/p","path":"/work"})", AnswerCase::Text{"mapped"});
    AnswerCase::ScopeBoard board;
    board._0 = {{.path = "/work", .folders = {"/home/p"}, .kinds = {}}};
    answer("scopeBoard", board);
    EXPECT_EQ(outcome, EditorWriteOutcome::wrote("mapped"));
    EXPECT_EQ(store->scopes().scopeBoard().size(), 1U);

    auto edit = keep(store->rules().editRuleLine("7", "a", "b"), outcome);
    answer(R"("patch":{"id":"7","field":"text","find":"a","replace":"b","replaceAll":false})",
           AnswerCase::Text{"done"});
    EXPECT_EQ(outcome, EditorWriteOutcome::wrote("done"));
    EXPECT_EQ(store->generation(), 3);
    using enum EditorChange;
    EXPECT_THAT(changes, ElementsAre(generation, counts, generation, scopes, generation));
}

GatewayResponse card(std::string scope) {
    return AnswerCase::RulesCard{.scope = std::move(scope),
                                 .card = "/work/a rules:\n- Ask  ·m:7·\n<rules root=\"~/r\">\n"};
}

GatewayResponse walk(std::string path) {
    return AnswerCase::StandingWalk{
        RulesWalk{.path = std::move(path), .levels = {{"/work/a", {"Ask"}}}, .overflow = 2}};
}

/// The store with a scope "/work/a", asked for the rules there and answered so.
EditorRulesPicture picture(const GatewayResponse& ofCard, const GatewayResponse& ofWalk) {
    LiveDaemon live;
    live.open();
    std::optional<EditorRulesPicture> result;
    const auto kept = live.keep(live.store->rules().rulesPicture("/work/a"), result);
    live.answer(R"({"standingRules":{"card":true,"scope":"/work/a"}})", ofCard);
    live.answer(R"({"standingRules":{"card":false,"scope":"/work/a"}})", ofWalk);
    auto filed = page(1);
    filed._0.rows = {
        {.id = "m7", .type = "rule", .scope = "/work/a", .title = "Ask", .filters = {}}};
    live.answer(R"("type":"rule","scopes":["/work/a"],"limit":500)", filed);
    return *std::move(result);
}

TEST(LiveRules, tellWhyTheThreeViewsDiffer) {
    const GatewayResponse strange = AnswerCase::Ok(), none = AnswerCase::StandingWalk{};
    struct Case {
        GatewayResponse card, walk;
        bool hasCard, hasStack;
        const char* gap; ///< that its words begin so; empty for none
    };
    const Case cases[] = {
        {card("/work/a"), walk("/work/a"), true, true, ""},
        {card("/"), walk("/work/a"), false, true,
         "Wendlow was asked about /work/a and answered about /, so nothing"},
        {none, none, false, true, "Nothing is compiled at /work/a yet."},
        {failure("no"), failure("never"), false, false, "no"},
        {strange, walk("/b"), false, false, "Wendlow answered the rules card with something"},
        {card("/work/a"), walk("/b"), true, false,
         "Wendlow was asked about /work/a and answered about /b,"},
        {card("/work/a"), failure("gone"), true, false, "gone"},
        {card("/work/a"), strange, true, false, ""},
    };
    for (const auto& [ofCard, ofWalk, hasCard, hasStack, gap] : cases) {
        const EditorRulesPicture made = picture(ofCard, ofWalk);
        SCOPED_TRACE(gap);
        EXPECT_EQ(made.card.has_value(), hasCard);
        EXPECT_EQ(made.stack.has_value(), hasStack);
        EXPECT_EQ(made.gap.has_value(), *gap != '\0');
        EXPECT_THAT(made.gap ? words(*made.gap) : "", ::testing::StartsWith(gap));
        ASSERT_EQ(made.filed.size(), 1U) << "what is filed is shown under every gap";
        EXPECT_EQ(made.filed[0].rules[0].id, "m7");
    }
    const EditorRulesPicture whole = picture(card("/work/a"), walk("/work/a"));
    EXPECT_EQ(whole.stack->overflow, 2);
    EXPECT_EQ(whole.stack->levels[0].rules[0], (EditorRuleLine{"", "Ask", "/work/a"}));
    EXPECT_EQ(whole.card->inlineRules[0], (EditorRuleLine{"7", "Ask", "/work/a"}));
}

TEST_F(LiveStore, askOnlyForWhatIsFiledWhereThereIsNoScope) {
    open();
    const auto made = now(store->rules().rulesPicture("/nowhere"), failure("read only"));
    EXPECT_THAT(client->sent().back(), HasSubstr(R"("scopes":["/nowhere"],"limit":500)"));
    EXPECT_THAT(words(*made.gap),
                HasSubstr("card for /nowhere can’t be asked for: this window’s scope board"));
    EXPECT_EQ(made.filedState, EditorAnswerState(EditorAnswerStateCase::Failed{"read only"}));
}

TEST(ScopeTree, keepsThePathsThatTheDaemonSays) {
    const EditorScope root = ScopeTree::tree({{.path = "/a//b", .folders = {"/f"}, .kinds = {}},
                                              {.path = "/", .folders = {"/r"}, .kinds = {}},
                                              {.path = "/a/b", .folders = {}, .kinds = {}},
                                              {.path = "/c/d/", .folders = {}, .kinds = {}}});
    std::string walked;
    const std::function<void(const EditorScope&)> walk = [&](const EditorScope& scope) {
        walked += "(" + scope.id + " " + scope.title;
        for (const EditorScope& child : scope.children)
            walk(child);
        walked += ")";
    };
    walk(root);
    EXPECT_EQ(walked, "(/ /(/a a(/a//b b)(/a/b b))(/c c(/c/d/ d)))");
    ASSERT_NE(root.find("/a//b"), nullptr);
    EXPECT_THAT(root.find("/a//b")->folderPaths, ElementsAre("/f"));
    EXPECT_THAT(root.folderPaths, ElementsAre("/r"));
}

TEST_F(LiveStore, fetchWhatIsOnScreenNow) {
    LiveTiles& tiles = store->tiles();
    std::vector<std::int64_t> arrived;
    QObject::connect(&tiles, &TileSource::tileArrived,
                     [&](std::int64_t key) { arrived.push_back(key); });
    tiles.showTiles({1, 2, 3});
    EXPECT_EQ(store->pendingTileCount(), 2U);
    tiles.showTiles({4});
    std::optional<EditorAnswer> found;
    const auto typed = keep(store->pages().query({.term = "x"}, EditorAsker::search), found);
    answer(R"("getThumbnail":{"momentID":1})", AnswerCase::Image{"AAEC", "image/png"});
    EXPECT_EQ(tiles.tiles().at(1).image, std::string("\0\1\2", 3));
    answer("textBrowse", failure("a person goes before pictures"));
    // 2 and 3 have scrolled away. The daemon has no small picture of 4, and no door for the large.
    answer(R"("getThumbnail":{"momentID":4})", AnswerCase::Image{"TWFu!", "image/png"});
    answer(R"("getScreen":{"momentID":4,"window":""})", AnswerCase::Unimplemented{"screen_get"});
    EXPECT_EQ(tiles.tiles().at(4).image, std::nullopt);
    tiles.showTiles({4, 5});
    answer(R"("getThumbnail":{"momentID":5})", failure("none"));
    EXPECT_FALSE(client->isWaiting()) << "the door is closed, and 4 is not asked again";
    EXPECT_THAT(arrived, ElementsAre(1, 4, 5));
    EXPECT_TRUE(changes.empty()) << "a picture publishes nothing else";
    open();
    tiles.showTiles({6});
    answer("getThumbnail", failure("none"));
    answer("getScreen", AnswerCase::Image{"AA==", "image/png"});
    EXPECT_EQ(tiles.tiles().at(6).image, std::string("\0", 1));
    // One of 200 MB is not even read.
    tiles.showTiles({7});
    answer("getThumbnail", AnswerCase::Image{std::string(200'000'000, 'A'), "image/png"});
    answer("getScreen", failure("none"));
    EXPECT_EQ(tiles.tiles().at(7).image, std::nullopt);
}

} // namespace
} // namespace wendlow
