#include "GatewayWire.h"
#include "Live/EditorLiveStore.h"
#include "Support/ScriptedClient.h"

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using testing::ScriptedClient;

const std::string strange = "something this mod does not understand.";

GatewayResponse failure(std::string words) {
    return AnswerCase::Failure{std::move(words)};
}

/// A page of nothing with these counts.
AnswerCase::TextBrowse page(std::int64_t total, std::vector<NameCount> types = {}) {
    AnswerCase::TextBrowse answer;
    answer._0.ready = true;
    answer._0.total = total;
    answer._0.byType = std::move(types);
    return answer;
}

/// A store over a daemon whose answers the test gives.
struct Live {
    Live()
        : client(std::make_shared<ScriptedClient>()),
          store(std::make_unique<EditorLiveStore>(
              client, [this](std::string line) { notes.push_back(std::move(line)); },
              [this] { return time; })) {}

    /// The next request, which must hold these words, is answered so.
    void answer(const std::string& words, GatewayResponse response) {
        ASSERT_TRUE(client->isWaiting()) << words;
        ASSERT_THAT(client->sent().back(), HasSubstr(words));
        client->answer(std::move(response));
    }
    /// Opens the store on a daemon with three notes and a rule.
    void open() {
        store->resetWorld();
        AnswerCase::ScopeBoard scopes;
        scopes._0 = {{.path = "/work/a", .folders = {"/home/p/a"}, .kinds = {{"note", 3}}}};
        answer("scopeBoard", scopes);
        auto all = page(4, {{"note", 3}, {"rule", 1}});
        all._0.byKind = {{"memory", 4}, {"moment", 7}, {"dream", 1}};
        answer("textBrowse", all);
        answer("meetingList", AnswerCase::Text{"- meeting:call:1 · today · 1 h · Ada · 3 lines"});
        ASSERT_TRUE(store->loaded());
    }
    /// Keeps what a call comes to.
    template<class Value>
    QCoro::Task<> keep(QCoro::Task<Value> task, std::optional<Value>& result) {
        result = co_await task;
    }

    std::vector<std::string> notes;
    LinkLeg::Instant time;
    std::shared_ptr<ScriptedClient> client;
    std::unique_ptr<EditorLiveStore> store;
};

TEST(EditorLiveStore, opensOnWhatTheDaemonHolds) {
    Live live;
    live.open();
    auto& store = *live.store;
    EXPECT_EQ(store.generation(), 1);
    EXPECT_EQ(store.pages().momentCount(), 7);
    EXPECT_EQ(store.meetings().meetingCount(), 1);
    EXPECT_THAT(store.pages().memoryTypeCounts(),
                ElementsAre(EditorCount{"note", 3}, EditorCount{"rule", 1}));
    ASSERT_NE(store.scopes().rootScope().find("/work/a"), nullptr);
    EXPECT_THAT(store.scopes().rootScope().find("/work/a")->folderPaths, ElementsAre("/home/p/a"));
    const auto above = store.scopes().ancestors("/work/a/deeper");
    ASSERT_EQ(above.size(), 3U);
    EXPECT_EQ(above[1]->id, "/work");
    EXPECT_EQ(store.scopes().ancestors("/").size(), 0U);
    EXPECT_EQ(store.scopes().ancestors("/none/a").size(), 1U);
    EXPECT_EQ(store.scopes().scopeBoard()[0].kinds[0], (EditorCount{"note", 3}));
}

