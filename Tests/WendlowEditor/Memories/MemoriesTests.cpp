#include "Memories/EditorDayFormat.h"
#include "Memories/MemoryFaceModel.h"
#include "Support/ScriptedStore.h"

#include <QAbstractItemModelTester>
#include <QCoreApplication>
#include <QDateTime>
#include <QLocale>
#include <QSignalSpy>

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
    MemoryLines& lines() { return *model.list()->lines(); }
    QVariant line(int row, int role) { return data(lines(), row, role); }
    /// The row comes in sight, and the list has laid itself out.
    void appears(int row) {
        list().rowAppeared(row);
        QCoreApplication::processEvents();
    }
    void readOn() { appears(lines().rowCount() - 1); }
};
struct MemoriesFace : ::testing::Test, Face {};

TEST_F(MemoriesFace, IsAlwaysAPageAhead) {
    settle(memories(50));
    appears(10);
    EXPECT_EQ(lines().rowCount(), 12);
    EXPECT_THAT(requested, ElementsAre("decision10"));
    for (const int shown : {24, 36, 48}) {
        list().rowAppeared(lines().rowCount() - 1);
        EXPECT_EQ(lines().rowCount(), shown - 12) << "not while the list lays itself out";
        readOn();
        EXPECT_EQ(lines().rowCount(), shown);
    }
    EXPECT_EQ(changes, 1) << "the limit stays up to 38 rows";
    EXPECT_EQ(ask.limit, 60);
    readOn();
    EXPECT_EQ(lines().rowCount(), 50);
    readOn();
    EXPECT_EQ(list().visibleCount(), 60) << "no more rows are held";
}

TEST(MemoriesModel, SaysHowManyByWhatCutsThem) {
    const std::tuple<bool, bool, int, const char*> cases[] = {{true, false, 37, "37 of 182"},
                                                              {false, true, 37, "37 of 182"},
                                                              {false, false, 1, "1 memory"},
                                                              {false, false, 0, "0 memories"}};
    for (const auto& [narrowed, chips, total, line] : cases) {
        Face face;
        EXPECT_EQ(face.list().countLine(), "");
        if (chips)
            face.ask.scopes = {"/a"};
        face.answer = settled(face.ask);
        face.answer.narrowed = narrowed;
        face.answer.total = total;
        face.answer.sliceTotal = 182;
        face.show();
        EXPECT_EQ(face.list().countLine(), line);
    }
}

TEST(MemoriesModel, EachStateSaysItsOwn) {
    using namespace EditorAnswerStateCase;
    using Case = std::tuple<EditorAnswerState, int, const char*, const char*, const char*>;
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
    EXPECT_EQ(grid.model.nextStep(), "");
    grid.settle({});
    EXPECT_EQ(grid.model.emptyWords(), "Nothing here yet.");
    EXPECT_EQ(grid.model.nextStep(),
              "Connect an AI tool in Settings. What it remembers will be here.");
    EXPECT_FALSE(grid.model.isFilled());
    grid.pages.types = {{.name = "entry", .count = 3}, {.name = "rule", .count = 9}};
    grid.show();
    EXPECT_TRUE(grid.model.isFilled());
    EXPECT_THAT(grid.column(*grid.model.cards(), TypeCards::TitleRole), ElementsAre("entries"));
    grid.model.openCard(0);
    EXPECT_EQ(grid.model.openType(), "entry");
}

TEST_F(MemoriesFace, ARefreshMovesOnlyWhatHasMoved) {
    details["decision3"] = {.id = "decision3", .why = "Because.", .body = ""};
    settle(memories(12));
    const QPersistentModelIndex focused(lines().index(3));
    const QSignalSpy removed(&lines(), &QAbstractItemModel::rowsRemoved);
    EditorMemoryHits rows = memories(12);
    rows.erase(rows.begin() + 7);
    rows.insert(rows.begin(), memory("new"));
    std::rotate(rows.begin(), rows.begin() + 11, rows.end());
    details.clear();
    settle(rows);
    ASSERT_EQ(removed.count(), 1);
    EXPECT_EQ(removed[0][1].toInt() + removed[0][2].toInt(), 14) << "the seventh alone";
    EXPECT_EQ(focused.row(), 5);
    EXPECT_EQ(line(5, MemoryLines::SublineRole), "Because.") << "until newer is known";
    EXPECT_EQ(line(5, MemoryLines::StaleRole), true);
    // What an answer holds twice is shown twice, and one type's rows are never another's.
    settle({memory("a"), memory("a"), memory("b")});
    EXPECT_EQ(lines().rowCount(), 3);
    model.open("finding");
    EXPECT_EQ(lines().rowCount(), 0);
}

