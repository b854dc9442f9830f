#include "ConfigFile/Transaction.h"

#include "ConfigFile/Backup.h"
#include "Files.h"
#include "TemporaryHome.h"

#include <array>

#include <gmock/gmock.h>
#include <sys/xattr.h>
#include <unistd.h>

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

/// The owner and one more user may read and write, nobody else anything: as the kernel keeps it.
const std::string rights("\2\0\0\0"
                         "\1\0\6\0\xff\xff\xff\xff"
                         "\2\0\6\0\x80\x0d\0\0"
                         "\4\0\0\0\xff\xff\xff\xff"
                         "\x10\0\6\0\xff\xff\xff\xff"
                         "\x20\0\0\0\xff\xff\xff\xff",
                         44);

std::string attributeOf(const fs::path& path, const char* name) {
    std::array<char, 256> room{};
    const auto size = ::getxattr(path.c_str(), name, room.data(), room.size());
    return {room.data(), static_cast<std::size_t>(std::max<ssize_t>(size, 0))};
}

/// What root does to a person's file stays the person's, and so does its copy.
TEST_F(TransactionTest, KeepsOwnerGroupAccessListAndAttributes) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can give a file away";
    constexpr const char* list = "system.posix_acl_access";
    put(a, "old", 0600);
    ASSERT_EQ(::chown(a.c_str(), 1234, 2345), 0);
    const bool hasLists = ::setxattr(a.c_str(), list, rights.data(), rights.size(), 0) == 0;
    const bool hasAttributes = ::setxattr(a.c_str(), "user.mine", "\0x", 2, 0) == 0;
    const auto mode = modeOf(a);
    const auto before = namesIn(home.path()).size();
    EXPECT_THAT(std::get<TransactionResult::Committed>(commit({{a, "~/a", "old", "new"}}).outcome)
                    .observations,
                ElementsAre(Observation{copyOf(a), "a copy of the file was made here first"}));
    EXPECT_EQ(namesIn(home.path()).size(), before + 1);
    EXPECT_EQ(get(a), "new");
    for (const auto& path : {a, copyOf(a)}) {
        struct stat status{};
        ASSERT_EQ(::stat(path.c_str(), &status), 0);
        EXPECT_EQ(status.st_uid, 1234U);
        EXPECT_EQ(status.st_gid, 2345U);
        EXPECT_EQ(modeOf(path), mode);
        if (hasLists) {
            EXPECT_EQ(attributeOf(path, list), rights);
        }
        if (hasAttributes) {
            EXPECT_EQ(attributeOf(path, "user.mine"), std::string("\0x", 2));
        }
    }
}

/// Who may write a file but not give it away is told, and nobody comes to read what only the old
/// group could.
TEST_F(TransactionTest, TellsWhatItCannotKeep) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can become somebody else";
    put(a, "old", 0676);
    fs::create_hard_link(a, b);
    ::chmod(home.path().c_str(), 0777);
    const Umask umask(0);
    ASSERT_EQ(::setegid(65534), 0);
    ASSERT_EQ(::seteuid(65534), 0);
    const auto result = commit({{a, "~/a", "old", "new"}});
    ASSERT_EQ(::seteuid(0), 0);
    ASSERT_EQ(::setegid(0), 0);
    EXPECT_THAT(
        std::get<TransactionResult::Committed>(result.outcome).observations,
        ElementsAre(Observation{"~/a", "this user could not keep everything that this file has "
                                       "beside its bytes — its owner, its group"},
                    Observation{"~/a", "this file has other names (hard links), which keep what it "
                                       "held before"},
                    Observation{copyOf(a), "a copy of the file was made here first"}));
    EXPECT_EQ(get(b), "old");
    EXPECT_EQ(modeOf(a), 0666U);
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

/// That a path cannot be read any more does not make the file there another, nor one that never
/// was.
TEST_F(TransactionTest, CallsNothingChangedThatItCannotRead) {
    for (const std::optional<std::string>& before : {std::optional<std::string>("old"), {}}) {
        const auto folder = home / "tool", file = folder / "x.json";
        fs::create_directory(folder);
        if (before)
            put(file, *before);
        const auto said = refusal({{file, "x", before, "new"}}, [&] {
            fs::rename(folder, home / "elsewhere");
            fs::create_symlink("tool", folder);
        });
        EXPECT_THAT(
            said, ElementsAre(Observation{
                      "x", "this file was not written, so nothing was changed — " + file.string() +
                               " could not be written: Too many levels of symbolic links"}));
        EXPECT_EQ(get(home / "elsewhere/x.json"), before);
        fs::remove(folder);
        fs::remove_all(home / "elsewhere");
    }
}

} // namespace
} // namespace wendlow
