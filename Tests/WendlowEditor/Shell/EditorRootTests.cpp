#include "Shell/ScriptedWindow.h"

#include <QAbstractItemModelTester>

#include <gmock/gmock.h>

namespace wendlow::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Scopes = std::set<std::string>;

using Window = ScriptedWindow;
struct EmptyWindow : ::testing::Test, Window {};
struct FullWindow : ::testing::Test, Window {
    FullWindow() : Window(memories(3)) {}
};

TEST_F(FullWindow, AsksOnceForEachKeyAndKeepsTheRowsMeanwhile) {
    auto& page = store.page;
    EXPECT_EQ(store.meeting.loads, 1);
    EXPECT_EQ(page.asked.size(), 1U);
    EXPECT_EQ(page.asked[0].limit, 50);
    EXPECT_THAT(page.askers, ElementsAre(EditorAsker::page));
    store.tell();
    EXPECT_EQ(page.asked.size(), 1U) << "the key is the same";
    root.page().details().request({"decision0"}, EditorAsker::page);
    page.answerDetail(EditorMemoryDetail{.id = "decision0", .why = "w", .body = "b"});

    store.grow();
    EXPECT_THAT(root.page().details().known(), IsEmpty());
    EXPECT_EQ(page.asked.size(), 2U);
    EXPECT_TRUE(pending());
    EXPECT_EQ(rows(), 3U) << "a refresh does not empty the page";
    page.settle(memories(4));
    EXPECT_EQ(rows(), 4U);
    EXPECT_TRUE(answer().ready());
}

TEST_F(FullWindow, DropsWhatIsLateOrAnswersSomethingElse) {
    const EditorAsk first = ask([](EditorAsk& ask) { ask.scopes = {"/a"}; });
    root.setAsk(first);
    root.setAsk(ask([](EditorAsk& ask) { ask.scopes = {"/b"}; }));
    store.page.answer(settled(first, memories(1)));
    store.page.answer(EditorAnswer::pending());
    EXPECT_EQ(rows(), 3U) << "the one is late, the other to no ask";
    EXPECT_TRUE(pending());
    EXPECT_FALSE(store.page.isWaiting()) << "nothing is asked twice";
    store.grow();
    store.page.settle(memories(5));
    EXPECT_EQ(rows(), 5U);
}

TEST_F(FullWindow, ShowsAStoreThatHasGivenUpAsFailedUntilItHasNot) {
    store.error = "The door is shut.";
    store.tell(EditorChange::error);
    EXPECT_EQ(face.strip(), "The door is shut.");
    EXPECT_TRUE(root.gaveUp());
    EXPECT_TRUE(answer().ready());
    root.setFace(EditorFace::mods);
    EXPECT_EQ(trouble(), "The door is shut.");
    root.setFace(EditorFace::memory);

    store.loadingNow = true;
    root.tryAgain();
    EXPECT_TRUE(root.isTrying());
    EXPECT_TRUE(face.reading()) << "everything is read afresh";
    EXPECT_EQ(root.page().shown()->rows.size(), 3U) << "and what there was stays meanwhile";
    store.page.settle(memories(3));
    EXPECT_EQ(face.strip(), "The door is shut.");
    store.error.reset();
    store.tell(EditorChange::error);
    EXPECT_EQ(face.strip(), "") << "at once";
    EXPECT_TRUE(root.isTrying());
    store.loadingNow = false;
    store.tell(EditorChange::error);
    EXPECT_FALSE(root.isTrying());
}

TEST(EditorRoot, SaysThatItStillWaitsAndLetsGoOfItWhenTold) {
    ScriptedStore store;
    EditorRoot root(store, {.patience = std::chrono::milliseconds(0)});
    QStringList told;
    QObject::connect(&root, &EditorRoot::told, [&](const QString& words) { told.append(words); });
    EXPECT_EQ(root.waitingWords(), "");
    QCoreApplication::processEvents();
    EXPECT_EQ(root.waitingWords(), "Still waiting for Wendlow…");
    EXPECT_EQ(told.join(u'|'), "Still waiting for Wendlow…");
    root.tryAgain();
    EXPECT_EQ(store.stops, 1) << "or what is asked now would wait behind it";
    EXPECT_EQ(root.waitingWords(), "");
    store.page.settle();
    store.page.answer(EditorAnswer::failed("No.", store.page.asked.back()));
    QCoreApplication::processEvents();
    EXPECT_EQ(root.waitingWords(), "") << "it has come";
    EXPECT_EQ(told.back(), "No.");
    root.tryAgain();
    EXPECT_EQ(store.stops, 1) << "nothing is stuck";
    EXPECT_TRUE(root.isTrying());
    store.page.settle();
    EXPECT_FALSE(root.isTrying());
}

