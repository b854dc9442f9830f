#include "Memories/EditorDayFormat.h"
#include "Memories/MemoryFaceModel.h"
#include "Support/ScriptedStore.h"

#include <QAbstractItemModelTester>
#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>

#include <ctime>

#include <gmock/gmock.h>

namespace wendlow::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

/// The face with an ask that it changes itself; the test answers.
struct Face {
    ScriptedPages pages;
    EditorAsk ask{.term = {}};
    EditorAnswer answer;
    std::int64_t generation = 0;
    MemoryDetails details;
    std::vector<std::string> requested;
    int changes = 0;
    MemoryFaceModel model{pages,
                          {.ask =
                               [this](EditorAsk next) {
                                   ++changes;
                                   ask = std::move(next);
                                   show();
                               },
                           .requestDetails =
                               [this](const std::vector<std::string>& ids) {
                                   requested.insert(requested.end(), ids.begin(), ids.end());
                               },
                           .today = [] { return EditorDate(std::chrono::hours(24 * 20010)); }}};
    QAbstractItemModelTester listTester{model.list()->lines()};
    QAbstractItemModelTester groupsTester{model.groups()->lines()};
    QAbstractItemModelTester chipsTester{model.list()->filters()->chips()};
    QAbstractItemModelTester valuesTester{model.list()->filters()->values()};

    explicit Face(std::optional<std::string> open = "decision") {
        model.setOpen(true);
        model.open(std::move(open));
        changes = 0;
    }
    void show() {
        model.show({.ask = ask,
                    .answer = std::make_shared<const EditorAnswer>(answer),
                    .counted = answer.ready(),
                    .generation = generation,
                    .details = details});
    }
    void settle(EditorMemoryHits rows) {
        answer = settled(ask, std::move(rows));
        show();
    }
    static QVariant data(const QAbstractItemModel& of, int row, int role) {
        return of.data(of.index(row, 0), role);
    }
    QStringList column(const QAbstractItemModel& of, int role) const {
        QStringList all;
        for (int row = 0; row < of.rowCount(); ++row)
            all.append(data(of, row, role).toString());
        return all;
    }
    QString rail() const {
        QStringList rows;
        for (const RailRow& row : model.railRows())
            rows.append(QStringLiteral("%1 %2%3")
                            .arg(QString::fromStdString(row.title))
                            .arg(row.count.value_or(-1))
                            .arg(row.dimmed ? QStringLiteral(" dimmed") : QString()));
        return rows.join(QStringLiteral("; "));
    }
    MemoriesModel& list() { return *model.list(); }
    FilterBarModel& filters() { return *model.list()->filters(); }
};

TEST(MemoriesModel, IsAlwaysAPageAhead) {
    for (const auto& [visible, limit] : {std::pair{12, 50}, {38, 50}, {39, 51}, {48, 60}})
        EXPECT_EQ(MemoriesModel::limitFor(visible), limit);
    Face face;
    face.settle(memories(50));
    auto& lines = *face.list().lines();
    EXPECT_EQ(lines.rowCount(), 12);
    face.list().rowAppeared(10);
    QCoreApplication::processEvents();
    EXPECT_EQ(lines.rowCount(), 12);
    EXPECT_THAT(face.requested, ElementsAre("decision10"));
    for (const int shown : {24, 36, 48}) {
        face.list().rowAppeared(lines.rowCount() - 1);
        face.list().rowAppeared(lines.rowCount() - 1);
        EXPECT_EQ(lines.rowCount(), shown - 12) << "not while the list lays itself out";
        QCoreApplication::processEvents();
        EXPECT_EQ(lines.rowCount(), shown);
    }
    EXPECT_EQ(face.changes, 1) << "the limit stays up to 38 rows";
    EXPECT_EQ(face.ask.limit, 60);
    face.list().rowAppeared(47);
    QCoreApplication::processEvents();
    EXPECT_EQ(lines.rowCount(), 50);
    face.list().rowAppeared(49);
    QCoreApplication::processEvents();
    EXPECT_EQ(face.list().visibleCount(), 60) << "no more rows are held";
}

