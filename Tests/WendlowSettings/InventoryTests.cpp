#include "ConnectedAppsModel.h"
#include "MockConnector.h"

#include <QAbstractItemModelTester>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

#include <gtest/gtest.h>

#include <random>
#include <thread>

namespace wendlow {
namespace {

using namespace Qt::StringLiterals;

FileDate at(int year, int month, int day, int hour = 12) {
    const QDateTime local(QDate(year, month, day), QTime(hour, 5));
    return FileDate(std::chrono::milliseconds(local.toMSecsSinceEpoch()));
}

const FileDate now = at(2026, 11, 21);
const QLocale english(QLocale::English, QLocale::UnitedStates);
const InventoryWords words{"/home/ada", english, [] { return now; }};

TEST(InventoryList, WordsItsLines) {
    const ConnectorMemoryFile memory{"/home/ada/m/MEMORY.md", 6 * 1024 + 9, at(2026, 11, 2)};
    const std::tuple<InventoryEntry, QStringList> rows[] = {
        {{"/home/ada/Work", memory, {}, at(2026, 11, 20)},
         {u"~/Work"_s, u"MEMORY.md · 6 KB"_s, u"Yesterday"_s,
          u"MEMORY.md · 6 KB, Friday, November 20, 2026, 12:05 PM"_s,
          u"~/m/MEMORY.md, changed Monday, November 2, 2026, 12:05 PM"_s}},
        {{"/home/ada/x (decoded path not verified on disk)", {}, {}, {}},
         {u"~/x (decoded path not verified on disk)"_s, u""_s, u"Unknown"_s, u"date unknown"_s,
          u""_s}},
        {{"/home/adam/a.md", {}, 1, {}},
         {u"/home/adam/a.md"_s, u"1 KB"_s, u"Unknown"_s, u"1 KB, date unknown"_s, u""_s}},
        {{"/a.md", {}, 0, {}},
         {u"/a.md"_s, u"empty"_s, u"Unknown"_s, u"empty, date unknown"_s, u""_s}},
        {{"/a.md", {}, 1'468'006, {}},
         {u"/a.md"_s, u"1.4 MB"_s, u"Unknown"_s, u"1.4 MB, date unknown"_s, u""_s}}};
    for (const auto& [entry, expected] : rows) {
        InventoryList list(words);
        list.show({entry});
        QStringList shown;
        for (const auto role :
             {InventoryList::ShownPathRole, InventoryList::FactsRole, InventoryList::DayRole,
              InventoryList::SpokenRole, InventoryList::FactsHintRole})
            shown.append(list.index(0).data(role).toString());
        EXPECT_EQ(shown, expected) << shown.join(u'|').toStdString();
        EXPECT_EQ(list.index(0).data(InventoryList::PathRole).toString().toStdString(), entry.path);
    }
}

TEST(InventoryList, TakesOverAnyStateByItsDifferences) {
    std::mt19937 random(7);
    const auto upTo = [&random](int most) {
        return std::uniform_int_distribution(0, most)(random);
    };
    InventoryList list(words);
    const QAbstractItemModelTester tester(&list,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    const QSignalSpy resets(&list, &QAbstractItemModel::modelReset);
    // A view's idea of the lines, kept by the signals alone.
    QStringList seen;
    const auto path = [&list](int row) { return list.index(row).data().toString(); };
    QObject::connect(&list, &InventoryList::rowsInserted,
                     [&](const QModelIndex&, int from, int to) {
                         for (int row = from; row <= to; ++row)
                             seen.insert(row, path(row));
                     });
    QObject::connect(&list, &InventoryList::rowsRemoved, [&](const QModelIndex&, int from, int to) {
        seen.remove(from, to - from + 1);
    });
    QObject::connect(&list, &InventoryList::dataChanged,
                     [&](const QModelIndex& from, const QModelIndex& to) {
                         for (int row = from.row(); row <= to.row(); ++row)
                             seen[row] = path(row);
                     });
    for (int round = 0; round < 400; ++round) {
        std::vector<InventoryEntry> entries;
        for (int count = upTo(16); count > 0; --count)
            entries.push_back({"/" + std::to_string(upTo(3)), {}, {}, {}});
        if (upTo(2) == 0)
            list.toggle();
        list.show(entries);
        const bool isLong = entries.size() > 10;
        ASSERT_EQ(list.rowCount(),
                  isLong && !list.isWhole() ? 8 : static_cast<int>(entries.size()));
        ASSERT_EQ(list.total(), static_cast<int>(entries.size()));
        EXPECT_EQ(list.toggleWords().isEmpty(), !isLong);
        ASSERT_EQ(seen.size(), list.rowCount());
        for (int row = 0; row < list.rowCount(); ++row)
            ASSERT_EQ(seen[row].toStdString(), entries[static_cast<std::size_t>(row)].path);
        const QSignalSpy changes(&list, &InventoryList::dataChanged);
        list.show(entries);
        EXPECT_EQ(changes.count(), 0) << "nothing has changed";
    }
    EXPECT_EQ(resets.count(), 0) << "a reset loses the place to which a person has scrolled";
    list.fold();
    list.show(std::vector<InventoryEntry>(2310));
    EXPECT_EQ(list.toggleWords(), u"Show all 2,310"_s);
}

/// A tool whose store is read only when the test lets it.
class HeldTool final : public Connector {
public:
    ConnectorIdentity identity() const override { return mock.identity(); }
    ScanReport scan() const override { return mock.scan(); }
    ProjectReport projects() const override {
        begun.release();
        go.acquire();
        ++reads;
        return {"/home/ada/.store", {{"/p/" + std::to_string(reads), distantPast, {}}}, "a note"};
    }
    MemoryFileReport memoryFiles() const override {
        wholeRead.release();
        return mock.memoryFiles();
    }
    ConnectorOutcome install() const override { return mock.install(); }
    ConnectorOutcome remove() const override { return mock.remove(); }
    bool staleOwnWiring() const override { return false; }

    MockConnector mock{ConnectorIdentity{"cursor", "Cursor", "", ""},
                       MockConnector::Script{.onVerb = [this] { readsAtVerb = reads.load(); }}};
    std::atomic<int> readsAtVerb = -1;
    mutable QSemaphore begun;
    mutable QSemaphore go;
    mutable QSemaphore wholeRead;
    mutable std::atomic<int> reads = 0;
};

/// A held tool, scanned, its row closed.
struct HeldPane {
    std::shared_ptr<HeldTool> tool = std::make_shared<HeldTool>();
    std::unique_ptr<ConnectedAppsModel> model = std::make_unique<ConnectedAppsModel>(
        Connectors::List{tool}, std::nullopt,
        ConnectedAppsModel::Surroundings{.copy = {}, .imageLoads = {}, .home = "/home/ada"});

    HeldPane() {
        model->scan();
        EXPECT_TRUE(settled());
    }
    ~HeldPane() { tool->go.release(99); }
    bool settled() const {
        return QTest::qWaitFor([this] { return model->idle(); }, 5000);
    }
    AppInventory& inventory() const { return *model->apps().at(0).inventory; }
    QString project() const { return inventory().projects()->index(0).data().toString(); }
    void open(bool open) const { model->setOpen(u"cursor"_s, open); }
    /// One reading is at work, and a second one waits for it.
    void openTwice() const {
        open(true);
        tool->begun.acquire();
        open(false);
        EXPECT_TRUE(model->idle());
        open(true);
    }
};

TEST(AppInventory, IsReadWhenItsRowOpensAndTheEventLoopGoesOn) {
    const HeldPane pane;
    EXPECT_FALSE(pane.inventory().loading()) << "a closed row reads nothing";
    pane.open(true);
    pane.tool->begun.acquire();
    EXPECT_TRUE(pane.inventory().loading());
    EXPECT_FALSE(pane.inventory().known());
    EXPECT_TRUE(QTest::qWaitFor([&] { return pane.inventory().slow(); }, 5000));
    pane.tool->go.release();
    ASSERT_TRUE(pane.settled());
    EXPECT_TRUE(pane.inventory().known());
    EXPECT_FALSE(pane.inventory().slow());
    EXPECT_EQ(pane.project(), u"/p/1"_s);
    EXPECT_EQ(pane.inventory().shownSource(), u"~/.store"_s);
    EXPECT_EQ(pane.inventory().projectsNote(), u"a note"_s) << "it may stand beside a list";
    EXPECT_EQ(pane.inventory().memoryNote(), u"no memory files found"_s);
}

TEST(AppInventory, ClosedInFlightItIsDroppedAndOpenedAgainItIsReadAgain) {
    for (const bool answerIsThere : {false, true}) {
        const HeldPane pane;
        if (answerIsThere) {
            pane.open(true);
            pane.tool->go.release();
            pane.tool->wholeRead.acquire(); // the event loop has not looked yet
            pane.tool->begun.acquire();
            pane.open(false);
            pane.open(true);
        } else {
            pane.openTwice();
            pane.tool->go.release();
        }
        pane.tool->begun.acquire(); // behind the first reading, which has ended
        QTest::qWait(20);
        EXPECT_FALSE(pane.inventory().known()) << "a stale answer has landed";
        EXPECT_TRUE(pane.inventory().loading());
        pane.tool->go.release();
        ASSERT_TRUE(pane.settled());
        EXPECT_EQ(pane.project(), u"/p/2"_s);
        pane.open(false);
        pane.open(true);
        EXPECT_EQ(pane.project(), u"/p/2"_s) << "what was known is shown meanwhile";
        pane.tool->go.release(); // only now: what is read at once lands at once
        ASSERT_TRUE(pane.settled());
        EXPECT_EQ(pane.project(), u"/p/3"_s);
    }
}

TEST(AppInventory, AVerbGoesBeforeAWaitingReadingAndHasItReadAgain) {
    const HeldPane pane;
    pane.openTwice();
    pane.model->connect(u"cursor"_s);
    pane.tool->go.release(9);
    ASSERT_TRUE(pane.settled());
    EXPECT_EQ(pane.tool->readsAtVerb, 1) << "the verb waited for a reading";
    EXPECT_EQ(pane.project(), u"/p/%1"_s.arg(pane.tool->reads));
    EXPECT_GE(pane.tool->reads, 2) << "read before the verb and after it";
}

TEST(AppInventory, DestroyedWhileItReadsItWaitsForNothingElse) {
    HeldPane pane;
    pane.openTwice();
    const std::jthread later([tool = pane.tool] {
        QThread::msleep(30); // the model is waiting by now
        tool->go.release();
    });
    pane.model.reset();
    EXPECT_EQ(pane.tool->reads, 1);
    EXPECT_FALSE(pane.tool->begun.tryAcquire()) << "a reading that nobody wants has begun";
    QTest::qWait(20); // the answer arrives with nobody there
}

} // namespace
} // namespace wendlow