TEST_F(EmptyWindow, LooksAgainWhereThereIsNothing) {
    EXPECT_EQ(store.mod.loads, 0);
    root.lookAgain();
    EXPECT_EQ(store.generationNow, 1);
    EXPECT_EQ(store.mod.loads, 1) << "behind the page";
    root.lookAgain();
    EXPECT_EQ(store.generationNow, 1) << "it is looking";
    store.page.types = {{.name = "note", .count = 1}};
    store.page.settle();
    root.lookAgain();
    EXPECT_EQ(store.generationNow, 1);
    store.error = "The door is shut.";
    root.lookAgain();
    EXPECT_EQ(store.generationNow, 2);
    EXPECT_EQ(store.mod.loads, 1) << "nobody is there to ask";
}

TEST_F(FullWindow, LooksAgainQuietlyAtWhatItShows) {
    store.page.types = {{.name = "decision", .count = 3}};
    face.open("decision");
    store.page.settle(memories(3));
    list.toggle(1);
    store.page.answerDetail(EditorMemoryDetail{.id = "decision1", .why = "w", .body = "b"});
    const QAbstractItemModelTester tester(list.lines());
    int turns = 0;
    QStringList told;
    QObject::connect(&list, &MemoriesModel::turned, [&] { ++turns; });
    QObject::connect(&root, &EditorRoot::told, [&](const QString& words) { told.append(words); });
    const auto asked = store.page.asked.size();

    root.lookAgain();
    root.lookAgain();
    EXPECT_EQ(store.page.asked.size(), asked + 1) << "it is looking";
    EXPECT_FALSE(pending() || face.refreshing());
    auto found = memories(3);
    found.insert(found.begin(), memory("new", "decision", "Filed meanwhile"));
    store.page.settle(found);
    EXPECT_EQ(list.lines()->row(0).title, "Filed meanwhile");
    EXPECT_EQ(list.openID(), "decision1");
    EXPECT_EQ(list.lines()->row(2).detail->body, "b") << "until the newer words are known";
    EXPECT_EQ(store.page.detailsAsked.back(), "decision1");
    store.page.answerDetail(EditorMemoryDetail{.id = "decision1", .why = "w", .body = "newer"});
    EXPECT_EQ(list.lines()->row(2).detail->body, "newer");
    EXPECT_EQ(store.looks, 1) << "at the rest of it";

    // What fails changes nothing, and a newer question is answered in place of a look.
    root.lookAgain();
    store.page.answer(EditorAnswer::failed("No.", store.page.asked.back()));
    EXPECT_EQ(rows(), 4U);
    EXPECT_EQ(face.strip(), "");
    root.lookAgain();
    root.setAsk(ask([](EditorAsk& ask) { ask.scopes = {"/b"}; }));
    store.page.answer(settled(store.page.asked[store.page.asked.size() - 2], memories(1)));
    EXPECT_TRUE(pending());
    store.page.settle(memories(2));
    EXPECT_EQ(rows(), 2U);
    EXPECT_EQ(store.looks, 1);
    EXPECT_EQ(store.generationNow, 0);
    EXPECT_EQ(turns, 1) << "by the person alone";
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(EmptyWindow, AHitLeadsBackToItsResultsAsLongAsItsPlaceIsOpen) {
    const auto open = [&] {
        root.search()->clear();
        while (store.page.isWaiting())
            store.page.settle(memories(3));
        search("number", memories(3));
        root.search()->openHit(1);
        if (store.page.isWaiting())
            store.page.settle(memories(3));
    };
    open();
    EXPECT_TRUE(root.back());
    EXPECT_TRUE(root.search()->searching());
    EXPECT_EQ(root.search()->selectionIndex(), 1);
    open();
    list.toggle(0);
    EXPECT_TRUE(root.back());
    EXPECT_FALSE(root.search()->searching()) << "what was opened since is closed first";
    EXPECT_TRUE(root.back());
    EXPECT_TRUE(root.search()->searching());
    for (const auto& leave :
         {std::function([&] { root.rail()->activate(0); }), std::function([&] { face.close(); }),
          std::function([&] { root.setFace(EditorFace::mods); })}) {
        open();
        leave();
        EXPECT_EQ(root.search()->trail(), "");
        EXPECT_FALSE(root.backToResults());
    }
}

TEST(EditorRoot, GoesWhileEverythingIsUnderWay) {
    ScriptedStore store;
    {
        EditorRoot root(store);
        root.search()->setText("backup");
        root.page().details().request({"a", "b"}, EditorAsker::page);
    }
    store.page.settle(memories(1));
    store.page.settle(memories(1));
    store.page.answerDetail(std::nullopt);
    EXPECT_EQ(store.page.asked.size(), 2U);
    EXPECT_THAT(store.page.detailsAsked, ElementsAre("a"));
}

TEST_F(FullWindow, AsksNothingOnceItHasRetired) {
    search("backup", memories(1));
    const auto asked = store.page.asked.size();
    const auto details = store.page.detailsAsked.size();
    root.retire();
    EXPECT_FALSE(root.search()->searching());
    root.search()->setText("backups");
    face.open("decision");
    root.setFace(EditorFace::mods);
    store.grow();
    root.page().details().request({"x"}, EditorAsker::page);
    EXPECT_EQ(store.page.asked.size(), asked);
    EXPECT_EQ(store.page.detailsAsked.size(), details);
}

TEST_F(EmptyWindow, WhatASearchFoundIsReadAnewWithTheStore) {
    search("backup", {memory("a")});
    store.grow();
    EXPECT_THAT(store.page.detailsAsked, ElementsAre("a", "a"));
}

TEST_F(EmptyWindow, AnOpenMemoryThatCannotBeReadSaysSoUntilItIsOpenedAgain) {
    face.open("decision");
    store.page.settle(memories(2));
    const auto says = [&](int role) {
        return list.lines()->data(list.lines()->index(1), role).toBool();
    };
    list.toggle(1);
    EXPECT_FALSE(says(MemoryLines::MissingRole));
    store.page.answerDetail(std::nullopt);
    EXPECT_TRUE(says(MemoryLines::MissingRole));
    EXPECT_FALSE(store.page.detailWaits()) << "it is not asked for in a circle";
    list.toggle(1);
    list.toggle(1);
    EXPECT_FALSE(says(MemoryLines::MissingRole)) << "it is under way";
    store.page.answerDetail(EditorMemoryDetail{.id = "decision1", .why = "w", .body = "b"});
    EXPECT_TRUE(says(MemoryLines::KnownRole));
    // What is shown outlives that nothing newer comes.
    store.grow();
    store.page.settle(memories(2));
    store.page.answerDetail(std::nullopt);
    EXPECT_TRUE(says(MemoryLines::KnownRole) && !says(MemoryLines::MissingRole));
}

TEST(EditorRoot, AChangeOfFaceDecidesWhatStays) {
    using Case = std::tuple<EditorFace, EditorFace, bool, EditorKind>;
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
            window.face.open("decision");
        const EditorAsk narrowed = window.ask([](EditorAsk& ask) {
            ask.scopes = {"/a"};
            ask.sort = EditorMemorySort::oldest;
            ask.filters = {{"owner", {EditorPick("Ines")}}};
        });
        window.root.setAsk(narrowed);
        window.root.setAsk(window.ask([](EditorAsk& ask) { ask.limit = 74; }));
        const auto asked = window.store.page.asked.size();
        window.root.setFace(to);
        EXPECT_EQ(window.store.page.asked.size(), asked + 1) << "one question for one change";
        EditorAsk wanted{.term = {}};
        wanted.kind = kind;
        if (keepsScopes) {
            wanted.scopes = {"/a"};
            wanted.sort = EditorMemorySort::oldest;
        }
        EXPECT_EQ(window.root.page().ask(), wanted) << static_cast<int>(from);
        EXPECT_EQ(window.face.openType(), std::nullopt);
        EXPECT_EQ(window.root.openFace()->showsScopeChip(), to != scopes);
        EXPECT_TRUE(window.root.model(to).isOpen() && !window.root.model(from).isOpen());
    }
}