TEST(MemoriesModel, SaysHowManyByWhatCutsThem) {
    const auto line = [](bool narrowed, bool chips, int total) {
        Face face;
        if (chips)
            face.ask.scopes = {"/a"};
        face.answer = settled(face.ask);
        face.answer.narrowed = narrowed;
        face.answer.total = total;
        face.answer.sliceTotal = 182;
        face.show();
        return face.list().countLine();
    };
    EXPECT_EQ(line(true, false, 37), "37 of 182");
    EXPECT_EQ(line(false, true, 37), "37 of 182");
    EXPECT_EQ(line(false, false, 1), "1 memory");
    EXPECT_EQ(line(false, false, 0), "0 memories");
    EXPECT_EQ(line(false, false, 2), "2 memories");
    EXPECT_EQ(Face().list().countLine(), "");
}

TEST(MemoriesModel, EachStateSaysItsOwn) {
    using namespace EditorAnswerStateCase;
    struct Case {
        EditorAnswerState state;
        int rows;
        const char* term;
        const char* strip;
        const char* empty;
    };
    const char* const warming =
        "Searching your memories will be ready in a moment — the index is still building.";
    for (const auto& [state, rows, term, strip, empty] :
         {Case{Pending{}, 0, "", "", "Reading your memories…"}, Case{Pending{}, 2, "", "", ""},
          Case{Warming{}, 0, "", warming, ""}, Case{Failed{"No."}, 0, "", "No.", ""},
          Case{Settled{}, 0, "", "", "Nothing here yet."},
          Case{Settled{}, 0, "back", "", "Nothing matches “back”"},
          Case{Settled{}, 2, "back", "", ""}}) {
        Face face;
        face.ask.term = term;
        face.answer = settled(face.ask, memories(rows));
        face.answer.state = state;
        face.show();
        EXPECT_EQ(face.model.strip(), strip);
        EXPECT_EQ(face.list().emptyWords(), empty);
        EXPECT_EQ(face.model.stripWarns(), std::holds_alternative<Failed>(state));
    }
    Face grid(std::nullopt);
    grid.show();
    EXPECT_EQ(grid.model.emptyWords(), "Reading your memories…");
    grid.settle({});
    EXPECT_EQ(grid.model.emptyWords(), "Nothing here yet.");
    EXPECT_FALSE(grid.model.isFilled());
    grid.pages.types = {{.name = "entry", .count = 3}, {.name = "rule", .count = 9}};
    grid.show();
    EXPECT_TRUE(grid.model.isFilled());
    EXPECT_THAT(grid.column(*grid.model.cards(), TypeCards::TitleRole), ElementsAre("entries"));
    grid.model.openCard(0);
    EXPECT_EQ(grid.model.openType(), "entry");
}

TEST(MemoriesModel, ARefreshMovesOnlyWhatHasMoved) {
    Face face;
    face.settle(memories(12));
    face.details["decision3"] = {.id = "decision3", .why = "Because.", .body = ""};
    face.show();
    auto& lines = *face.list().lines();
    const QPersistentModelIndex focused(lines.index(3));
    QStringList removed;
    QObject::connect(&lines, &QAbstractItemModel::rowsRemoved,
                     [&](const QModelIndex&, int first, int last) {
                         removed.append(QStringLiteral("%1-%2").arg(first).arg(last));
                     });
    EditorMemoryHits rows = memories(12);
    rows.erase(rows.begin() + 7);
    rows.insert(rows.begin(), memory("new"));
    std::rotate(rows.begin(), rows.begin() + 11, rows.end());
    face.details.clear();
    face.settle(rows);
    EXPECT_THAT(removed, ElementsAre("7-7"));
    EXPECT_EQ(focused.row(), 5);
    EXPECT_EQ(Face::data(lines, 5, MemoryLines::SublineRole), "Because.") << "until newer is known";
    EXPECT_EQ(Face::data(lines, 5, MemoryLines::StaleRole), true);
    std::ranges::reverse(rows);
    face.settle(rows);
    EXPECT_EQ(lines.row(11).id, "m:" + rows[11].memory.id);
    // What an answer holds twice is shown twice, and one type's rows are never another's.
    face.settle({memory("a"), memory("a"), memory("b")});
    EXPECT_EQ(lines.rowCount(), 3);
    face.model.open("finding");
    EXPECT_EQ(lines.rowCount(), 0);
}

TEST(MemoriesModel, GoesOnForWhoScrollsFasterThanTheStoreAnswers) {
    Face face;
    const auto settle = [&](int rows) {
        face.settle(memories(rows));
        QCoreApplication::processEvents();
        return face.list().visibleCount();
    };
    EXPECT_EQ(settle(12), 12);
    face.list().rowAppeared(11);
    EXPECT_EQ(settle(12), 12) << "no more rows are held";
    EXPECT_EQ(settle(50), 24);
    EXPECT_EQ(settle(51), 24) << "once for each time that the last row comes in sight";
}

