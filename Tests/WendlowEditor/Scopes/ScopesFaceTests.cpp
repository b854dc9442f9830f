#include "Scopes/ScopesFaceModel.h"
#include "Support/ScriptedStore.h"
#include "TemporaryHome.h"

#include <QAbstractItemModelTester>
#include <QDesktopServices>
#include <QSignalSpy>
#include <QTest>

#include <mutex>

#include <gmock/gmock.h>

namespace wendlow::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

EditorDate noon() {
    return EditorDate(std::chrono::hours(20000 * 24 + 12));
}

/// The face over a store whose scopes the test gives.
struct Face {
    TemporaryHome home;
    ScriptedScopes scopes;
    EditorAsk ask{.term = {}};
    EditorAnswer answer;
    MemoryDetails details;
    std::mutex writing; ///< who holds it holds up the thread that writes
    ScopesFaceModel model{scopes, {.ask = {}, .requestDetails = {}, .today = noon}, [this] {
                              const std::scoped_lock turn(writing);
                              return EditorMigrationWriter::Place{.directory = home / "migrations",
                                                                  .mcp = "/mcp"};
                          }};
    QAbstractItemModelTester tester{model.rows()};
    QAbstractItemModelTester movesTester{model.sheet()->moves()};
    ScopeSheetModel& sheet = *model.sheet();

    Face() {
        scopes.board = {{.path = "/b"},
                        {.path = "/a/b", .folders = {"/1", "/2", "/3", "/4", "/5"}},
                        {.path = "/"},
                        {.path = "/a",
                         .folders = {"/p\nq"},
                         .kinds = {{.name = "rule", .count = 2}, {.name = "story", .count = 1}}}};
        answer.state = EditorAnswerStateCase::Settled{};
        model.setOpen(true);
        model.appear(ask);
        show();
    }
    void show() {
        model.show({.ask = ask,
                    .answer = std::make_shared<const EditorAnswer>(answer),
                    .counted = false,
                    .generation = 1,
                    .details = details});
    }
    /// Each row in a line: depth, path in its two parts, what is filed, folders.
    QStringList lines() {
        QStringList all;
        for (int row = 0; row < model.rows()->rowCount(); ++row) {
            const auto told = [&](int role) {
                return model.rows()->data(model.rows()->index(row), role).toString();
            };
            const auto folders = model.rows()
                                     ->data(model.rows()->index(row), ScopesRows::FoldersRole)
                                     .toStringList();
            all.append(u"%1 %2|%3 [%4] %5%6"_s.arg(
                told(ScopesRows::DepthRole), told(ScopesRows::AboveRole),
                told(ScopesRows::NameRole), told(ScopesRows::CountsRole), folders.join(u','),
                told(ScopesRows::RestRole)));
        }
        return all;
    }
    void selectPath(const char* path) { model.select(model.rows()->indexOf(path)); }
};
struct ScopesFace : ::testing::Test, Face {};

TEST_F(ScopesFace, showsEveryScopeInTheOrderOfPaths) {
    EXPECT_THAT(lines(), ElementsAre(u"0 |/ [] "_s, u"1 /|a [2 rules · 1 story] /p q"_s,
                                     u"2 /a/|b [] /1,/2,/3and 2 more folders"_s, u"1 /|b [] "_s));
    const auto told = [&](int row) {
        return model.rows()->data(model.rows()->index(row), ScopesRows::ToldRole).toString();
    };
    EXPECT_EQ(told(1), u"2 rules, 1 story, /p q");
    EXPECT_EQ(told(2), u"nothing filed here, /1, /2, /3, /4, /5");
    // What is selected stays so where the board changes, and goes with its scope.
    selectPath("/b");
    scopes.board.push_back({.path = "/aa"});
    Q_EMIT scopes.changed();
    EXPECT_EQ(model.selected(), 4);
    std::erase_if(scopes.board, [](const EditorScopeRow& row) { return row.path == "/b"; });
    Q_EMIT scopes.changed();
    EXPECT_EQ(model.selected(), -1);
    model.rename();
    EXPECT_FALSE(model.isModal()) << "there is no scope that it could be about";
    // Behind another face no rows are made.
    model.setOpen(false);
    scopes.board.clear();
    Q_EMIT scopes.changed();
    EXPECT_EQ(model.rows()->rowCount(), 4);
    EXPECT_EQ(model.railCount(), 1);
    model.appear(ask);
    EXPECT_EQ(model.emptyWords(),
              u"No scopes yet. A scope comes into being when a folder maps to it "
              "or a memory is filed at it.");
}