TEST_F(EmptyWindow, AnotherQuestionBeginsOnItsFirstPage) {
    const auto far = ask([](EditorAsk& ask) { ask.limit = 5112; });
    root.setAsk(far);
    root.setAsk(far);
    EXPECT_EQ(root.page().ask().limit, 5112);
    root.setAsk(ask([&](EditorAsk& ask) {
        ask.sort = EditorMemorySort::oldest;
        ask.filters = {{"owner", {EditorPick("Ines")}}};
    }));
    EXPECT_EQ(root.page().ask().limit, 50);
    face.open("decision");
    EditorAsk wanted{.term = {}};
    wanted.type = "decision";
    wanted.sort = EditorMemorySort::oldest;
    EXPECT_EQ(root.page().ask(), wanted) << "and another type without filters";
}

TEST(EditorRoot, AHitOpensItsPlace) {
    using enum EditorFace;
    using Case = std::pair<SearchHit::Destination, EditorFace>;
    for (const auto& [destination, face] : {Case{SearchDestination::Memory{"ticket"}, memory},
                                            Case{SearchDestination::Rule{"/work"}, rules},
                                            Case{SearchDestination::Moment{"7"}, moments},
                                            Case{SearchDestination::Meeting{"m"}, meetings},
                                            Case{SearchDestination::Scope{"/x"}, scopes},
                                            Case{SearchDestination::Mod{"/", "m"}, mods}}) {
        Window window;
        window.root.search()->setText("backup");
        FoundHit found;
        found.hit.destination = destination;
        found.term = "backup";
        window.root.open(found);
        EXPECT_EQ(window.root.face(), face);
        EXPECT_EQ(window.face.openType().value_or(""), face == memory ? "ticket" : "");
        EXPECT_EQ(window.root.page().ask().scopes, face == rules ? Scopes{"/work"} : Scopes());
        EXPECT_EQ(window.root.search()->text(), "");
    }
}