TEST(EditorLiveStore, saysWhyItHasNothingToShow) {
    AnswerCase::TextBrowse warming;
    struct Case {
        GatewayResponse scopes, browse;
        std::string error;
    };
    const Case cases[] = {
        {AnswerCase::ScopeBoard(), warming, "The search index is still building."},
        {AnswerCase::ScopeBoard(), failure("no store"), "no store"},
        {AnswerCase::ScopeBoard(), AnswerCase::Ok(), "Wendlow answered with " + strange},
        {failure("no board"), warming, "no board"},
        {failure("no board"), page(1), "no board"},
        {AnswerCase::Ok(), page(1), "Wendlow answered the scope board with " + strange},
    };
    for (const auto& [scopes, browse, error] : cases) {
        SCOPED_TRACE(error);
        Live live;
        live.open();
        live.store->resetWorld();
        live.answer("scopeBoard", scopes);
        live.answer("textBrowse", browse);
        EXPECT_EQ(live.store->storeError(), error);
        EXPECT_FALSE(live.store->loaded());
        EXPECT_FALSE(live.client->isWaiting());
        EXPECT_EQ(live.store->generation(), 2);
        EXPECT_NE(live.store->scopes().rootScope().find("/work/a"), nullptr)
            << "what was there stays";
        live.open();
        EXPECT_EQ(live.store->storeError(), std::nullopt);
    }
}

TEST(EditorLiveStore, countsTheWholeStoreThoughAPersonTypesMeanwhile) {
    Live live;
    std::optional<EditorAnswer> listed, typed;
    live.store->resetWorld();
    EditorAsk ask{.term = {}};
    const auto list = live.keep(live.store->pages().query(ask, EditorAsker::page), listed);
    live.answer("scopeBoard", AnswerCase::ScopeBoard());
    ask.term = "x";
    const auto search = live.keep(live.store->pages().query(ask, EditorAsker::search), typed);
    live.answer(R"("limit":50)", page(9, {{"note", 9}}));
    auto whole = page(4, {{"note", 3}});
    whole._0.byKind = {{"moment", 7}};
    live.answer(R"("limit":1,)", whole);
    live.answer(R"("term":"x")", failure("too many words"));
    live.answer("meetingList", AnswerCase::Text{""});
    EXPECT_TRUE(live.store->loaded()) << live.store->storeError().value_or("");
    EXPECT_EQ(live.store->pages().momentCount(), 7);
    EXPECT_EQ(typed->ask, ask);
    // A write's counts are read too.
    std::optional<EditorWriteOutcome> outcome;
    const auto rule = live.keep(live.store->rules().addRule("t", "w", {}, "/s"), outcome);
    live.answer("write", AnswerCase::NoteID{"n1"});
    const auto again = live.keep(live.store->pages().query(ask, EditorAsker::page), typed);
    live.answer(R"("limit":1,)", page(5, {{"rule", 5}}));
    live.answer(R"("term":"x")", failure("not now"));
    EXPECT_EQ(live.store->pages().memoryTypeCounts()[0].count, 5);
    EXPECT_TRUE(outcome && outcome->ok());
}

TEST(EditorLiveStore, readsOnceMoreHoweverOftenItIsAskedWhileReading) {
    Live live;
    for (int call = 0; call < 5; ++call)
        live.store->resetWorld();
    for (int round = 0; round < 2; ++round) {
        live.answer("scopeBoard", AnswerCase::ScopeBoard());
        live.answer("textBrowse", page(0));
        live.answer("meetingList", failure("not now"));
    }
    EXPECT_FALSE(live.client->isWaiting());
    EXPECT_EQ(live.store->meetings().meetingsError(), "not now");
    EXPECT_FALSE(live.store->meetings().meetingsLoaded());
    live.store->meetings().loadMeetings();
    live.store->meetings().loadMeetings();
    live.answer("meetingList", AnswerCase::Ok());
    EXPECT_EQ(live.store->meetings().meetingsError(),
              "Wendlow answered the meeting list with " + strange);
    EXPECT_FALSE(live.client->isWaiting());
}

