#include "Files.h"
#include "RunProgram.h"
#include "Support/OnADesktop.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <map>

#include <fmt/format.h>
#include <gmock/gmock.h>

namespace wendlow::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::HasSubstr;
using ::testing::Not;

/// Where each thing of the store is, by what it is called: memories and folders.
using Places = std::map<std::string, std::string>;

Places moved(Places places, const std::string& from, const std::string& to) {
    for (auto& [thing, scope] : places)
        if (scope == from || scope.starts_with(from + "/"))
            scope.replace(0, from.size(), to);
    return places;
}

/// How many things lie elsewhere.
std::ptrdiff_t differences(const Places& left, const Places& right) {
    return std::ranges::count_if(
        left, [&](const auto& each) { return right.at(each.first) != each.second; });
}

/// A scope is moved as a person does it: looked at in the window, and done by the script that the
/// window writes, which asks the store and the real `wendlow-mcp`.
class ScopeMove : public OnADesktop {
protected:
    void SetUp() override {
        OnADesktop::SetUp();
        gateway.start();
        // A name that a shell, a string of Python and a line of JSON would each read otherwise.
        const std::string path = json(odd);
        gateway.ask(fmt::format(
            R"({{"notes":{{"_0":{{"write":{{"text":"An odd one","why":"so","writer":"codex","type":"fact","path":"{}"}}}}}}}})",
            path));
        gateway.ask(fmt::format(
            R"({{"notes":{{"_0":{{"mapPath":{{"folder":"/mnt{0}","path":"{0}"}}}}}}}})", path));
        before = places();
        ASSERT_EQ(before.at("/mnt" + odd.toStdString()), odd.toStdString());
    }

    void open() {
        application.emplace(desktop, QStringList{u"--window=editor"_s});
        const auto window = application->window(u"Memories"_s);
        ASSERT_TRUE(window) << application->errors().toStdString();
        ASSERT_TRUE(eventually([&] { return window->isActive(); }));
        press(u"scope: /"_s);
        press(u"Manage Scopes…"_s);
        ASSERT_TRUE(is("heading", u"Scopes"_s));
    }
    /// Walks to a scope's row, which may be far down.
    void select(const QString& scope) const {
        const auto some = application->find(u"list item"_s, u"/home"_s);
        ASSERT_TRUE(some && some->act(u"Press"_s));
        QStringList paths;
        for (const auto& row : board())
            paths.append(row["path"_L1].toString());
        const auto place = paths.indexOf(scope);
        ASSERT_GE(place, 0) << scope.toStdString();
        desktop.press(QStringList{u"Home"_s} + QStringList(place, u"Down"_s));
        ASSERT_TRUE(is("list item", scope));
    }
    /// Writes the script of a move by the window; `path` is typed over what the field proposes.
    void writeScript(const QString& scope, const QString& action, const QString& path) {
        ASSERT_NO_FATAL_FAILURE(open());
        ASSERT_NO_FATAL_FAILURE(select(scope));
        ASSERT_NO_FATAL_FAILURE(press(action));
        ASSERT_TRUE(is("heading", action.section(u'…', 0, 0) + u' ' + scope));
        if (!path.isEmpty()) {
            desktop.press({u"ctrl+a"_s});
            desktop.run(u"xdotool"_s, {u"type"_s, u"--delay"_s, u"20"_s, path});
        }
        press(u"Write migration script"_s);
        ASSERT_TRUE(is("push button", u"Copy path"_s));
        ASSERT_EQ(namesIn(folder()).size(), 1U);
        script = folder() / namesIn(folder()).front();
        EXPECT_TRUE(
            says(u"Migration script written to %1. Read it, then run it — the Editor never "
                 "performs a scope move itself."_s.arg(QString::fromStdString(script.string()))));
        EXPECT_EQ(modeOf(script), 0755U);
        EXPECT_EQ(places(), before) << "to write it moves nothing";
    }
    /// The script, run by its path as in a shell.
    ProgramRun run(const std::vector<std::string>& words, Environment more = {}) const {
        more.insert({"HOME", desktop.home().path().string()});
        more.insert({"PATH", "/usr/bin:/bin"});
        ProgramRun result = runProgram(script, words, more, {}, std::chrono::seconds(90));
        EXPECT_EQ(result.err, "");
        return result;
    }

    QJsonArray board() const {
        return gateway.ask(R"({"notes":{"_0":{"scopeBoard":{}}}})")["_0"_L1].toArray();
    }
    Places places() const {
        Places places;
        for (const auto& row : gateway.browse(R"("limit":500)")["rows"_L1].toArray())
            places[text(row["id"_L1])] = text(row["scope"_L1]);
        for (const auto& scope : board())
            for (const auto& mapped : scope["folders"_L1].toArray())
                places[text(mapped)] = text(scope["path"_L1]);
        return places;
    }
    std::filesystem::path folder() const { return desktop.home() / ".wendlow/migrations"; }
    /// The one copy that the script has made.
    std::filesystem::path backup() const {
        std::filesystem::path found;
        for (const std::string& name : namesIn(gateway.store().parent_path()))
            if (name.starts_with("data.db.scope-migration-"))
                found = gateway.store().parent_path() / name;
        return found;
    }
    /// The copy in the store's place, as the script's last words tell to do it.
    void restore() {
        gateway.kill();
        for (const char* const beside : {"-wal", "-shm"})
            std::filesystem::remove(gateway.store().string() + beside);
        std::filesystem::rename(backup(), gateway.store());
        gateway.start();
    }