TEST_F(MemoriesFace, GoesOnForWhoScrollsFasterThanTheStoreAnswers) {
    for (const auto& [held, shown] : {std::pair{12, 12}, {50, 24}, {51, 24}}) {
        settle(memories(held));
        QCoreApplication::processEvents();
        EXPECT_EQ(list().visibleCount(), shown) << "once for each time at the last row";
        if (held == 12)
            readOn();
    }
}

TEST_F(MemoriesFace, ItsEndIsTheLastOfAllThatThereAre) {
    const QSignalSpy revealed(&list(), &MemoriesModel::revealed);
    answer = settled(ask, memories(50));
    answer.total = 4000;
    show();
    list().goToEnd();
    EXPECT_EQ(ask.limit, 4012);
    EXPECT_EQ(revealed.count(), 0) << "they are to come";
    settle(memories(4000));
    ASSERT_EQ(revealed.count(), 1);
    EXPECT_EQ(revealed[0][0], 3999);
    list().goToEnd();
    EXPECT_EQ(revealed.count(), 2) << "at once, for they are there";
    settle(memories(4001));
    EXPECT_EQ(revealed.count(), 2);
}

TEST_F(MemoriesFace, ReadingOnTouchesNoRowThatIsThere) {
    QStringList seen;
    QObject::connect(&lines(), &QAbstractItemModel::rowsInserted,
                     [&](const QModelIndex&, int first, int last) {
                         seen.append(QStringLiteral("+%1-%2").arg(first).arg(last));
                     });
    QObject::connect(&lines(), &QAbstractItemModel::rowsRemoved, [&] { seen.append("removed"); });
    QObject::connect(&lines(), &QAbstractItemModel::dataChanged, [&](const QModelIndex& first) {
        seen.append(QStringLiteral("~%1").arg(first.row()));
    });
    const auto seenBy = [&](const std::function<void()>& act) {
        seen.clear();
        act();
        return seen.join(u' ');
    };
    EditorMemoryHits rows = memories(60);
    EXPECT_EQ(seenBy([&] { settle(memories(50)); }), "+0-11");
    EXPECT_EQ(seenBy([&] { readOn(); }), "+12-23");
    EXPECT_EQ(seenBy([&] { settle(rows); }), "");
    EXPECT_EQ(seenBy([&] { list().toggle(3); }), "~3");
    details["decision5"] = {.id = "decision5", .why = "Because.", .body = ""};
    EXPECT_EQ(seenBy([&] { show(); }), "~5");
    EXPECT_EQ(seenBy([&] { list().toggle(4); }), "~3 ~4");
    rows[0].memory.title = "Another";
    EXPECT_EQ(seenBy([&] { settle(rows); }), "~0");
}