TEST(EditorLiveStore, movesTheRailOnlyByWhatDescribesTheWholeStore) {
    struct Case {
        const char* name;
        EditorAsk ask;
        bool narrowed;
        bool moves;
        std::int64_t sliceTotal;
    };
    EditorAsk scoped{.term = {}};
    scoped.scopes = {"/work"};
    EditorAsk filtered{.term = {}};
    filtered.filters["status"] = {EditorPick("open")};
    EditorAsk typed{.term = "x"};
    typed.type = "note";
    const Case cases[] = {
        {"everything", {.term = ""}, false, true, 2},
        {"a term that narrows", {.term = "x"}, true, false, 4},
        {"a term that does not", {.term = "the"}, false, true, 2},
        {"a scope", scoped, false, false, 4},
        {"a filter", filtered, false, false, 4},
        {"a term within a type", typed, true, false, 3},
    };
    for (const auto& [name, ask, narrowed, moves, sliceTotal] : cases) {
        SCOPED_TRACE(name);
        Live live;
        live.open();
        std::optional<EditorAnswer> answer;
        const auto task = live.keep(live.store->pages().query(ask, EditorAsker::page), answer);
        auto wire = page(2, {{"new", 2}});
        wire._0.narrowed = narrowed;
        wire._0.byKind = {{"moment", 1}};
        live.answer("textBrowse", wire);
        ASSERT_TRUE(answer && answer->ready());
        EXPECT_EQ(answer->ask, ask);
        EXPECT_EQ(answer->sliceTotal, sliceTotal);
        EXPECT_EQ(live.store->pages().memoryTypeCounts()[0].name, moves ? "new" : "note");
        EXPECT_EQ(live.store->pages().momentCount(), moves ? 1 : 7);
    }
}

TEST(EditorLiveStore, asksAndReadsPagesAsTheWireHasThem) {
    Live live;
    EditorAsk ask{.term = "x"};
    ask.kind = EditorKind::moment;
    ask.sort = EditorMemorySort::oldest;
    ask.scopes = {"/b", "/a"};
    ask.limit = 0;
    ask.offset = -3;
    EditorPick three(EditorCount{.name = "3", .members = {FilterValue("3"), FilterValue(3.0)}});
    ask.filters = {{"size", {three, EditorPick("2")}}, {"done", {EditorPick("true")}}};
    std::optional<EditorAnswer> answer;
    const auto task = live.keep(live.store->pages().query(ask, EditorAsker::page), answer);
    EXPECT_EQ(live.client->sent().back(),
              R"({"read":{"_0":{"textBrowse":{"term":"x","scopes":["/a","/b"],"limit":1,)"
              R"("kind":"moment","order":"oldest","filters":[{"key":"done","value":"true"},)"
              R"({"key":"size","value":"2"},{"key":"size","value":3},{"key":"size","value":"3"}],)"
              R"("offset":0}}}})");
    auto wire = page(1);
    TextBrowseRow row{
        .id = "9", .type = "t", .scope = "/s", .title = "T", .at = 1.5, .filters = {}};
    row.filters = {{"n", FilterValue(3.0)}, {"n", FilterValue(2.5)}, {"b", FilterValue(true)}};
    row.score = 0.5;
    row.app = "com.example";
    row.framed = true;
    wire._0.rows = {row};
    wire._0.order = "sideways";
    FilterKeyCensus census{.key = "n", .count = 9, .values = {}};
    census.values = {{FilterValue("3"), 1}, {FilterValue(2.5), 4}, {FilterValue(3.0), 5}};
    wire._0.byFilter = {census};
    live.answer("textBrowse", wire);
    ASSERT_TRUE(answer);
    const EditorMemoryHit& hit = answer->rows[0];
    EXPECT_THAT(hit.memory.filters,
                ElementsAre(std::pair<const std::string, std::string>("b", "true"),
                            std::pair<const std::string, std::string>("n", "2.5")));
    EXPECT_EQ(hit.memory.day.time_since_epoch(), std::chrono::milliseconds(1500));
    EXPECT_EQ(answer->moments.at(0).bundle, "com.example");
    EXPECT_TRUE(answer->moments.at(0).framed);
    EXPECT_EQ(answer->order, EditorMemorySort::newest);
    EXPECT_THAT(answer->filterValueCounts["n"],
                ElementsAre(EditorCount{"3", 6, {FilterValue("3"), FilterValue(3.0)}},
                            EditorCount{"2.5", 4, {FilterValue(2.5)}}));
}

