#include "ConfigFile/Transaction.h"

#include "ConfigFile/Backup.h"
#include "Files.h"
#include "TemporaryHome.h"

#include <gmock/gmock.h>

namespace wendlow {

void PrintTo(const Observation& observation, std::ostream* stream) {
    *stream << observation.subject << ": " << observation.text;
}

namespace {

using namespace testing;
using std::nullopt;
using ::testing::ElementsAre;
namespace fs = std::filesystem;

/// Two files of a tool, and a commit in a second that never ends.
class TransactionTest : public ::testing::Test {
protected:
    TransactionResult commit(const std::vector<FileChange>& changes,
                             const std::function<void()>& beforeRename = {}) {
        return Transaction::commit(changes, at, beforeRename);
    }
    /// The sentences of a refusal, and none of anything else.
    Observations refusal(const std::vector<FileChange>& changes,
                         const std::function<void()>& beforeRename = {}) {
        const auto result = commit(changes, beforeRename);
        const auto* refused = std::get_if<TransactionResult::Refused>(&result.outcome);
        return refused == nullptr ? Observations() : refused->observations;
    }
    fs::path copyOf(const fs::path& file, const std::string& counter = "") const {
        return file.string() + ".wendlow-backup-" + Backup::stamp(at) + counter;
    }
    /// What a callback is called with no argument for: acts at its `count`th call.
    static std::function<void()> atCall(int count, const std::function<void()>& action) {
        return [=]() mutable {
            if (--count == 0)
                action();
        };
    }
    /// How the second of two files fails: a folder comes to stand in its place.
    void block(const fs::path& path) {
        fs::remove(path);
        fs::create_directories(path / "inside");
    }
    std::string blocked(const fs::path& path) const {
        return path.string() + " could not be written: Is a directory";
    }

