#include "Search/EditorSearch.h"
#include "Support/ScriptedStore.h"

#include <QAbstractItemModelTester>

#include <gmock/gmock.h>

namespace wendlow::testing {
namespace {

using ::testing::Each;
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
         {Case{"b", "", ""}, Case{"ba b", "ba", "ba b"}, Case{"b c", "ba", "ba"},
          Case{" \t ", "ba", ""}, Case{"  ba ", "", "  ba "}, Case{"é", "ba", "ba"}})
        EXPECT_EQ(EditorSearch::reacting(text, current), term) << '"' << text << '"';
}

struct Searching {
    std::chrono::steady_clock::time_point now{};
    ScriptedPages pages;
    ScriptedMeetings meetings;
    ScriptedMods mods;
    ScriptedScopes scopes;
    EditorDetails details{pages};
    EditorSearch search{{.pages = pages,
                         .meetings = meetings,
                         .mods = mods,
                         .scopes = scopes,
                         .opensOn = [](EditorFace face) { return face == EditorFace::memory; }},
                        details,
                        {.steady = [this] { return now; }, .noticeable = 0ms}};
    QAbstractItemModelTester tester{search.hits()};
    std::vector<std::string> opened; ///< titles, with a star where a key did it

    Searching() {
        QObject::connect(&search, &EditorSearch::opened, [this](const FoundHit& found, bool byKey) {
            opened.push_back(found.hit.title + (byKey ? "*" : ""));
        });
    }
    EditorAnswer found(EditorMemoryHits rows) const { return settled(pages.asked.back(), rows); }
    /// Both questions are answered, the one of the moments with none.
    void find(EditorMemoryHits rows) {
        pages.answer(found(std::move(rows)));
        pages.settle();
    }
    void searchFor(const char* term, EditorMemoryHits rows) {
        search.setText(QString::fromUtf8(term));
        find(std::move(rows));
    }
    std::vector<std::string> titles() {
        std::vector<std::string> titles;
        for (const SearchHitRow& row : search.hits()->rows())
            titles.push_back(row.hit.title);
        return titles;
    }
    /// Answers all that is asked of why and body.
    void explain(const char* why) {
        for (auto at = pages.detailsAsked.size() - 1; pages.detailWaits(); ++at)
            pages.answerDetail(
                EditorMemoryDetail{.id = pages.detailsAsked[at], .why = why, .body = {}});
    }
    std::string subtitle() { return search.hits()->row(0).hit.subtitle; }
};

TEST(EditorSearch, AsksForMemoriesThenMomentsAndShowsBothAtOnce) {
    Searching window;
    auto& [now, pages, meetings, mods, scopes, details, search, tester, opened] = window;
    search.setText("backup");
    EXPECT_EQ(search.heading(), "Results for “backup”");
    EXPECT_TRUE(search.busy());
    EditorAsk wanted{.term = "backup"};
    wanted.limit = 24;
    EXPECT_EQ(pages.asked.back(), wanted);
    now += 12900us;
    pages.answer(window.found(memories(20)));
    wanted.kind = EditorKind::moment;
    wanted.limit = 5;
    EXPECT_EQ(pages.asked.back(), wanted);
    EXPECT_THAT(pages.askers, Each(EditorAsker::search));
    EXPECT_THAT(window.titles(), IsEmpty()) << "not before both have come";
    EXPECT_EQ(search.noMatches(), "");
    now += 31ms;
    EditorAnswer moments = window.found({});
    moments.moments = {{.id = "7", .title = "backup-plan.md"}};
    pages.answer(moments);
    EXPECT_EQ(search.timing(), "memories 12 ms · moments 31 ms");
    EXPECT_EQ(window.titles().size(), 6U) << "five of a type, and the moment";
    EXPECT_EQ(search.selectionIndex(), 0);
    EXPECT_FALSE(search.busy());
    window.explain("The backup did it.");
    EXPECT_EQ(pages.detailsAsked.size(), 16U) << "the first of them";
    EXPECT_EQ(window.subtitle(), "The backup did it.");
}

