#include "DateWords.h"
#include "Search/EditorSearch.h"
#include "Search/SearchPage.h"
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
    using Case = std::array<const char*, 3>;
    for (const auto& [text, current, term] :
         {Case{"b", "", ""}, Case{"ba b", "ba", "ba b"}, Case{"b c", "ba", "ba"},
          Case{" \t ", "ba", ""}, Case{"  ba ", "", "  ba "}, Case{"é", "ba", "ba"}})
        EXPECT_EQ(EditorSearch::reacting(text, current), term) << '"' << text << '"';
}

struct EditorSearching : ::testing::Test {
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

    EditorSearching() {
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
        while (pages.detailWaits())
            pages.answerDetail(
                EditorMemoryDetail{.id = pages.detailToAnswer(), .why = why, .body = {}});
    }
    std::string subtitle() { return search.hits()->row(0).hit.subtitle; }
};

TEST_F(EditorSearching, AsksForMemoriesThenMomentsAndShowsBothAtOnce) {
    search.setText("backup");
    EXPECT_EQ(search.heading(), "Results for “backup”");
    EXPECT_TRUE(search.busy());
    EditorAsk wanted{.term = "backup"};
    wanted.limit = 24;
    EXPECT_EQ(pages.asked.back(), wanted);
    now += 12900us;
    pages.answer(found(memories(20)));
    wanted.kind = EditorKind::moment;
    wanted.limit = 5;
    EXPECT_EQ(pages.asked.back(), wanted);
    EXPECT_THAT(pages.askers, Each(EditorAsker::search));
    EXPECT_THAT(titles(), IsEmpty()) << "not before both have come";
    EXPECT_EQ(search.noMatches(), "");
    now += 31ms;
    EditorAnswer moments = found({});
    moments.moments = {{.id = "7", .title = "backup-plan.md"}};
    pages.answer(moments);
    EXPECT_EQ(search.timing(), "memories 12 ms · moments 31 ms");
    EXPECT_EQ(titles().size(), 6U) << "five of a type, and the moment";
    EXPECT_EQ(search.selectionIndex(), 0);
    EXPECT_FALSE(search.busy());
    explain("The backup did it.");
    EXPECT_EQ(pages.detailsAsked.size(), 16U) << "the first of them";
    EXPECT_EQ(subtitle(), "The backup did it.");
}

TEST_F(EditorSearching, WhatDidNotSearchIsNoHit) {
    search.setText("backup");
    EditorAnswer whole = found(memories(3));
    whole.narrowed = false;
    pages.answer(whole);
    pages.settle();
    EXPECT_THAT(titles(), IsEmpty());
    EXPECT_EQ(search.noMatches(), "No matches for “backup”.");
    EXPECT_EQ(search.selectionIndex(), -1);

    search.setText("backup plan");
    pages.answer(EditorAnswer::failed("The door is shut.", pages.asked.back()));
    pages.answer(EditorAnswer::failed("The door is shut.", pages.asked.back()));
    EXPECT_EQ(search.trouble(), "The door is shut.");
    EXPECT_EQ(search.noMatches(), "") << "nobody looked";

    search.setText("backup plans");
    pages.answer(found(memories(1)));
    pages.answer(EditorAnswer::failed("Gone.", pages.asked.back()));
    EXPECT_EQ(titles().size(), 1U);
    EXPECT_EQ(search.trouble(), "Gone.") << "half a page is not the whole";

    search.setText("backup plan");
    pages.answer(settled(EditorAsk{.term = "else"}, memories(2)));
    pages.settle();
    EXPECT_THAT(titles(), IsEmpty()) << "an answer to another question";
    EXPECT_EQ(search.trouble(), "Wendlow answered with something this mod does not understand.");
}

TEST_F(EditorSearching, EmptyingTheFieldEmptiesThePageAtOnce) {
    searchFor("backup", memories(3));
    search.setText("backup plan");
    EXPECT_EQ(titles().size(), 3U) << "the page stays until the next is complete";
    search.setText("");
    EXPECT_THAT(titles(), IsEmpty());
    EXPECT_FALSE(search.searching());
    EXPECT_EQ(search.timing(), "");
    pages.settle(memories(3));
    EXPECT_THAT(titles(), IsEmpty()) << "late";
}