    TemporaryHome home;
    const Transaction::Date at = std::chrono::system_clock::now();
    const fs::path a = home / "a.json";
    const fs::path b = home / "b.json";
    const std::string kept = "a copy of the file from before the change was kept here, because the "
                             "file was not put back as it was";
};

TEST_F(TransactionTest, WritesCreatesAndDeletesWithACopyOfEachFileThatWas) {
    put(a, "old a", 0640);
    put(b, "old b");
    const auto result = commit({{a, "~/a", "old a", "new a"},
                                {b, "~/b", "old b", nullopt},
                                {home / "c", "~/c", nullopt, ""}});
    const auto text = "a copy of the file was made here first";
    EXPECT_EQ(std::get<TransactionResult::Committed>(result.outcome),
              (TransactionResult::Committed{{copyOf(a), copyOf(b)},
                                            {{copyOf(a), text}, {copyOf(b), text}}}));
    EXPECT_EQ(get(a), "new a");
    EXPECT_EQ(modeOf(a), 0640U);
    EXPECT_EQ(get(copyOf(a)), "old a");
    EXPECT_EQ(modeOf(copyOf(a)), 0640U);
    EXPECT_EQ(get(b), nullopt);
    EXPECT_EQ(get(copyOf(b)), "old b");
    EXPECT_EQ(get(home / "c"), "");
    EXPECT_EQ(namesIn(home.path()).size(), 4U);
}

TEST_F(TransactionTest, TouchesNothingThatDoesNotChange) {
    put(a, "same");
    put(b, "old");
    for (const auto* count : {"", "-02", "-03"})
        put(copyOf(a, count), "");
    EXPECT_EQ(
        std::get<TransactionResult::Unchanged>(
            commit({{a, "a", "same", "same"}, {home / "none/c", "c", nullopt, nullopt}}).outcome),
        TransactionResult::Unchanged());
    EXPECT_EQ(commit({}).outcome.index(), 2U);
    EXPECT_EQ(commit({{a, "a", "same", "same"}, {b, "b", "old", "new"}}).outcome.index(), 0U);
    EXPECT_EQ(Backup::all(a).size(), 3U) << "no pruning either";
}

TEST_F(TransactionTest, LooksBeforeItTouches) {
    put(a, "old");
    fs::create_directories(home / "folder");
    fs::create_directories(home / "tool");
    fs::create_symlink(home / "gone/x.json", home / "tool/x.json");
    ASSERT_EQ(::mkfifo((home / "pipe").c_str(), 0600), 0);
    const FileChange first{a, "~/a", "old", "new"};
    const struct {
        FileChange second;
        Observation expected;
    } cases[] = {
        {{home / "folder", "~/folder", nullopt, "new"},
         {"~/folder", "there is a directory at this path, so nothing was written"}},
        {{home / "none/x", "~/none/x", nullopt, "new"},
         {"~/none", "this folder is not there, so nothing was written"}},
        {{a / "x", "~/a/x", nullopt, "new"},
         {"~/a", "this folder is not there, so nothing was written"}},
        {{home / "pipe", "~/pipe", nullopt, "new"},
         {"~/pipe", "this file cannot be written by this user, so nothing was written"}},
        {{home / "gone/x.json", (home / "tool/x.json").string(), nullopt, "new"},
         {(home / "gone").string(), "this folder is not there, so nothing was written"}},
    };
    const auto before = namesIn(home.path());
    for (const auto& [second, expected] : cases)
        EXPECT_THAT(refusal({first, second}), ElementsAre(expected));
    EXPECT_EQ(get(a), "old");
    EXPECT_EQ(namesIn(home.path()), before);
}

TEST_F(TransactionTest, UndoesWhatItDidWhenALaterFileFails) {
    const struct {
        const char* name;
        std::optional<std::string> before, after;
    } cases[] = {
        {"written", "old", "new"}, {"created", nullopt, "new"}, {"deleted", "old", nullopt}};
    for (const auto& [name, before, after] : cases) {
        SCOPED_TRACE(name);
        const TemporaryHome folder;
        const auto file = folder / "file", second = folder / "second";
        put(copyOf(file), "from an earlier time");
        if (before)
            put(file, *before, 0600);
        put(second, "2");
        const int renames = after ? 2 : 1;
        EXPECT_THAT(refusal({{file, "~/file", before, after}, {second, "~/second", "2", "3"}},
                            atCall(renames, [&] { block(second); })),
                    ElementsAre(Observation{"~/second",
                                            "this file was not written, so nothing was changed — " +
                                                blocked(second)},
                                Observation{"~/second", "this file was not put back as it was — " +
                                                            blocked(second)},
                                Observation{copyOf(second).string(), kept}));
        EXPECT_EQ(get(file), before);
        if (before) {
            EXPECT_EQ(modeOf(file), 0600U);
        }
        EXPECT_THAT(Backup::all(file), ElementsAre(copyOf(file)));
        EXPECT_EQ(get(copyOf(file)), "from an earlier time");
        EXPECT_EQ(get(copyOf(second)), "2");
    }
}

TEST_F(TransactionTest, PutsBackWhatItFoundAndNotWhatWasPlanned) {
    put(a, "the tool's own rewrite");
    put(b, "appeared since");
    const auto planned = std::vector<FileChange>{
        {a, "a", "as planned", "new"}, {b, "b", nullopt, "new"}, {home / "c", "c", nullopt, "new"}};
    EXPECT_EQ(refusal(planned, atCall(3, [&] { block(home / "c"); })).size(), 2U);
    EXPECT_EQ(get(a), "the tool's own rewrite");
    EXPECT_EQ(get(b), "appeared since");
    EXPECT_THAT(namesIn(home.path()), ElementsAre("a.json", "b.json", "c"));

    fs::remove_all(home / "c");
    EXPECT_EQ(commit(planned).outcome.index(), 0U);
    EXPECT_EQ(get(a), "new");
    EXPECT_EQ(get(copyOf(a)), "the tool's own rewrite");
    EXPECT_EQ(get(copyOf(b)), "appeared since");
}

TEST_F(TransactionTest, LeavesAloneWhatSomebodyElseWroteMeanwhile) {
    put(a, "old");
    EXPECT_THAT(
        refusal({{a, "~/a", "old", "new"}, {b, "~/b", nullopt, "new"}}, atCall(2,
                                                                               [&] {
                                                                                   put(a, "theirs");
                                                                                   block(b);
                                                                               })),
        ElementsAre(
            Observation{"~/b", "this file was not written, so nothing was changed — " + blocked(b)},
            Observation{"~/a", "this file was not put back as it was — " + a.string() +
                                   " could not be written: another program has "
                                   "written it since"},
            Observation{copyOf(a).string(), kept},
            Observation{"~/b", "this file was not put back as it was — " + blocked(b)}));
    EXPECT_EQ(get(a), "theirs");
    EXPECT_EQ(get(copyOf(a)), "old");
}

TEST_F(TransactionTest, SurvivesTheLossOfACopyOrOfTheFolder) {
    put(a, "old");
    EXPECT_EQ(refusal({{a, "a", "old", "new"}, {b, "b", nullopt, "new"}}, atCall(2,
                                                                                 [&] {
                                                                                     fs::remove(
                                                                                         copyOf(a));
                                                                                     block(b);
                                                                                 }))
                  .size(),
              2U);
    EXPECT_EQ(get(a), "old");

    const auto inside = put(home / "tool/x.json", "old");
    const auto gone = inside.string() + " could not be written: No such file or directory";
    EXPECT_THAT(
        refusal({{inside, "x", "old", "new"}}, [&] { fs::remove_all(home / "tool"); }),
        ElementsAre(Observation{"x", "this file was not written, so nothing was changed — " + gone},
                    Observation{"x", "this file was not put back as it was — " + gone}));
}

} // namespace
} // namespace wendlow
