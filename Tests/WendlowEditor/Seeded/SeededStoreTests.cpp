#include "Seeded/SeededStore.h"

#include <QCoroTask>
#include <QSignalSpy>

#include <gmock/gmock.h>

namespace wendlow {
namespace {

template<class Value> Value now(QCoro::Task<Value> task) {
    return QCoro::waitFor(std::move(task));
}

TEST(SeededStore, refusesEveryWriteAndStaysAsItIs) {
    SeededStore store(SeedWorld::powerUser);
    const QSignalSpy changes(&store, &EditorStore::changed);
    const auto refused = EditorWriteOutcome::refused(
        "This is a seeded design world — it has no store to write to. Switch to My real data (⌘4) "
        "to edit.");
    EXPECT_EQ(now(store.rules().editRuleLine("1", "a", "b")), refused);
    EXPECT_EQ(now(store.rules().addRule("a", "b", {}, "/")), refused);
    EXPECT_EQ(now(store.scopes().mapFolder("/a", "/b")), refused);
    EXPECT_EQ(now(store.meetings().deleteLine("m", 1, "w")),
              EditorLineDelete(EditorLineDeleteCase::Failed{refused.words}));
    EXPECT_EQ(store.generation(), 0);
    EXPECT_EQ(changes.size(), 0);
}

TEST(SeededStore, changesWorldsAndSaysSo) {
    SeededStore store(SeedWorld::dayZero);
    const QSignalSpy changes(&store, &EditorStore::changed);
    store.switchWorld(EditorWorld::dayZero);
    store.switchWorld(EditorWorld::realData);
    EXPECT_EQ(store.generation(), 0);
    store.switchWorld(EditorWorld::someData);
    EXPECT_EQ(store.world(), EditorWorld::someData);
    store.resetWorld();
    EXPECT_EQ(store.generation(), 2);
    EXPECT_EQ(changes.size(), 2);
    const auto ferry =
        std::ranges::find(store.scopes().scopeBoard(), "/work/ferry", &EditorScopeRow::path);
    ASSERT_NE(ferry, store.scopes().scopeBoard().end());
    EXPECT_EQ(ferry->kinds[0], (EditorCount{"ticket", 3}));
    EXPECT_EQ(now(store.pages().detail("/work/ferry#m1"))->why.substr(0, 18), "The harbour office");
    EXPECT_EQ(now(store.pages().detail("none")), std::nullopt);
}

} // namespace
} // namespace wendlow