    static std::string text(const QJsonValue& value) { return value.toString().toStdString(); }
    static std::string json(const QString& text) {
        const std::string array =
            QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact).toStdString();
        return array.substr(2, array.size() - 4);
    }

    static inline const QString odd = u"/studio/letters/\"q\" it's \\b\\n $(x)/🚀/שלום"_s;
    Places before;
    std::filesystem::path script;
};

TEST_F(ScopeMove, IsPreviewedWrittenTriedAndDone) {
    const QString from = u"/studio/letters"_s;
    const QString to = u"/post/letters"_s;
    const Places after = moved(before, from.toStdString(), to.toStdString());
    const auto count = differences(before, after);
    ASSERT_GT(count, 5);
    ASSERT_NO_FATAL_FAILURE(writeScript(from, u"Rename… (writes a script)"_s, to));

    const ProgramRun tried = run({});
    EXPECT_EQ(tried.status, 0);
    EXPECT_THAT(tried.out, HasSubstr("\nDRY RUN - nothing written. Re-run with --apply.\n"));
    EXPECT_EQ(places(), before);
    EXPECT_EQ(backup(), "");

    const ProgramRun done = run({"--apply"});
    EXPECT_EQ(done.status, 0);
    EXPECT_EQ(places(), after);
    EXPECT_TRUE(done.out.starts_with(tried.out.substr(0, tried.out.find("DRY RUN"))));
    EXPECT_THAT(done.out, HasSubstr(fmt::format("\nbackup verified: {} (301 notes)\napplied {}/{}; "
                                                "failures: 0\n",
                                                backup().string(), count, count)));
    EXPECT_THAT(done.out, Not(HasSubstr("restore")));
    EXPECT_EQ(modeOf(backup()), 0600U);

    // The board follows.
    press(u"World"_s);
    press(u"Reset World"_s);
    select(to);
    select(to + odd.mid(from.size()));
    application.reset();
    restore();
    EXPECT_EQ(places(), before) << "the copy was made before the first write";
}

TEST_F(ScopeMove, CountsWhatFailsAndSaysHowToGoBack) {
    // The scope of the odd name gives up what it holds to the one above, as the field proposes.
    const QString above = odd.section(u'/', 0, -2);
    for (int count = 0; count < 3; ++count)
        gateway.ask(fmt::format(R"({{"notes":{{"_0":{{"edit":{{"id":"m{}","path":"{}"}}}}}}}})",
                                count + 1, json(odd)));
    before = places();
    const auto last = std::ranges::find_if(before, [&](const auto& each) {
        return each.first.starts_with('m') && each.first.size() > 2 &&
               each.second == odd.toStdString();
    });
    ASSERT_NE(last, before.end());
    ASSERT_NO_FATAL_FAILURE(writeScript(odd, u"Retire… (writes a script)"_s, {}));
    application.reset(); // or its questions would be among those that are counted
    const Places retired = moved(before, odd.toStdString(), above.toStdString());
    ASSERT_EQ(differences(before, retired), 5);

    // A copy that is not whole: nothing is written.
    put(desktop.home() / "cut/sitecustomize.py", R"python(import sqlite3
connect = sqlite3.connect
def cutting(name, **more):
    if "scope-migration" in name:
        with connect(name[len("file:"):name.index("?")]) as copy:
            copy.execute("DELETE FROM documents WHERE number = (SELECT max(id) FROM note)")
    return connect(name, **more)
sqlite3.connect = cutting
)python");
    const ProgramRun cut = run({"--apply"}, {{"PYTHONPATH", (desktop.home() / "cut").string()}});
    EXPECT_EQ(cut.status, 1);
    EXPECT_THAT(cut.out,
                ::testing::EndsWith("\nBACKUP VERIFY FAILED: backup has 300 notes, live has "
                                    "301. Nothing written.\n"));
    EXPECT_EQ(places(), before);
    std::filesystem::remove(backup());

    // The second call meets a daemon of another version, the fourth one that refuses it twice.
    gateway.start("answer,wire-2,answer,refuse,refuse,answer");
    const ProgramRun holed = run({"--apply"});
    EXPECT_EQ(holed.status, 0);
    EXPECT_THAT(holed.out,
                HasSubstr(fmt::format("\nFAILED: m:2\nFAILED: m:{}\napplied 3/5; failures: 2\n",
                                      last->first.substr(1))));
    EXPECT_THAT(holed.out, ::testing::EndsWith(
                               fmt::format("\nrestore with: cp {} {}   (stop the daemon first)\n",
                                           backup().string(), gateway.store().string())));
    EXPECT_EQ(places(), retired) << "the two were done, and the answers did not count";
    restore();
    EXPECT_EQ(places(), before);

    // The daemon goes in the middle of a call, and does not come back.
    gateway.start("answer,die");
    const ProgramRun left = run({"--apply"});
    EXPECT_EQ(left.status, 0);
    EXPECT_THAT(left.out,
                HasSubstr(fmt::format("\nFAILED: folder /mnt{}\napplied 1/5; failures: 4\n"
                                      "restore with: cp ",
                                      odd.toStdString())));
    std::filesystem::remove(backup());
    gateway.start();
    EXPECT_EQ(differences(before, places()), 1);

    // What was not moved then is moved by another run.
    const ProgramRun done = run({"--apply"});
    EXPECT_THAT(done.out, ::testing::EndsWith("applied 4/4; failures: 0\n"));
    EXPECT_EQ(places(), retired);
}

} // namespace
} // namespace wendlow::testing
