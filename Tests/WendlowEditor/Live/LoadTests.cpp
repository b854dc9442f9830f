#include "Support/LiveDaemon.h"

#include <QCoreApplication>

namespace wendlow {
namespace {

using ::testing::ElementsAre;
using testing::failure;
using ::testing::HasSubstr;
using testing::LiveDaemon;
using testing::LiveStore;
using testing::page;
using enum EditorChange;

const AnswerCase::Text noMeetings{""};

TEST_F(LiveStore, opensOnWhatTheDaemonHoldsAndTellsEachEventOnce) {
    EXPECT_FALSE(store->scopes().boardRead() || store->loading());
    openToMeetings();
    EXPECT_TRUE(store->loading());
    answer("meetingList", AnswerCase::Text{"- meeting:call:1 · today · 1 h · Ada · 3 lines"});
    EXPECT_FALSE(store->loading());
    EXPECT_THAT(changes,
                ElementsAre(meetings | mods | error, counts, scopes, meetings, generation | error));
    EXPECT_EQ(store->generation(), 1);
    EXPECT_EQ(store->pages().momentCount(), 7);
    EXPECT_EQ(store->meetings().meetingCount(), 1);
    EXPECT_THAT(store->pages().memoryTypeCounts(),
                ElementsAre(EditorCount{"note", 3}, EditorCount{"rule", 1}));
    EXPECT_TRUE(store->scopes().boardRead());
    ASSERT_NE(store->scopes().rootScope().find("/work/a"), nullptr);
    EXPECT_THAT(store->scopes().rootScope().find("/work/a")->folderPaths, ElementsAre("/home/p/a"));
    const auto above = store->scopes().ancestors("/work/a/deeper");
    ASSERT_EQ(above.size(), 3U);
    EXPECT_EQ(above[1]->id, "/work");
    EXPECT_EQ(store->scopes().ancestors("/").size(), 0U);
    EXPECT_EQ(store->scopes().ancestors("/none/a").size(), 1U);
    EXPECT_EQ(store->scopes().scopeBoard()[0].kinds[0], (EditorCount{"note", 3}));
}

TEST_F(LiveStore, saysWhyItHasNothingToShowAndAtOnceThatItHas) {
    using Case = std::tuple<GatewayResponse, GatewayResponse, std::string>;
    const std::string strange = "something this mod does not understand.";
    const AnswerCase::TextBrowse warming;
    const Case cases[] = {
        {AnswerCase::ScopeBoard(), warming, "The search index is still building."},
        {AnswerCase::ScopeBoard(), failure("no store"), "no store"},
        {AnswerCase::ScopeBoard(), AnswerCase::Ok(), "Wendlow answered with " + strange},
        {failure("no board"), warming, "no board"},
        {failure("no board"), page(1), "no board"},
        {AnswerCase::Ok(), page(1), "Wendlow answered the scope board with " + strange},
    };
    open();
    for (const auto& [scopes, browse, error] : cases) {
        SCOPED_TRACE(error);
        store->resetWorld();
        const auto before = store->generation();
        answer("scopeBoard", scopes);
        answer("textBrowse", browse);
        EXPECT_EQ(store->storeError(), error);
        EXPECT_FALSE(store->loaded() || store->loading());
        EXPECT_FALSE(client->isWaiting());
        EXPECT_EQ(store->generation(), before + 1);
        EXPECT_NE(store->scopes().rootScope().find("/work/a"), nullptr) << "it stays";
        openToMeetings();
        EXPECT_EQ(store->storeError(), std::nullopt) << "though the meetings take their time";
        EXPECT_EQ(changes.back(), EditorChange::scopes | EditorChange::error);
        answer("meetingList", noMeetings);
    }
}

TEST_F(LiveStore, givesThePageTheSearchAndTheBaselineAPlaceEach) {
    std::optional<EditorAnswer> listed, typed;
    EditorAsk list{.term = {}}, term{.term = "x"};
    store->resetWorld();
    const auto one = keep(store->pages().query(list, EditorAsker::page), listed);
    const auto two = keep(store->pages().query(term, EditorAsker::search), typed);
    answer("scopeBoard", AnswerCase::ScopeBoard());
    answer(R"("limit":50)", page(9, {{"note", 9}}));
    EXPECT_EQ(listed->ask, list);
    answer(R"("term":"x")", failure("too many words"));
    EXPECT_EQ(typed->ask, term);
    answer(R"("limit":1,)", page(4, {{"note", 4}}));
    answer("meetingList", noMeetings);
    EXPECT_TRUE(store->loaded());
    EXPECT_EQ(store->pages().memoryTypeCounts()[0].count, 4);
}

TEST_F(LiveStore, readsOnceMoreHoweverOftenItIsAskedWhileReading) {
    for (int call = 0; call < 5; ++call)
        store->resetWorld();
    for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(store->loading());
        answer("scopeBoard", AnswerCase::ScopeBoard());
        answer("textBrowse", page(0));
        answer("meetingList", failure("not now"));
    }
    EXPECT_FALSE(client->isWaiting() || store->loading());
    EXPECT_EQ(store->generation(), 2);
    EXPECT_EQ(store->meetings().meetingsError(), "not now");
    store->meetings().loadMeetings();
    store->meetings().loadMeetings();
    answer("meetingList", noMeetings);
    store->meetings().loadMeetings();
    EXPECT_FALSE(client->isWaiting()) << "they have been read";
}

TEST_F(LiveStore, looksAgainAtAllThatIsNoPageAndForgetsNothingMeanwhile) {
    open();
    store->mods().loadMods();
    answer("modBoard", AnswerCase::ModBoard());
    changes.clear();
    store->lookAgain();
    store->lookAgain();
    EXPECT_FALSE(store->loading());
    AnswerCase::ScopeBoard board;
    board._0 = {{.path = "/new", .folders = {}, .kinds = {}}};
    answer("scopeBoard", board);
    answer("textBrowse", page(5, {{"note", 5}}));
    EXPECT_TRUE(store->meetings().meetingsLoaded() && store->mods().modsLoaded());
    answer("meetingList", noMeetings);
    answer("modBoard", AnswerCase::ModBoard());
    EXPECT_FALSE(client->isWaiting()) << "it was looking";
    EXPECT_THAT(changes, ElementsAre(scopes, counts, meetings, mods));
    EXPECT_NE(store->scopes().rootScope().find("/new"), nullptr);
    // A daemon that has gone takes nothing with it.
    changes.clear();
    store->lookAgain();
    answer("scopeBoard", failure("gone"));
    answer("textBrowse", failure("gone"));
    EXPECT_FALSE(client->isWaiting());
    EXPECT_THAT(changes, ::testing::IsEmpty());
    EXPECT_EQ(store->storeError(), std::nullopt);
}

TEST(EditorLiveStore, letsTheMeetingsWaitForTheBaselineOfALoadThatIsDue) {
    for (const bool well : {true, false}) {
        LiveDaemon live;
        live.store->loadSoon();
        live.store->meetings().loadMeetings();
        EXPECT_FALSE(live.client->isWaiting());
        QCoreApplication::sendPostedEvents();
        live.answer("scopeBoard", AnswerCase::ScopeBoard());
        live.store->meetings().loadMeetings();
        live.answer("textBrowse", well ? GatewayResponse(page(0)) : failure("no store"));
        live.answer("meetingList", noMeetings);
        EXPECT_FALSE(live.client->isWaiting()) << "it is read once";
    }
}

TEST(EditorLiveStore, readsTheMeetingsAgainWhereTheyWereSentForBeforeTheLoad) {
    const AnswerCase::Text old{"- old · today · 1 h · Ada · 3 lines"};
    for (const bool before : {true, false}) {
        LiveDaemon live;
        if (!before)
            live.store->tiles().showTiles({1}); // has the link
        live.store->meetings().loadMeetings();
        live.time += std::chrono::seconds(1);
        live.store->resetWorld();
        live.answer(before ? "meetingList" : "getThumbnail",
                    before ? GatewayResponse(old) : AnswerCase::Image{"AA==", "image/png"});
        live.answer("scopeBoard", AnswerCase::ScopeBoard());
        EXPECT_FALSE(live.store->meetings().meetingsLoaded());
        const GatewayResponse none = noMeetings, counts = page(0);
        live.answer(before ? "textBrowse" : "meetingList", before ? counts : none);
        live.answer(before ? "meetingList" : "textBrowse", before ? none : counts);
        EXPECT_FALSE(live.client->isWaiting());
        EXPECT_EQ(live.store->meetings().meetingCount(), 0);
        EXPECT_TRUE(live.store->meetings().meetingsLoaded());
    }
}

TEST(EditorLiveStore, mayGoWhileEverythingIsUnderWay) {
    const GatewayResponse answers[] = {AnswerCase::ScopeBoard(), page(0), noMeetings};
    for (std::size_t answered = 0; answered < std::size(answers); ++answered) {
        LiveDaemon live;
        live.store->resetWorld();
        for (std::size_t at = 0; at < answered; ++at)
            live.client->answer(answers[at]);
        live.store->tiles().showTiles({1, 2});
        live.store->mods().loadMods();
        std::optional<EditorAnswer> first, second;
        EditorAsk ask{.term = "x"};
        const auto one = live.keep(live.store->pages().query(ask, EditorAsker::page), first);
        ask.term = "y";
        const auto two = live.keep(live.store->pages().query(ask, EditorAsker::page), second);
        std::optional<EditorWriteOutcome> map, rule;
        const auto three = live.keep(live.store->scopes().mapFolder("/f", "/p"), map);
        const auto four = live.keep(live.store->rules().addRule("t", "w", {}, "/s"), rule);
        const auto told = live.changes.size();
        live.store.reset();
        EXPECT_TRUE(first && second && map && rule) << "nobody waits for ever";
        EXPECT_EQ(map, EditorWriteOutcome::refused("The window was closed before this was sent."));
        EXPECT_FALSE(first->ask || second->ask);
        live.client->answer(answers[answered]);
        EXPECT_FALSE(live.client->isWaiting());
        EXPECT_EQ(live.changes.size(), told);
    }
}

} // namespace
} // namespace wendlow