TEST(MemoriesModel, ReadingOnTouchesNoRowThatIsThere) {
    Face face;
    auto& lines = *face.list().lines();
    QStringList seen;
    QObject::connect(&lines, &QAbstractItemModel::rowsInserted,
                     [&](const QModelIndex&, int first, int last) {
                         seen.append(QStringLiteral("+%1-%2").arg(first).arg(last));
                     });
    QObject::connect(&lines, &QAbstractItemModel::rowsRemoved, [&] { seen.append("removed"); });
    QObject::connect(&lines, &QAbstractItemModel::dataChanged, [&](const QModelIndex& first) {
        seen.append(QStringLiteral("~%1").arg(first.row()));
    });
    const auto seenBy = [&](const std::function<void()>& act) {
        seen.clear();
        act();
        return seen.join(u' ');
    };
    EditorMemoryHits rows = memories(60);
    EXPECT_EQ(seenBy([&] { face.settle(memories(50)); }), "+0-11");
    face.list().rowAppeared(11);
    EXPECT_EQ(seenBy([] { QCoreApplication::processEvents(); }), "+12-23");
    EXPECT_EQ(seenBy([&] { face.settle(rows); }), "");
    EXPECT_EQ(seenBy([&] { face.list().toggle(3); }), "~3");
    face.details["decision5"] = {.id = "decision5", .why = "Because.", .body = ""};
    EXPECT_EQ(seenBy([&] { face.show(); }), "~5");
    EXPECT_EQ(Face::data(lines, 5, MemoryLines::SublineRole), "Because.");
    EXPECT_EQ(seenBy([&] { face.list().toggle(4); }), "~3 ~4");
    face.details.clear();
    EXPECT_EQ(seenBy([&] { face.show(); }), "~5") << "is out of date";
    rows[0].memory.title = "Another";
    EXPECT_EQ(seenBy([&] { face.settle(rows); }), "~0");
    rows.erase(rows.begin() + 20, rows.end());
    EXPECT_EQ(seenBy([&] { face.settle(rows); }), "removed");
}

TEST(MemoriesModel, ARowOpensToItsWhyAndBody) {
    Face face;
    EditorMemoryHit hit = memory("x", "decision", "Keep <two> copies", "/work");
    hit.memory.filters = {{"area", "press"}, {"owner", "Ines"}, {"with", "Jonas"}};
    face.ask.term = "backup";
    face.answer = settled(face.ask, {hit});
    face.answer.filterKeyCounts = {{.name = "with", .count = 3}, {.name = "status", .count = 1}};
    face.show();
    face.list().toggle(0);
    EXPECT_THAT(face.requested, ElementsAre("x"));
    auto& lines = *face.list().lines();
    EXPECT_EQ(Face::data(lines, 0, MemoryLines::KnownRole), false);
    face.details["x"] = {.id = "x", .why = "One\ntwo.", .body = "The backup & more"};
    face.show();
    EXPECT_EQ(Face::data(lines, 0, MemoryLines::SublineRole), "The backup & more");
    EXPECT_EQ(Face::data(lines, 0, MemoryLines::TitleMarkupRole), "Keep &lt;two&gt; copies");
    EXPECT_EQ(Face::data(lines, 0, MemoryLines::WhyRole), "One<br>two.");
    EXPECT_EQ(Face::data(lines, 0, MemoryLines::BodyRole), "The <b>backup</b> &amp; more");
    EXPECT_EQ(Face::data(lines, 0, MemoryLines::FactsRole),
              "/work · with Jonas · area press · owner Ines");
    face.list().toggle(0);
    EXPECT_EQ(Face::data(lines, 0, MemoryLines::BodyRole), "");
}