TEST_F(MemoriesFace, ARowOpensToItsWhyAndBody) {
    EditorMemoryHit hit = memory("x", "decision", "Keep <two> copies", "/work");
    hit.memory.filters = {{"area", "press"}, {"owner", "Ines"}, {"with", "Jonas"}};
    ask.term = "backup";
    answer = settled(ask, {hit});
    answer.filterKeyCounts = {{.name = "with", .count = 3}, {.name = "status", .count = 1}};
    show();
    list().toggle(0);
    EXPECT_THAT(requested, ElementsAre("x"));
    EXPECT_EQ(line(0, MemoryLines::KnownRole), false);
    details["x"] = {.id = "x", .why = "One\ntwo.", .body = "The backup & more"};
    show();
    EXPECT_EQ(line(0, MemoryLines::SublineRole), "The backup & more");
    EXPECT_EQ(line(0, MemoryLines::TitleMarkupRole), "Keep &lt;two&gt; copies");
    EXPECT_EQ(line(0, MemoryLines::WhyRole), "One<br>two.");
    EXPECT_EQ(line(0, MemoryLines::BodyRole), "The <b>backup</b> &amp; more");
    EXPECT_EQ(line(0, MemoryLines::FactsRole), "/work · with Jonas · area press · owner Ines");
    EXPECT_EQ(lines().textOf(0), "Keep <two> copies\n\nThe backup & more");
    EXPECT_EQ(lines().textWithWhy(0), "Keep <two> copies\n\nThe backup & more\n\nWhy: One\ntwo.");
    EXPECT_EQ(lines().idOf(0), "x");
    list().toggle(0);
    EXPECT_EQ(line(0, MemoryLines::BodyRole), "");
    hit.memory.title = "The backup";
    settle({hit, memory("unread")});
    EXPECT_EQ(lines().textOf(0), "The backup & more") << "its first line stands once";
    EXPECT_EQ(lines().textOf(1), "") << "half a memory is not copied";
    EXPECT_EQ(lines().idOf(2), "");
}

TEST(MemoryFace, CountsWhatTheLastAnswerAboutMemoriesCounted) {
    Face face(std::nullopt);
    EXPECT_EQ(face.rail(), "MEMORIES -1") << "nothing has been read";
    face.pages.types = {{.name = "entry", .count = 30}, {.name = "rule", .count = 9}};
    face.settle({});
    const auto narrowed = [&](EditorKind kind, std::int64_t count) {
        face.ask.kind = kind;
        face.answer = settled(face.ask);
        face.answer.narrowed = true;
        if (count > 0)
            face.answer.typeCounts = {{.name = "entry", .count = count}};
        face.show();
        return face.rail();
    };
    face.ask.scopes = {"/a"};
    EXPECT_EQ(narrowed(EditorKind::memory, 7), "MEMORIES 30; entries 7");
    EXPECT_EQ(narrowed(EditorKind::moment, 0), "MEMORIES 30; entries 7") << "no memories";
    EXPECT_EQ(Face::data(*face.model.cards(), 0, TypeCards::CountRole), "7");
    face.ask.kind = EditorKind::memory;
    face.ask.scopes = {"/b"};
    face.show();
    EXPECT_EQ(face.rail(), "MEMORIES 30; entries 30") << "of other scopes";
    EXPECT_EQ(narrowed(EditorKind::memory, 0), "MEMORIES 30; entries 0 dimmed");
}

TEST_F(MemoriesFace, AnotherQuestionBeginsOnItsFirstPage) {
    settle(memories(50));
    readOn();
    readOn();
    list().sortBy(QStringLiteral("nonsense"));
    list().sortBy(list().sorts()[1].toMap()[QStringLiteral("key")].toString());
    EXPECT_EQ(ask.sort, EditorMemorySort::oldest);
    EXPECT_TRUE(list().sorts()[1].toMap()[QStringLiteral("picked")].toBool());
    readOn();
    EXPECT_EQ(lines().rowCount(), 36) << "what is there stays meanwhile and is not read on";
    settle(memories(50));
    EXPECT_EQ(lines().rowCount(), 12);
    readOn();
    EXPECT_EQ(lines().rowCount(), 24);
}