TEST(EditorSearch, WhatDidNotSearchIsNoHit) {
    Searching window;
    auto& [now, pages, meetings, mods, scopes, details, search, tester, opened] = window;
    search.setText("backup");
    EditorAnswer whole = window.found(memories(3));
    whole.narrowed = false;
    pages.answer(whole);
    pages.settle();
    EXPECT_THAT(window.titles(), IsEmpty());
    EXPECT_EQ(search.noMatches(), "No matches for “backup”.");
    EXPECT_EQ(search.selectionIndex(), -1);

    search.setText("backup plan");
    pages.answer(EditorAnswer::failed("The door is shut.", pages.asked.back()));
    pages.answer(EditorAnswer::failed("The door is shut.", pages.asked.back()));
    EXPECT_EQ(search.trouble(), "The door is shut.");
    EXPECT_EQ(search.noMatches(), "") << "nobody looked";

    search.setText("backup plans");
    pages.answer(window.found(memories(1)));
    pages.answer(EditorAnswer::failed("Gone.", pages.asked.back()));
    EXPECT_EQ(window.titles().size(), 1U);
    EXPECT_EQ(search.trouble(), "Gone.") << "half a page is not the whole";

    search.setText("backup plan");
    pages.answer(settled(EditorAsk{.term = "else"}, memories(2)));
    pages.settle();
    EXPECT_THAT(window.titles(), IsEmpty()) << "an answer to another question";
    EXPECT_EQ(search.trouble(), "Wendlow answered with something this mod does not understand.");
}

TEST(EditorSearch, EmptyingTheFieldEmptiesThePageAtOnce) {
    Searching window;
    auto& search = window.search;
    window.searchFor("backup", memories(3));
    search.setText("backup plan");
    EXPECT_EQ(window.titles().size(), 3U) << "the page stays until the next is complete";
    search.setText("");
    EXPECT_THAT(window.titles(), IsEmpty());
    EXPECT_FALSE(search.searching());
    EXPECT_EQ(search.timing(), "");
    window.pages.settle(memories(3));
    EXPECT_THAT(window.titles(), IsEmpty()) << "late";
}

TEST(EditorSearch, TheSelectionStopsAtTheEndsAndStaysWithItsHit) {
    Searching window;
    auto& [now, pages, meetings, mods, scopes, details, search, tester, opened] = window;
    search.moveBy(1);
    EXPECT_EQ(search.selectionIndex(), -1) << "there is nothing";
    window.searchFor("mara", memories(2));
    search.moveBy(-1);
    EXPECT_EQ(search.selectionIndex(), 0);
    search.moveBy(1);
    search.moveBy(1);
    EXPECT_EQ(search.selectionIndex(), 1);
    scopes.root.children = {{.id = "/mara", .title = "mara"}};
    meetings.list = {{.id = "m", .title = "Talk", .speakers = {"Mara"}}};
    search.rebuild();
    EXPECT_THAT(window.titles(), ElementsAre("Number 0", "Number 1", "Talk", "/mara"));
    search.moveBy(1);
    search.moveBy(1);
    meetings.list.reset();
    search.rebuild();
    EXPECT_EQ(search.selectionIndex(), 2);
    EXPECT_EQ(search.hits()->row(2).hit.title, "/mara");
    search.select(99);
    search.select(-5);
    EXPECT_EQ(search.selectionIndex(), 0);
}

TEST(EditorSearch, AHitThatWasOpenedLeadsBackToItsPage) {
    Searching window;
    auto& search = window.search;
    EXPECT_FALSE(search.goBack());
    window.searchFor("mara", memories(4));
    search.select(2);
    search.commit();
    EXPECT_THAT(window.opened, ElementsAre("Number 2*"));
    EXPECT_FALSE(search.searching());
    EXPECT_EQ(search.trail(), "Results for “mara”");
    const auto asked = window.pages.asked.size();
    EXPECT_TRUE(search.goBack());
    EXPECT_EQ(window.pages.asked.size(), asked) << "nothing has changed";
    EXPECT_EQ(search.text(), "mara");
    EXPECT_EQ(search.selectionIndex(), 2);
    EXPECT_EQ(search.trail(), "");
    // What the store held has changed meanwhile: the page is there at once, and read anew.
    search.commit();
    search.storeRead();
    EXPECT_TRUE(search.goBack());
    EXPECT_TRUE(search.busy());
    EXPECT_EQ(window.titles().size(), 4U);
    EditorMemoryHits fewer = memories(4);
    fewer.erase(fewer.begin());
    window.find(fewer);
    EXPECT_EQ(search.selectionIndex(), 1) << "the same row";
    search.commit();
    search.forgetTrail();
    EXPECT_FALSE(search.goBack());
}