TEST_F(ScopesFace, saysWhyThereIsNothing) {
    scopes.board.clear();
    scopes.read = false;
    Q_EMIT scopes.changed();
    EXPECT_EQ(model.railCount(), std::nullopt);
    EXPECT_EQ(model.emptyWords(), u"Reading your scopes…");
    answer.state = EditorAnswerStateCase::Failed{"gone"};
    show();
    EXPECT_EQ(model.emptyWords(), u"");
    EXPECT_EQ(model.strip(), u"gone");
    answer.state = EditorAnswerStateCase::Warming{};
    show();
    EXPECT_TRUE(model.strip().startsWith(u"Searching your memories"));
    scopes.read = true;
    Q_EMIT scopes.changed();
    EXPECT_EQ(model.strip(), u"") << "the search keeps nothing from the board";
}

TEST_F(ScopesFace, mapsAFolderAndStaysWithItsWordsWhereItIsRefused) {
    model.newScope();
    EXPECT_TRUE(model.isModal());
    EXPECT_EQ(sheet.fault(), u"A scope’s path begins with “/”.");
    EXPECT_FALSE(sheet.pathFails()) << "nothing has been written there yet";
    sheet.setPath(u"/c/"_s);
    EXPECT_TRUE(sheet.pathFails());
    sheet.setPath(u"/c"_s);
    EXPECT_EQ(sheet.fault(), u"A folder’s path begins with “/”.");
    sheet.commit();
    EXPECT_THAT(scopes.mapped, IsEmpty());
    sheet.setFolder(u"/home/c"_s);
    sheet.commit();
    sheet.commit();
    EXPECT_TRUE(sheet.isBusy());
    scopes.answerMapping(EditorWriteOutcome::refused("read only"));
    EXPECT_TRUE(sheet.isOpen() && !sheet.isBusy());
    EXPECT_EQ(sheet.refusal(), u"read only");
    EXPECT_EQ(sheet.folder(), u"/home/c");
    sheet.commit();
    EXPECT_EQ(sheet.refusal(), u"");
    EXPECT_THAT(scopes.mapped, ElementsAre("/home/c → /c", "/home/c → /c"));
    // The board has been read anew by the time that it is known to be written.
    QSignalSpy revealed(&model, &ScopesFaceModel::revealed);
    scopes.board.push_back({.path = "/c"});
    Q_EMIT scopes.changed();
    scopes.answerMapping(EditorWriteOutcome::wrote("/home/c maps to /c."));
    EXPECT_FALSE(sheet.isOpen());
    EXPECT_EQ(model.outcome(), u"/home/c maps to /c.");
    EXPECT_EQ(model.selected(), 4);
    EXPECT_EQ(revealed.size(), 1);
    // One that is left while it is being mapped is mapped all the same, and told.
    model.mapFolder();
    EXPECT_EQ(sheet.title(), u"Map a folder to /c");
    EXPECT_EQ(sheet.text(), u"Work done in this folder files its memories at /c.");
    sheet.setFolder(u"/d"_s);
    sheet.commit();
    EXPECT_TRUE(model.back());
    model.newScope();
    EXPECT_FALSE(sheet.isBusy());
    scopes.answerMapping(EditorWriteOutcome::refused("gone"));
    EXPECT_TRUE(sheet.isOpen() && sheet.refusal().isEmpty());
    EXPECT_EQ(model.outcome(), u"gone");
    EXPECT_TRUE(model.refused());
}