TEST(MemoryFace, CountsWhatTheLastAnswerAboutMemoriesCounted) {
    Face face(std::nullopt);
    EXPECT_EQ(face.rail(), "MEMORIES -1") << "nothing has been read";
    EXPECT_TRUE(Face("decision").model.railRows().front().here);
    face.pages.types = {{.name = "entry", .count = 30}, {.name = "rule", .count = 9}};
    face.settle({});
    EXPECT_EQ(face.rail(), "MEMORIES 30; entries 30");
    const auto narrowed = [&](EditorKind kind, std::int64_t count) {
        face.ask.kind = kind;
        face.answer = settled(face.ask);
        face.answer.narrowed = true;
        if (count > 0)
            face.answer.typeCounts = {{.name = "entry", .count = count}};
        face.show();
    };
    face.ask.scopes = {"/a"};
    narrowed(EditorKind::memory, 7);
    EXPECT_EQ(face.rail(), "MEMORIES 30; entries 7");
    narrowed(EditorKind::moment, 0);
    EXPECT_EQ(face.rail(), "MEMORIES 30; entries 7") << "moments are no memories";
    face.ask.kind = EditorKind::memory;
    face.show();
    EXPECT_EQ(Face::data(*face.model.cards(), 0, TypeCards::CountRole), "7");
    face.ask.scopes = {"/b"};
    face.show();
    EXPECT_EQ(face.rail(), "MEMORIES 30; entries 30") << "of other scopes";
    narrowed(EditorKind::memory, 0);
    EXPECT_EQ(face.rail(), "MEMORIES 30; entries 0 dimmed");
}

TEST(MemoriesModel, AnotherQuestionBeginsOnItsFirstPage) {
    Face face;
    const auto readOn = [&] {
        face.list().rowAppeared(face.list().lines()->rowCount() - 1);
        QCoreApplication::processEvents();
    };
    face.settle(memories(50));
    readOn();
    readOn();
    ASSERT_EQ(face.list().visibleCount(), 36);
    face.list().sortBy(QStringLiteral("oldest"));
    EXPECT_EQ(face.list().lines()->rowCount(), 36) << "what is there stays meanwhile";
    readOn();
    EXPECT_EQ(face.list().lines()->rowCount(), 36) << "and is not read on";
    face.settle(memories(50));
    EXPECT_EQ(face.list().lines()->rowCount(), 12);
    readOn();
    EXPECT_EQ(face.list().lines()->rowCount(), 24);
}

TEST(MemoriesModel, SortsByTheWordsOfItsBar) {
    Face face;
    face.settle({});
    const auto picked = [&] {
        QStringList words;
        for (const QVariant& each : face.list().sorts())
            if (each.toMap()[QStringLiteral("picked")].toBool())
                words.append(each.toMap()[QStringLiteral("word")].toString());
        return words.join(u' ');
    };
    EXPECT_EQ(picked(), "newest") << "what the answer is really in";
    face.list().sortBy(QStringLiteral("relevance"));
    EXPECT_EQ(face.ask.sort, EditorMemorySort::relevance);
    EXPECT_EQ(picked(), "relevance");
    face.list().sortBy(QStringLiteral("relevance"));
    face.list().sortBy(QStringLiteral("nonsense"));
    EXPECT_EQ(face.changes, 1);
}

TEST(FilterBar, PicksMakeFiltersAndLeaveNoTrace) {
    Face face;
    face.answer = settled(face.ask);
    face.answer.filterKeyCounts = {{.name = "project", .count = 9}, {.name = "scope", .count = 1}};
    face.answer.filterValueCounts = {
        {"project", {{.name = "atlas", .count = 5}, {.name = "3", .count = 4}}}};
    face.answer.scopeCounts = {{.name = "/a", .count = 2}};
    face.show();
    auto& bar = face.filters();
    const auto labels = [&] {
        return face.column(*bar.chips(), FilterChips::LabelRole).join(u' ');
    };
    EXPECT_EQ(labels(), "scope project scope");
    const EditorAsk before = face.ask;
    bar.togglePanel(QStringLiteral("scope"));
    bar.togglePanel(QStringLiteral("project"));
    EXPECT_THAT(face.column(*bar.chips(), FilterChips::OpenRole),
                ElementsAre("false", "true", "false"))
        << "opening a second closes the first";
    face.ask.offset = 7;
    face.show();
    bar.toggleValue(0);
    bar.toggleValue(1);
    EXPECT_EQ(face.ask.offset, 0);
    EXPECT_THAT(names(face.ask.filters.at("project")), ElementsAre("3", "atlas"));
    EXPECT_EQ(Face::data(*bar.chips(), 1, FilterChips::PicksRole), 2);
    // An answer that counts them no more leaves them to be unpicked.
    face.answer = settled(face.ask);
    face.show();
    EXPECT_EQ(labels(), "scope project");
    EXPECT_THAT(face.column(*bar.values(), FilterValues::PickedRole), ElementsAre("true", "true"));
    bar.toggleValue(0);
    bar.toggleValue(0);
    EXPECT_EQ(face.ask, before) << "a key without picks is gone";
    EXPECT_FALSE(bar.picked());

    bar.togglePanel(QString::fromUtf8(FilterBarModel::scopeKey));
    face.answer.scopeCounts = {{.name = "/a", .count = 2}};
    face.show();
    bar.toggleValue(0);
    EXPECT_THAT(face.ask.scopes, ElementsAre("/a"));
    bar.clearAll();
    EXPECT_THAT(face.ask.scopes, ElementsAre("/a")) << "the scope is no filter";
    bar.clearPanel();
    EXPECT_EQ(face.ask, before);
}