TEST(EditorLiveStore, readsTheListOfMeetingsAsTheDaemonWordsIt) {
    Live live;
    live.store->meetings().loadMeetings();
    live.answer("meetingList",
                AnswerCase::Text{
                    "Meetings\n"
                    "- a · 2026-11-21 10:00–10:30 · 30 min · \"Plan\" · Ada, , Lin · 12 lines\n"
                    "- b · 2026-11-21 10:00 · 5 min · \"\" · no named speakers · x lines\n"
                    "- c · today · 1 h · 1 unnamed guest · 7 lines\n"
                    "- d · x 1–2–3 · 1 h · bare · Ada · 7 lines\n"
                    "- e · too · few\n"
                    "f · today · 1 h · Ada · 7 lines"});
    const auto& meetings = *live.store->meetings().meetings();
    ASSERT_EQ(meetings.size(), 4U);
    const std::vector<EditorMeeting> expected{
        {.id = "a",
         .title = "Plan",
         .titleSource = "model",
         .day = "2026-11-21",
         .from = "10:00",
         .to = "10:30",
         .duration = "30 min",
         .speakers = {"Ada", "Lin"},
         .lines = 12},
        {.id = "b", .day = "2026-11-21", .from = "10:00", .duration = "5 min"},
        {.id = "c", .day = "today", .duration = "1 h", .lines = 7},
        {.id = "d", .day = "x", .from = "1–2–3", .duration = "1 h", .speakers = {"bare"}}};
    EXPECT_EQ(meetings, expected);
}

TEST(EditorLiveStore, givesDetailsAndTranscriptsOrSaysWhyNot) {
    Live live;
    std::optional<std::optional<EditorMemoryDetail>> detail;
    auto task = live.keep(live.store->pages().detail("7"), detail);
    AnswerCase::Thing thing;
    thing._0 = Card{.kind = "memory", .id = "7", .snippet = "body", .why = "why"};
    live.answer(R"({"read":{"_0":{"grab":{"id":"7","full":false}}}})", thing);
    EXPECT_EQ(**detail, (EditorMemoryDetail{"7", "why", "body"}));
    auto refused = live.keep(live.store->pages().detail("7"), detail);
    live.answer("grab", failure("no"));
    EXPECT_EQ(*detail, std::nullopt);

    const std::pair<GatewayResponse, EditorTranscriptResult> cases[] = {
        {failure("no transcript for m"), EditorTranscript{.id = "m"}},
        {failure("broken"), std::unexpected("broken")},
        {AnswerCase::Ok(), std::unexpected("Wendlow answered with " + strange)},
    };
    for (const auto& [response, expected] : cases) {
        std::optional<EditorTranscriptResult> result;
        const auto reading = live.keep(live.store->meetings().transcript("m"), result);
        live.answer("meetingTranscript", response);
        EXPECT_EQ(*result, expected);
    }
}

TEST(EditorLiveStore, deletesALineAndReadsTheRest) {
    namespace Case = EditorLineDeleteCase;
    AnswerCase::Transcript fresh;
    fresh._0 = {.meeting = "m", .title = {}, .titleSource = {}, .who = {}, .lines = {}};
    struct Row {
        std::vector<GatewayResponse> answers;
        EditorLineDelete outcome;
    };
    const AnswerCase::LineDelete gone{LineDeleteOutcome::deleted};
    const Row rows[] = {
        {{gone, fresh}, Case::Deleted{EditorTranscript{.id = "m"}}},
        {{gone, failure("late"), fresh}, Case::Deleted{EditorTranscript{.id = "m"}}},
        {{gone, failure("late"), AnswerCase::Ok()}, Case::Deleted{std::nullopt}},
        {{AnswerCase::LineDelete{LineDeleteOutcome::staleWitness}}, Case::Refused{}},
        {{AnswerCase::LineDelete{LineDeleteOutcome::notFound}}, Case::Refused{}},
        {{AnswerCase::Unimplemented{"delete_utterance"}},
         Case::Failed{"This build of Wendlow has no delete_utterance door."}},
        {{failure("locked")}, Case::Failed{"locked"}},
        {{AnswerCase::Ok()}, Case::Failed{"Wendlow answered the delete with " + strange}},
    };
    for (const auto& [answers, outcome] : rows) {
        Live live;
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
    }
}