TEST_F(ScopesFace, showsAMoveBeforeItsScriptIsWritten) {
    selectPath("/a");
    model.rename();
    EXPECT_EQ(sheet.title(), u"Rename /a");
    EXPECT_EQ(sheet.path(), u"/a");
    EXPECT_EQ(sheet.fault(), u"That is its path already.");
    ScopeMoves& moves = *sheet.moves();
    const auto move = [&](int row) {
        return moves.data(moves.index(row), ScopeMoves::FromRole).toString() + u" → "_s +
               moves.data(moves.index(row), ScopeMoves::ToRole).toString();
    };
    sheet.setPath(u"/x"_s);
    EXPECT_EQ(moves.rowCount(), 2);
    EXPECT_EQ(move(0), u"/a → /x");
    EXPECT_EQ(move(1), u"/a/b → /x/b");
    EXPECT_TRUE(sheet.summary().startsWith(u"/a → /x would move 3 memories"));
    sheet.setPath(u""_s);
    EXPECT_EQ(sheet.summary(), u"");
    EXPECT_FALSE(sheet.canCommit());
    // What happens to the board meanwhile is followed, and what is typed stays.
    sheet.setPath(u"/y"_s);
    scopes.board.push_back({.path = "/a/z"});
    Q_EMIT scopes.changed();
    EXPECT_EQ(move(2), u"/a/z → /y/z");
    scopes.board.clear();
    Q_EMIT scopes.changed();
    EXPECT_EQ(sheet.fault(), u"This scope isn’t there any more.");
    sheet.commit();
    EXPECT_TRUE(sheet.isOpen());
    EXPECT_TRUE(model.back());
    EXPECT_FALSE(model.back());
}

TEST_F(ScopesFace, writesTheScriptAndSaysWhereItIs) {
    scopes.board[3].folders.clear();
    Q_EMIT scopes.changed();
    selectPath("/a/b");
    model.retire();
    EXPECT_EQ(sheet.path(), u"/a");
    EXPECT_EQ(sheet.pathLabel(), u"Move its contents to");
    sheet.setPath(u"/a/b/c"_s);
    sheet.commit();
    EXPECT_TRUE(sheet.pathFails() && sheet.isOpen());
    sheet.setPath(u"/a"_s);
    writing.lock();
    sheet.commit();
    EXPECT_FALSE(sheet.isOpen());
    model.retire();
    EXPECT_TRUE(sheet.isBusy()) << "one script after the other";
    model.back();
    writing.unlock();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !model.script().isEmpty(); }));
    EXPECT_FALSE(sheet.isBusy());
    const QString path = model.scriptPath();
    EXPECT_EQ(path.toStdString(),
              (home / "migrations/migrate-scope-retire-a-b-2024-10-04.py").string());
    EXPECT_TRUE(std::filesystem::exists(path.toStdString()));
    EXPECT_EQ(model.script(),
              u"Migration script written to "_s + path +
                  u". Read it, then run it — the Editor never performs a scope move "
                  "itself."_s);
    // A desktop that cannot open the folder is told of.
    model.openFolder();
    EXPECT_EQ(model.folderFault().toStdString(),
              "No program here opens a folder. It is " + (home / "migrations.").string());
    // A refused one clears what was said of the one before.
    scopes.board[1].folders = {"/p\nq"};
    Q_EMIT scopes.changed();
    model.retire();
    writing.lock();
    sheet.commit();
    EXPECT_EQ(model.script(), u"");
    writing.unlock();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !model.script().isEmpty(); }));
    EXPECT_EQ(model.script(),
              u"a name in this move holds a line break or another control character, "
              "so no script was written");
    EXPECT_EQ(model.scriptPath(), u"");
    model.leave(ask);
    EXPECT_EQ(model.script(), u"");
}

TEST_F(ScopesFace, bringsAFoundScopeIntoSight) {
    FoundHit found;
    found.hit.destination = SearchDestination::Scope{"/a/b"};
    model.reveal(found, ask);
    EXPECT_EQ(model.selected(), 2);
    found.hit.destination = SearchDestination::Scope{"/not/here"};
    model.reveal(found, ask);
    EXPECT_EQ(model.selected(), 2);
}

TEST(ScopesFaceModel, maySurviveNeitherItsMappingNorItsWrite) {
    ScriptedScopes scopes;
    scopes.board = {{.path = "/a"}};
    const TemporaryHome home;
    {
        ScopesFaceModel gone(scopes, {.ask = {}, .requestDetails = {}, .today = noon},
                             [place = EditorMigrationWriter::Place{
                                  .directory = home / "m", .mcp = "/mcp"}] { return place; });
        EditorAsk ask{.term = {}};
        gone.appear(ask);
        gone.select(0);
        gone.mapFolder();
        gone.sheet()->setFolder(u"/p"_s);
        gone.sheet()->commit();
        gone.back();
        gone.rename();
        gone.sheet()->setPath(u"/x"_s);
        gone.sheet()->commit();
    }
    scopes.answerMapping(EditorWriteOutcome::wrote("late"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return std::filesystem::exists(home / "m"); }));
    QTest::qWait(20);
}

} // namespace
} // namespace wendlow::testing