TEST(FilterBar, HundredsOfKeysStandBehindADoor) {
    Face face;
    face.answer = settled(face.ask);
    for (int at = 0; at < 300; ++at)
        face.answer.filterKeyCounts.push_back({.name = "key" + std::to_string(at), .count = 1});
    face.ask.filters = {{"key299", {EditorPick("x")}}};
    face.show();
    EXPECT_EQ(face.filters().chips()->rowCount(), 17) << "what is picked is always in sight";
    EXPECT_EQ(face.filters().moreChips(), 284);
    face.filters().showAllChips();
    EXPECT_EQ(face.filters().chips()->rowCount(), 301);
}

EditorMemoryHit work(const char* id, std::map<std::string, std::string> filters) {
    EditorMemoryHit hit = memory(id, "ticket", id);
    hit.memory.filters = std::move(filters);
    return hit;
}

TEST(StatusGrouped, StandsByStatusWithTheArchiveLast) {
    Face face("ticket");
    face.settle({work("a", {{"status", "next"}}), work("b", {}), work("c", {{"archived", "true"}}),
                 work("d", {{"status", "doing"}, {"archived", "yes"}}),
                 work("e", {{"status", "next"}}), work("f", {{"status", "review"}})});
    auto& groups = *face.model.groups();
    auto& lines = *groups.lines();
    const auto shown = [&] { return face.column(lines, MemoryLines::TitleRole).join(u' '); };
    EXPECT_EQ(face.model.shape(), MemoryFaceModel::Groups);
    EXPECT_EQ(shown(), "doing d next a e review f no status b archived");
    EXPECT_EQ(Face::data(lines, 2, MemoryLines::CountRole), "2");
    groups.toggle(2);
    groups.toggle(6);
    EXPECT_EQ(shown(), "doing d next review f no status b archived")
        << "a memory opens in its place";
    EXPECT_THAT(face.requested, ElementsAre("b"));
    groups.toggle(7);
    EXPECT_EQ(shown(), "doing d next review f no status b archived c");
    groups.toggle(1);
    EXPECT_THAT(face.requested, ElementsAre("b", "d"));
    EXPECT_EQ(groups.footer(), "");
    face.answer.total = 52;
    face.show();
    EXPECT_EQ(groups.footer(), "Showing 6 of 52 — scroll the flat list for the rest.");
    EXPECT_TRUE(face.model.back());
    EXPECT_TRUE(face.model.back());
    EXPECT_EQ(face.model.openType(), std::nullopt);
    EXPECT_FALSE(face.model.back());
    face.model.open("focus");
    face.settle({});
    EXPECT_EQ(groups.emptyWords(), "Nothing here yet.");
}

TEST(EditorDayFormat, LeavesOutTheYearThatItIsAndKeepsItsOrder) {
    const QByteArray zoneBefore = qgetenv("TZ");
    const auto at = [](int year, int hour) {
        const QDateTime local(QDate(year, 11, 18), QTime(hour, 30));
        return editorDate(static_cast<double>(local.toSecsSinceEpoch()));
    };
    for (const char* const zone : {"UTC", "Asia/Tokyo", "America/Los_Angeles"}) {
        qputenv("TZ", zone);
        ::tzset();
        for (const QLocale& locale : {QLocale::c(), QLocale(QLocale::German, QLocale::Germany)}) {
            QLocale::setDefault(locale);
            const QString month = locale.monthName(11, QLocale::ShortFormat);
            for (const int hour : {0, 23}) {
                EXPECT_EQ(EditorDayFormat::shortDay(at(2026, hour), at(2026, 12)),
                          month + QStringLiteral(" 18"))
                    << zone;
                EXPECT_EQ(EditorDayFormat::shortDay(at(2023, hour), at(2026, 12)),
                          month + QStringLiteral(" 18, 2023"));
            }
        }
    }
    QLocale::setDefault(QLocale::c());
    zoneBefore.isNull() ? qunsetenv("TZ") : qputenv("TZ", zoneBefore);
    ::tzset();
}

} // namespace
} // namespace wendlow::testing
