#include "Live/EditorLiveStore.h"
#include "Shell/EditorRoot.h"
#include "Support/ScriptedClient.h"
#include "Support/ScriptedStore.h"

#include <QAbstractItemModelTester>

#include <gmock/gmock.h>

namespace wendlow::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using namespace std::chrono_literals;

TEST(EditorSearch, ASingleLetterNeitherBeginsNorEndsASearch) {
    struct Case {
        const char* text;
        const char* current;
        const char* term;
    };
    for (const auto& [text, current, term] :
         {Case{"b", "", ""}, Case{"ba", "", "ba"}, Case{"ba b", "ba", "ba b"},
          Case{"b", "ba", "ba"}, Case{"b c", "ba", "ba"}, Case{" \t ", "ba", ""},
          Case{"  ba ", "", "  ba "}, Case{"é", "ba", "ba"}, Case{"\n", "ba", "ba"}})
        EXPECT_EQ(EditorSearch::reacting(text, current), term) << '"' << text << '"';
}

struct Searching {
    std::chrono::steady_clock::time_point now{};
    ScriptedStore store;
    EditorRoot root{store, {.steady = [this] { return now; }}};
    EditorSearch& search = *root.search();
    QAbstractItemModelTester tester{search.hits()};

    Searching() { store.page.settle(); }
    EditorAnswer found(EditorMemoryHits rows) const {
        return settled(store.page.asked.back(), rows);
    }
    EditorAnswer moments(std::vector<EditorMoment> rows) const {
        EditorAnswer answer = found({});
        answer.moments = std::move(rows);
        return answer;
    }
    std::vector<std::string> titles() const {
        std::vector<std::string> titles;
        for (const SearchHitRow& row : search.hits()->rows())
            titles.push_back(row.hit.title);
        return titles;
    }
};

TEST(EditorSearch, AsksForMemoriesThenMomentsAndShowsBothAtOnce) {
    Searching window;
    auto& [now, store, root, search, tester] = window;
    root.setOpenType("decision");
    store.page.settle();
    search.setText("backup");
    EXPECT_EQ(search.heading(), "Results for “backup”");
    EXPECT_TRUE(search.busy());
    EditorAsk wanted{.term = "backup"};
    wanted.limit = 24;
    EXPECT_EQ(store.page.asked.back(), wanted);
    now += 12900us;
    EditorMemoryHits rows = memories(20);
    store.page.answer(window.found(rows));
    wanted.kind = EditorKind::moment;
    wanted.limit = 5;
    EXPECT_EQ(store.page.asked.back(), wanted);
    EXPECT_THAT(window.titles(), IsEmpty()) << "not before both have come";
    EXPECT_EQ(search.noMatches(), "");
    now += 31ms;
    store.page.answer(window.moments({{.id = "7", .title = "backup-plan.md"}}));
    EXPECT_EQ(search.timing(), "memories 12 ms · moments 31 ms");
    EXPECT_EQ(window.titles().size(), 6U) << "five of a type, and the moment";
    EXPECT_EQ(search.selection(), 0U);
    EXPECT_FALSE(search.busy());
    // The first sixteen, one after the other.
    for (int at = 0; store.page.detailWaits(); ++at)
        store.page.answerDetail(
            EditorMemoryDetail{.id = rows[static_cast<std::size_t>(at)].memory.id,
                               .why = "The backup did it.",
                               .body = {}});
    EXPECT_EQ(store.page.detailsAsked.size(), 16U);
    EXPECT_EQ(search.hits()->row(0).hit.subtitle, "The backup did it.");
}

TEST(EditorSearch, WhatDidNotSearchIsNoHit) {
    Searching window;
    auto& [now, store, root, search, tester] = window;
    search.setText("backup");
    EditorAnswer whole = window.found(memories(3));
    whole.narrowed = false;
    store.page.answer(whole);
    store.page.settle();
    EXPECT_THAT(window.titles(), IsEmpty());
    EXPECT_EQ(search.noMatches(), "No matches for “backup”.");
    EXPECT_EQ(search.selection(), std::nullopt);

    search.setText("backup plan");
    store.page.answer(EditorAnswer::failed("The door is shut.", store.page.asked.back()));
    store.page.answer(EditorAnswer::failed("The door is shut.", store.page.asked.back()));
    EXPECT_EQ(search.trouble(), "The door is shut.");
    EXPECT_EQ(search.noMatches(), "") << "nobody looked";

    search.setText("backup plans");
    store.page.answer(window.found(memories(1)));
    store.page.answer(EditorAnswer::failed("Gone.", store.page.asked.back()));
    EXPECT_EQ(window.titles().size(), 1U);
    EXPECT_EQ(search.trouble(), "Gone.") << "half a page is not the whole";
}