TEST(EditorSearch, AHitOfAFaceToComeOpensInItsPlace) {
    Searching window;
    auto& search = window.search;
    window.meetings.list = {{.id = "m", .title = "Mara's talk", .speakers = {"Ada"}}};
    window.searchFor("mara", {memory("r", "rule", "Ask Mara")});
    const auto unfolded = [&](int row) {
        return search.hits()->data(search.hits()->index(row), SearchHitList::UnfoldedTextRole);
    };
    search.openHit(0);
    EXPECT_EQ(unfolded(0), "Mara's talk\nAda");
    search.openHit(1);
    window.explain("She knows.");
    EXPECT_EQ(unfolded(0), "") << "one at a time";
    EXPECT_EQ(unfolded(1), "Ask Mara\nShe knows.");
    EXPECT_THAT(window.opened, IsEmpty());
    EXPECT_EQ(search.selectionIndex(), 1);
    EXPECT_TRUE(search.foldUp());
    EXPECT_EQ(unfolded(1), "");
    EXPECT_FALSE(search.foldUp());
}

TEST(EditorSearch, WhatIsFoundHereDoesNotWaitForTheDaemon) {
    Searching window;
    auto& search = window.search;
    window.scopes.root.children = {{.id = "/mara", .title = "mara"}, {.id = "/jo", .title = "jo"}};
    search.setText("mara");
    EXPECT_THAT(window.titles(), IsEmpty()) << "it may be quick";
    QCoreApplication::processEvents();
    EXPECT_TRUE(search.slow());
    EXPECT_THAT(window.titles(), ElementsAre("/mara"));
    EXPECT_EQ(search.selectionIndex(), -1) << "Return waits for the page";
    search.moveBy(1);
    window.find({memory("a", "note", "New")});
    EXPECT_FALSE(search.slow());
    EXPECT_THAT(window.titles(), ElementsAre("New", "/mara"));
    EXPECT_EQ(search.selectionIndex(), 1) << "what was chosen stays so";
    search.setText("jo");
    QCoreApplication::processEvents();
    EXPECT_THAT(window.titles(), ElementsAre("New", "/jo")) << "what was found stays meanwhile";
    search.select(1);
    search.commit();
    EXPECT_NE(search.hits()->row(1).unfolded, "") << "it is of this term";
}

TEST(EditorSearch, AHitIsOfTheTermThatIsSearchedForNow) {
    Searching window;
    auto& [now, pages, meetings, mods, scopes, details, search, tester, opened] = window;
    window.searchFor("backup", {memory("a", "note", "Old")});
    search.setText("backups");
    search.commit();
    EXPECT_THAT(opened, IsEmpty()) << "what is selected is of the term before";
    window.find({memory("b", "note", "New"), memory("c", "note", "Newer")});
    EXPECT_THAT(opened, ElementsAre("New*"));
    opened.clear();
    // Who types on has not meant it.
    search.setText("back");
    search.commit();
    search.setText("backs");
    pages.settle(); // of the term before
    window.find({memory("b", "note", "New")});
    EXPECT_THAT(opened, IsEmpty());
    search.openHit(0);
    EXPECT_THAT(opened, ElementsAre("New"));
}

TEST(EditorSearch, WhyAndBodyComeForTheTermThatIsSearchedForNow) {
    Searching window;
    auto& [now, pages, meetings, mods, scopes, details, search, tester, opened] = window;
    window.searchFor("backup", memories(9));
    window.searchFor("backups", {memory("new", "note", "New")});
    pages.answerDetail(EditorMemoryDetail{.id = "decision0", .why = "left", .body = {}});
    EXPECT_THAT(pages.detailsAsked, ElementsAre("decision0", "new"));
    // The store has been read anew while they were under way.
    details.clear();
    search.storeRead();
    pages.answerDetail(EditorMemoryDetail{.id = "new", .why = "old backups", .body = {}});
    EXPECT_EQ(window.subtitle(), "note · /");
    pages.answerDetail(EditorMemoryDetail{.id = "new", .why = "the backups", .body = {}});
    EXPECT_EQ(window.subtitle(), "the backups");
}

} // namespace
} // namespace wendlow::testing