TEST_F(EditorSearching, TheSelectionStopsAtTheEndsAndStaysWithItsHit) {
    search.moveBy(1);
    EXPECT_EQ(search.selectionIndex(), -1) << "there is nothing";
    searchFor("mara", memories(2));
    search.moveBy(-1);
    EXPECT_EQ(search.selectionIndex(), 0);
    search.moveBy(1);
    search.moveBy(1);
    EXPECT_EQ(search.selectionIndex(), 1);
    scopes.root.children = {{.id = "/mara", .title = "mara"}};
    meetings.list = {{.id = "m", .title = "Talk", .speakers = {"Mara"}}};
    search.rebuild();
    EXPECT_THAT(titles(), ElementsAre("Number 0", "Number 1", "Talk", "/mara"));
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

TEST_F(EditorSearching, AHitThatWasOpenedLeadsBackToItsPage) {
    EXPECT_FALSE(search.goBack());
    searchFor("mara", memories(4));
    search.select(2);
    search.commit();
    EXPECT_THAT(opened, ElementsAre("Number 2*"));
    EXPECT_FALSE(search.searching());
    EXPECT_EQ(search.trail(), "Results for “mara”");
    const auto asked = pages.asked.size();
    EXPECT_TRUE(search.goBack());
    EXPECT_EQ(pages.asked.size(), asked) << "nothing has changed";
    EXPECT_EQ(search.text(), "mara");
    EXPECT_EQ(search.selectionIndex(), 2);
    EXPECT_EQ(search.trail(), "");
    // What the store held has changed meanwhile: the page is there at once, and read anew.
    search.commit();
    search.storeRead();
    EXPECT_TRUE(search.goBack());
    EXPECT_TRUE(search.busy());
    EXPECT_EQ(titles().size(), 4U);
    EditorMemoryHits fewer = memories(4);
    fewer.erase(fewer.begin());
    find(fewer);
    EXPECT_EQ(search.selectionIndex(), 1) << "the same row";
    search.commit();
    search.forgetTrail();
    EXPECT_FALSE(search.goBack());
}

TEST_F(EditorSearching, AHitOfAFaceToComeOpensInItsPlace) {
    meetings.list = {{.id = "m", .title = "Mara's talk", .speakers = {"Ada"}}};
    searchFor("mara", {memory("r", "rule", "Ask Mara")});
    const auto unfolded = [&](int row) {
        return search.hits()->data(search.hits()->index(row), SearchHitList::UnfoldedTextRole);
    };
    search.openHit(0);
    EXPECT_EQ(unfolded(0), "Mara's talk\nAda");
    search.openHit(1);
    explain("She knows.");
    EXPECT_EQ(unfolded(0), "") << "one at a time";
    EXPECT_EQ(unfolded(1), "Ask Mara\nShe knows.");
    EXPECT_THAT(opened, IsEmpty());
    EXPECT_EQ(search.selectionIndex(), 1);
    EXPECT_TRUE(search.foldUp());
    EXPECT_EQ(unfolded(1), "");
    EXPECT_FALSE(search.foldUp());
}

TEST_F(EditorSearching, WhatIsFoundHereDoesNotWaitForTheDaemon) {
    scopes.root.children = {{.id = "/mara", .title = "mara"}, {.id = "/jo", .title = "jo"}};
    search.setText("mara");
    EXPECT_THAT(titles(), IsEmpty()) << "it may be quick";
    QCoreApplication::processEvents();
    EXPECT_TRUE(search.slow());
    EXPECT_THAT(titles(), ElementsAre("/mara"));
    EXPECT_EQ(search.selectionIndex(), -1) << "Return waits for the page";
    search.moveBy(1);
    find({memory("a", "note", "New")});
    EXPECT_FALSE(search.slow());
    EXPECT_THAT(titles(), ElementsAre("New", "/mara"));
    EXPECT_EQ(search.selectionIndex(), 1) << "what was chosen stays so";
    search.setText("jo");
    QCoreApplication::processEvents();
    EXPECT_THAT(titles(), ElementsAre("New", "/jo")) << "what was found stays meanwhile";
    search.select(1);
    search.commit();
    EXPECT_NE(search.hits()->row(1).unfolded, "") << "it is of this term";
}

TEST_F(EditorSearching, AHitIsOfTheTermThatIsSearchedForNow) {
    searchFor("backup", {memory("a", "note", "Old")});
    search.setText("backups");
    search.commit();
    EXPECT_THAT(opened, IsEmpty()) << "what is selected is of the term before";
    find({memory("b", "note", "New"), memory("c", "note", "Newer")});
    EXPECT_THAT(opened, ElementsAre("New*"));
    opened.clear();
    // Who types on has not meant it.
    search.setText("back");
    search.commit();
    search.setText("backs");
    pages.settle(); // of the term before
    find({memory("b", "note", "New")});
    EXPECT_THAT(opened, IsEmpty());
    search.openHit(0);
    EXPECT_THAT(opened, ElementsAre("New"));
}

TEST_F(EditorSearching, WhyAndBodyComeForTheTermThatIsSearchedForNow) {
    searchFor("backup", memories(9));
    searchFor("backups", {memory("new", "note", "New")});
    pages.answerDetail(EditorMemoryDetail{.id = "decision0", .why = "left", .body = {}});
    EXPECT_THAT(pages.detailsAsked, ElementsAre("decision0", "new"));
    // The store has been read anew while they were under way.
    details.clear();
    search.storeRead();
    pages.answerDetail(EditorMemoryDetail{.id = "new", .why = "old backups", .body = {}});
    EXPECT_EQ(subtitle(), "note · /");
    pages.answerDetail(EditorMemoryDetail{.id = "new", .why = "the backups", .body = {}});
    EXPECT_EQ(subtitle(), "the backups");
}

TEST_F(EditorSearching, LooksAgainQuietlyForTheSame) {
    QStringList told;
    searchFor("backup", memories(3));
    explain("The backup did it.");
    QObject::connect(&search, &EditorSearch::told, [&](const QString& it) { told.append(it); });
    search.select(2);
    details.clear();
    search.lookAgain();
    EXPECT_FALSE(search.busy());
    EXPECT_EQ(subtitle(), "The backup did it.") << "until it is known anew";
    auto more = memories(3);
    more.insert(more.begin(), memory("new", "decision", "Filed meanwhile"));
    find(more);
    EXPECT_EQ(titles().front(), "Filed meanwhile");
    EXPECT_EQ(search.selectionIndex(), 3) << "the same hit";
    explain("It was a test.");
    search.lookAgain();
    pages.answer(EditorAnswer::failed("No.", pages.asked.back()));
    pages.settle();
    EXPECT_EQ(titles().size(), 4U);
    EXPECT_EQ(search.trouble(), "");
    EXPECT_EQ(told.join(u'|'), "");
    // One that a newer term has overtaken comes to nothing.
    search.lookAgain();
    search.setText("mara");
    pages.settle(memories(5));
    EXPECT_TRUE(search.busy());
    find({memory("m", "note", "Mara")});
    EXPECT_EQ(titles().size(), 1U);
}

TEST(SearchPage, putsWhatWasFoundUnderItsHeadings) {
    const EditorMemoryHits memories{
        memory("1", "ticket", "Boat shed", "/work"), memory("2", "rule", "On boats", "/work"),
        memory("3", "entry", "x", "/work"),          memory("4", "mod", "boat", "/work"),
        memory("5", "ticket", "y", "/work"),         memory("6", "entry", "z", "/work")};
    const MemoryDetails details{{"1", EditorMemoryDetail{"1", "boat why", ""}},
                                {"3", EditorMemoryDetail{"3", "", "the body has a boat in it"}},
                                {"4", std::nullopt},
                                {"5", EditorMemoryDetail{"5", "why a BOAT", "boat body"}}};
    EditorMoment titled{.id = "m1", .at = editorDate(0), .title = "Boat talk"};
    titled.abstract = "about a boat";
    EditorMoment bare{.id = "m2", .at = editorDate(0)};
    bare.abstract = "about a boat";
    EditorMoment told{.id = "m3", .at = editorDate(0), .title = "Boat"};
    told.passage = "as the daemon says";
    std::vector<EditorMeeting> meetings{
        {"meeting:boatcall:1", {}, {}, "2026-01-02", "10:00", "11:00", "1 h", {"Ada", "Lin"}},
        {.id = "b", .title = "Plain", .day = "2026-01-03", .speakers = {"BOATSWAIN"}},
        {.id = "c", .title = "Nothing"}};
    const std::vector<EditorInstalledMod> mods{{.slug = "tidy", .scope = "/boat", .hint = "tidies"},
                                               {.slug = "other"}};
    const std::vector<std::string> paths{"/", "/boat", "/work"};
    const auto sections = SearchPage::build({.term = "boat",
                                             .memories = memories,
                                             .moments = {titled, bare, told},
                                             .meetings = meetings,
                                             .mods = &mods,
                                             .scopePaths = paths,
                                             .details = details});
    const QString date = DateWords::dateAndTime(editorDate(0));
    const QDateTime ten(QDate(2026, 1, 2), QTime(10, 0));
    const auto seconds = static_cast<double>(ten.toSecsSinceEpoch());
    const QString begin = DateWords::dateAndTime(editorDate(seconds));
    std::string page;
    for (const auto& [title, hits] : sections) {
        page += "# " + title + "\n";
        for (const auto& hit : hits)
            page += hit.id + " | " + hit.title + " | " + hit.subtitle + " | " + hit.symbol + "\n";
    }
    const QString expected = R"(# tickets
memory:1 | Boat shed | ticket · /work | doc.text.fill
memory:5 | y | why a BOAT | doc.text.fill
# entries
memory:3 | x | the body has a boat in it | doc.text.fill
memory:6 | z | entry · /work | doc.text.fill
# Meetings
meeting:meeting:boatcall:1 | 2026-01-02 · 10:00–11:00 | %1 · 1 h · Ada, Lin | person.2.fill
meeting:b | Plain | 2026-01-03 · BOATSWAIN | person.2.fill
# Moments
moment:m1 | Boat talk | %2 | square.stack.3d.down.right
moment:m2 | %2 | about a boat | square.stack.3d.down.right
moment:m3 | Boat | as the daemon says | square.stack.3d.down.right
# Rules
rule:2 | On boats | rule · /work | scroll.fill
# Mods
app:/boat:tidy | tidy | /boat · tidies | square.grid.2x2.fill
# Scopes
scope:/boat | /boat |  | network
)";
    EXPECT_EQ(page, expected.arg(begin, date).toStdString());
    EXPECT_EQ(std::get<SearchDestination::Rule>(sections[4].hits[0].destination).scope, "/work");
}

} // namespace
} // namespace wendlow::testing