TEST(EditorSearch, EmptyingTheFieldEmptiesThePageAtOnce) {
    Searching window;
    auto& [now, store, root, search, tester] = window;
    search.setText("backup");
    store.page.answer(window.found(memories(3)));
    store.page.settle();
    EXPECT_EQ(window.titles().size(), 3U);
    search.setText("backup plan");
    EXPECT_EQ(window.titles().size(), 3U) << "the page stays until the next is complete";
    search.setText("");
    EXPECT_THAT(window.titles(), IsEmpty());
    EXPECT_EQ(root.stage(), "memory");
    EXPECT_EQ(search.timing(), "");
    store.page.settle(memories(3));
    EXPECT_THAT(window.titles(), IsEmpty()) << "late";
}

TEST(EditorSearch, TheSelectionStopsAtTheEndsAndStaysWithItsHit) {
    Searching window;
    auto& [now, store, root, search, tester] = window;
    EXPECT_TRUE(search.move(SearchPage::Move::down)) << "handled, though there is nothing";
    search.setText("mara");
    store.page.answer(window.found(memories(2)));
    store.page.settle();
    EXPECT_TRUE(search.move(SearchPage::Move::up));
    EXPECT_EQ(search.selection(), 0U);
    search.move(SearchPage::Move::down);
    search.move(SearchPage::Move::down);
    EXPECT_EQ(search.selection(), 1U);
    store.scope.root.children = {{.id = "/mara", .title = "mara"}};
    store.meeting.list = {{.id = "m", .title = "Talk", .speakers = {"Mara"}}};
    store.tell();
    EXPECT_THAT(window.titles(), ElementsAre("Number 0", "Number 1", "Talk", "/mara"));
    search.move(SearchPage::Move::down);
    search.move(SearchPage::Move::down);
    store.meeting.list.reset();
    store.tell();
    EXPECT_EQ(search.selection(), 2U);
    EXPECT_EQ(search.selected()->id, "scope:/mara");
    root.commitSearchSelection();
    EXPECT_EQ(root.face(), EditorFace::scopes);
}

/// Ten seconds of typing, a key every 50 ms, against a daemon that takes 400 ms for an answer.
TEST(EditorSearch, APersonWhoTypesFasterThanTheDaemonAnswers) {
    std::chrono::steady_clock::time_point now{};
    const auto clock = [&now] { return now; };
    const auto client = std::make_shared<ScriptedClient>();
    EditorLiveStore store(client, {}, clock);
    EditorRoot root(store, {.steady = clock});
    std::size_t answered = 0;
    const auto answerOne = [&] {
        const std::string& request = client->sent()[answered++];
        if (request.find("textBrowse") == std::string::npos) {
            client->answer(AnswerCase::Failure{"not now"});
            return;
        }
        TextBrowseAnswer page;
        page.ready = page.narrowed = true;
        page.total = 1;
        client->answer(AnswerCase::TextBrowse{std::move(page)});
    };
    std::string typed;
    for (int key = 0; key < 200; ++key, now += 50ms) {
        typed = key % 25 == 24 ? "again" : typed + static_cast<char>('a' + key % 26);
        root.search()->setText(QString::fromStdString(typed));
        if (key % 8 == 7 && client->isWaiting())
            answerOne();
    }
    const auto browsesWhileTyping = client->sent().size();
    EXPECT_LE(browsesWhileTyping, 2U + 200 / 8) << "one for each answer, and no queue behind";
    while (client->isWaiting())
        answerOne();
    EXPECT_EQ(root.search()->term(), typed);
    EXPECT_FALSE(root.search()->busy()) << "what was typed last has been answered";
    EXPECT_TRUE(root.answer().ready()) << "and so has the page behind the search";
    EXPECT_NE(client->sent()[client->sent().size() - 2].find(typed), std::string::npos);
    EXPECT_LE(client->sent().size(), browsesWhileTyping + 5);
}

} // namespace
} // namespace wendlow::testing