TEST(EditorLiveStore, writesAndReadsAgainWhatTheWriteMoved) {
    Live live;
    std::optional<EditorWriteOutcome> outcome;
    auto rule = live.keep(live.store->rules().addRule("t", "w", {.file = "style"}, "/s"), outcome);
    live.answer(R"({"notes":{"_0":{"write":{"text":"t","why":"w","writer":"wendlow-editor",)"
                R"("type":"rule","path":"/s","filters":{"rules-file":"style"}}}}})",
                AnswerCase::NoteID{"n1"});
    EXPECT_EQ(live.store->generation(), 1);
    EXPECT_FALSE(outcome) << "the counts are read first";
    live.answer("textBrowse", page(9, {{"rule", 9}}));
    EXPECT_EQ(outcome, EditorWriteOutcome::wrote("Saved n1."));
    EXPECT_EQ(live.store->pages().memoryTypeCounts()[0].count, 9);

    auto illegal =
        live.keep(live.store->rules().addRule("t", "w", {.file = "Mods"}, "/s"), outcome);
    EXPECT_THAT(outcome->words, ::testing::StartsWith("“Mods” isn’t a legal rules-file name: one"));
    EXPECT_FALSE(outcome->ok());

    auto map = live.keep(live.store->scopes().mapFolder("/home/p", "/work"), outcome);
    live.answer("mapPath", AnswerCase::Text{"mapped"});
    AnswerCase::ScopeBoard scopes;
    scopes._0 = {{.path = "/work", .folders = {"/home/p"}, .kinds = {}}};
    live.answer("scopeBoard", scopes);
    EXPECT_EQ(outcome, EditorWriteOutcome::wrote("mapped"));
    EXPECT_EQ(live.store->scopes().scopeBoard().size(), 1U);

    const std::pair<GatewayResponse, std::string> refusals[] = {
        {AnswerCase::Unimplemented{"memory_patch"},
         "This build of Wendlow has no memory_patch door."},
        {failure("read only"), "read only"},
        {AnswerCase::Ok(), "Wendlow answered the write with " + strange}};
    for (const auto& [response, words] : refusals) {
        auto edit = live.keep(live.store->rules().editRuleLine("7", "a", "b"), outcome);
        live.answer(
            R"("patch":{"id":"7","field":"text","find":"a","replace":"b","replaceAll":false})",
            response);
        EXPECT_EQ(outcome, EditorWriteOutcome::refused(words));
    }
    EXPECT_EQ(live.store->generation(), 2);
}

TEST(EditorLiveStore, saysWhatIsWrongWithTheModsBoard) {
    const std::string older =
        "This Mac is still running an older Wendlow daemon, which cannot answer for "
        "your mods yet. Quitting and reopening Wendlow picks up the new one.";
    const std::pair<GatewayResponse, std::optional<std::string>> cases[] = {
        {AnswerCase::Unimplemented{"mod_board"}, older},
        {failure(std::string(GatewayWire::malformedRequest)), older},
        {failure("busy"), "busy"},
        {AnswerCase::Ok(), "Wendlow answered the mods board with " + strange},
        {AnswerCase::ModBoard(), std::nullopt},
    };
    Live live;
    for (const auto& [response, error] : cases) {
        live.store->mods().loadMods();
        live.store->mods().loadMods();
        live.answer("modBoard", response);
        EXPECT_FALSE(live.client->isWaiting());
        EXPECT_EQ(live.store->mods().modsError(), error);
        EXPECT_EQ(live.store->mods().modsLoaded(), !error);
    }
    EXPECT_TRUE(live.store->mods().modsBoard()->isEmpty());
}