TEST_F(MemoriesFace, PicksMakeFiltersAndLeaveNoTrace) {
    auto& bar = filters();
    const auto count = [&] {
        answer = settled(ask);
        answer.filterKeyCounts = {{.name = "project", .count = 9}, {.name = "scope", .count = 1}};
        answer.filterValueCounts = {
            {"project", {{.name = "atlas", .count = 5}, {.name = "3", .count = 4}}}};
        answer.scopeCounts = {{.name = "/a", .count = 2}};
        show();
    };
    const auto labels = [&] { return column(*bar.chips(), FilterChips::LabelRole).join(u' '); };
    count();
    EXPECT_EQ(labels(), "scope project scope");
    const EditorAsk before = ask;
    bar.togglePanel(QStringLiteral("scope"));
    bar.togglePanel(QStringLiteral("project"));
    EXPECT_THAT(column(*bar.chips(), FilterChips::OpenRole), ElementsAre("false", "true", "false"))
        << "opening a second closes the first";
    ask.offset = 7;
    show();
    bar.toggleValue(0);
    bar.toggleValue(1);
    EXPECT_EQ(ask.offset, 0);
    EXPECT_THAT(names(ask.filters.at("project")), ElementsAre("3", "atlas"));
    // An answer that counts them no more leaves them to be unpicked.
    settle({});
    EXPECT_EQ(labels(), "scope project");
    EXPECT_THAT(column(*bar.values(), FilterValues::PickedRole), ElementsAre("true", "true"));
    bar.toggleValue(0);
    bar.toggleValue(0);
    EXPECT_EQ(ask, before) << "a key without picks is gone";
    bar.togglePanel(QString::fromUtf8(FilterBarModel::scopeKey));
    count();
    bar.toggleValue(0);
    bar.clearAll();
    EXPECT_THAT(ask.scopes, ElementsAre("/a")) << "the scope is no filter";
    bar.clearPanel();
    EXPECT_EQ(ask, before);
}

TEST_F(MemoriesFace, KeepsItsOrderWhileItIsPickedFrom) {
    const auto count = [&](const std::vector<std::string>& keys) {
        answer = settled(ask);
        for (const std::string& key : keys)
            answer.filterKeyCounts.push_back({.name = key, .count = 1});
        answer.filterValueCounts["a"] = {{.name = keys[0], .count = 2}, {.name = keys[1]}};
        show();
        return column(*filters().chips(), FilterChips::LabelRole).join(u' ');
    };
    EXPECT_EQ(count({"a", "b", "c"}), "scope a b c");
    filters().togglePanel(QStringLiteral("a"));
    filters().toggleValue(0);
    EXPECT_EQ(count({"c", "new", "b", "a"}), "scope a b c new");
    filters().clearAll();
    EXPECT_EQ(count({"c", "b", "a"}), "scope c b a") << "as the daemon counts them";
}

TEST_F(MemoriesFace, HundredsOfKeysStandBehindADoor) {
    answer = settled(ask);
    for (int at = 0; at < 300; ++at)
        answer.filterKeyCounts.push_back({.name = "key" + std::to_string(at), .count = 1});
    ask.filters = {{"key299", {EditorPick("x")}}};
    show();
    EXPECT_EQ(filters().chips()->rowCount(), 17) << "what is picked is always in sight";
    EXPECT_EQ(filters().moreChips(), 284);
    filters().showAllChips();
    EXPECT_EQ(filters().chips()->rowCount(), 301);
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
    EXPECT_EQ(shown(), "doing d next a e review f no status b archived");
    EXPECT_EQ(Face::data(lines, 2, MemoryLines::CountRole), "2");
    groups.toggle(2);
    groups.toggle(6); // a memory, which opens in its place
    groups.toggle(7);
    EXPECT_EQ(shown(), "doing d next review f no status b archived c");
    EXPECT_THAT(face.requested, ElementsAre("b"));
    face.answer.total = 52;
    face.show();
    EXPECT_EQ(groups.footer(), "Showing 6 of 52 — scroll the flat list for the rest.");
    EXPECT_TRUE(face.model.back() && face.model.back());
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
        for (const int hour : {0, 23}) {
            EXPECT_EQ(EditorDayFormat::shortDay(at(2026, hour), at(2026, 12)), "Nov 18") << zone;
            EXPECT_EQ(EditorDayFormat::shortDay(at(2023, hour), at(2026, 12)), "Nov 18, 2023");
        }
    }
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(EditorDayFormat::shortDay(at(2023, 12), at(2026, 12)), "Nov. 18, 2023");
    QLocale::setDefault(QLocale::c());
    zoneBefore.isNull() ? qunsetenv("TZ") : qputenv("TZ", zoneBefore);
    ::tzset();
}

} // namespace
} // namespace wendlow::testing