TEST_F(EmptyWindow, AHitOfAMemoryUnfoldsItWithTheWordsMarked) {
    search("number 30", {memories(31).back()});
    root.search()->openHit(0);
    store.page.settle(memories(60));
    const auto& lines = list.lines()->rows();
    ASSERT_EQ(lines.size(), 36U) << "whole pages up to it";
    EXPECT_TRUE(lines[30].open);
    const auto* const model = list.lines();
    EXPECT_EQ(model->data(model->index(30), MemoryLines::TitleMarkupRole),
              "<b>Number</b> <b>30</b>");
    EXPECT_THAT(store.page.detailsAsked, Contains("decision30"));
}

TEST(EditorRoot, AHitThatWasNotReadStandsInFrontUntilSomethingElseIsAsked) {
    for (const std::string type : {"decision", "ticket"}) {
        Window window;
        window.face.open(type);
        window.store.page.settle(memories(50, type));
        auto& groups = *window.face.groups();
        groups.toggle(0); // closed
        window.search("number 98", {memories(99, type).back()});
        window.root.search()->openHit(0);
        const bool grouped = type == "ticket";
        const auto& lines = grouped ? groups.lines()->rows() : window.list.lines()->rows();
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

/// A face that may lie over the page, and has an ask of its own.
class ModalFace final : public FaceModel {
public:
    ModalFace(EditorFace face, QStringList& log) : m_face(face), m_log(log) {}

    EditorFace face() const override { return m_face; }
    QUrl page() const override { return {}; }
    bool isModal() const override { return m_face == EditorFace::mods; }
    void show(const FaceView& /*view*/) override {}
    void appear(EditorAsk& ask) override { ask.term = "own"; }
    bool back() override {
        m_log.append("back");
        return true;
    }
    void reveal(const FoundHit& found, EditorAsk& /*ask*/) override {
        m_log.append(QString::fromStdString(found.hit.title));
    }

private:
    const EditorFace m_face;
    QStringList& m_log;
};

TEST(EditorRoot, TellsAFaceWhatBefallsIt) {
    ScriptedStore store;
    QStringList log;
    EditorRoot root(store, {}, [&](EditorStore&, const FaceActions&) {
        std::vector<std::unique_ptr<FaceModel>> faces;
        for (const EditorFace face : EditorFaces::all)
            faces.push_back(std::make_unique<ModalFace>(face, log));
        return faces;
    });
    EXPECT_TRUE(root.beginsSearch(QStringLiteral("b")));
    EXPECT_FALSE(root.beginsSearch(QStringLiteral(" ")));
    root.rail()->activate(4);
    EXPECT_EQ(store.page.asked.back().term, "own") << "what it makes of the ask is asked";
    EXPECT_TRUE(root.isModal());
    EXPECT_FALSE(root.beginsSearch(QStringLiteral("b"))) << "something lies over the page";
    EXPECT_TRUE(root.back());
    FoundHit found;
    found.hit.title = "/a";
    found.hit.destination = SearchDestination::Scope{"/a"};
    root.open(found);
    EXPECT_EQ(log.join(u' '), "back /a");
    EXPECT_FALSE(root.isModal());
}

} // namespace
} // namespace wendlow::testing