TEST(EditorLiveStore, fetchesTheTilesThatAreOnScreenNow) {
    Live live;
    live.store->tiles().showTiles({1, 2, 3});
    EXPECT_EQ(live.store->pendingTileCount(), 2U);
    live.store->tiles().showTiles({4});
    live.answer(R"("getThumbnail":{"momentID":1})", AnswerCase::Image{"AAEC", "image/png"});
    EXPECT_EQ(live.store->tiles().tiles().at(1).image, std::string("\0\1\2", 3));
    // 2 and 3 have scrolled away. The daemon has no small picture of 4, and no door for the large.
    live.answer(R"("getThumbnail":{"momentID":4})", AnswerCase::Image{"not base64!", "image/png"});
    live.answer(R"("getScreen":{"momentID":4,"window":""})",
                AnswerCase::Unimplemented{"screen_get"});
    EXPECT_EQ(live.store->tiles().tiles().at(4).image, std::nullopt);
    live.store->tiles().showTiles({4, 5});
    live.answer(R"("getThumbnail":{"momentID":5})", failure("none"));
    EXPECT_FALSE(live.client->isWaiting()) << "the door is closed, and 4 is not asked again";
    live.open();
    live.store->tiles().showTiles({6});
    live.answer("getThumbnail", failure("none"));
    live.answer("getScreen", AnswerCase::Image{"AA==", "image/png"});
    EXPECT_EQ(live.store->tiles().tiles().at(6).image, std::string("\0", 1));
}

TEST(EditorLiveStore, letsTypingPassTheThumbnails) {
    Live live;
    live.store->tiles().showTiles({1, 2, 3});
    std::optional<EditorAnswer> answer;
    EditorAsk ask{.term = "x"};
    const auto task = live.keep(live.store->pages().query(ask, EditorAsker::page), answer);
    live.answer("getThumbnail", failure("none"));
    live.answer("textBrowse", page(0));
    EXPECT_TRUE(answer);
    live.answer(R"("getScreen":{"momentID":1)", failure("none"));
}

TEST(EditorLiveStore, reportsOnlySlowLegs) {
    using std::chrono::milliseconds;
    struct Case {
        int wire;
        bool reported;
    };
    for (const auto& [wire, reported] : {Case{100, false}, Case{101, true}}) {
        Live live;
        std::optional<EditorAnswer> answer;
        EditorAsk ask{.term = "x"};
        const auto task = live.keep(live.store->pages().query(ask, EditorAsker::page), answer);
        live.time += milliseconds(wire);
        live.answer("textBrowse", page(0));
        EXPECT_EQ(live.notes.size(), reported ? 1U : 0U);
        EXPECT_TRUE(!reported || live.notes[0].contains("read.textBrowse"));
    }
}

TEST(EditorLiveStore, mayGoWhileEverythingIsUnderWay) {
    Live live;
    live.store->resetWorld();
    live.store->tiles().showTiles({1, 2});
    live.store->mods().loadMods();
    std::optional<EditorAnswer> first;
    std::optional<EditorAnswer> second;
    EditorAsk ask{.term = "x"};
    const auto one = live.keep(live.store->pages().query(ask, EditorAsker::page), first);
    ask.term = "y";
    const auto two = live.keep(live.store->pages().query(ask, EditorAsker::page), second);
    std::optional<EditorWriteOutcome> write;
    const auto three = live.keep(live.store->scopes().mapFolder("/f", "/p"), write);
    live.store.reset();
    EXPECT_TRUE(first && second && write) << "nobody waits for ever";
    EXPECT_EQ(write, EditorWriteOutcome::refused("The window was closed before this was sent."));
    EXPECT_FALSE(first->ask || second->ask);
    live.client->answer(AnswerCase::ScopeBoard());
    EXPECT_FALSE(live.client->isWaiting());
    EXPECT_THAT(live.notes, IsEmpty());
}

} // namespace
} // namespace wendlow
