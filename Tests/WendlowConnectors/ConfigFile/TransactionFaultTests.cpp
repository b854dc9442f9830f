#include "FaultSweep.h"
#include "TemporaryHome.h"

#include <sstream>

namespace wendlow {
namespace {

using namespace testing;
namespace fs = std::filesystem;

Verdict verdictOf(const ProgramRun& run) {
    Verdict verdict;
    std::istringstream lines(run.out);
    std::string line;
    std::getline(lines, line);
    EXPECT_TRUE(line == "committed" || line == "refused" || line == "unreadable") << run.out;
    if (line != "unreadable")
        verdict.kind = line == "committed" ? Verdict::Kind::committed : Verdict::Kind::refused;
    while (std::getline(lines, line)) {
        const auto tab = line.find('\t');
        verdict.observations.push_back({line.substr(0, tab), line.substr(tab + 1)});
    }
    return verdict;
}

/// A commit that creates a file, deletes one and writes two, one of them with copies from earlier
/// times: a late failure has everything to undo.
class TransactionFaults : public ::testing::Test {
protected:
    void prepare() const {
        fs::create_directory(root);
        put(root / "deleted", "old deleted", 0640);
        put(root / "written", "old written", 0640);
        put(root / "last", "old last");
        for (const auto* stamp : {"20200101-000000", "20200101-000001"})
            put(root / "last.wendlow-backup-" += stamp, stamp);
    }

    TemporaryHome home;
    const fs::path root = home / "disk";
    const FaultSweep sweep{
        .program = WENDLOW_COMMIT_PROGRAM,
        .arguments = {root / "created=new created", root / "deleted", root / "written=new written",
                      root / "last=new last"},
        .root = root,
        .prepare = [this] { prepare(); },
        .files = {{root / "created", std::nullopt, "new created"},
                  {root / "deleted", "old deleted", std::nullopt},
                  {root / "written", "old written", "new written"},
                  {root / "last", "old last", "new last"}},
        .verdict = verdictOf,
    };
};

class TransactionFaultTest : public TransactionFaults,
                             public ::testing::WithParamInterface<const char*> {};

TEST_P(TransactionFaultTest, TellsTheTruthWhicheverCallFails) {
    prepare();
    const auto untouched = namesIn(root);
    int committed = 0, refused = 0;
    sweep.failEachCall(GetParam(), [&](const Verdict& verdict) {
        const bool isCommitted = verdict.kind == Verdict::Kind::committed;
        ++(isCommitted ? committed : refused);
        // The bytes may be private: a mode may get narrower by a fault, never wider.
        EXPECT_EQ(modeOf(root / "written") & ~0640U, 0U);
        if (isCommitted)
            return;
        EXPECT_EQ(namesIn(root), untouched);
        EXPECT_EQ(modeOf(root / "deleted"), 0640U);
        EXPECT_EQ(modeOf(root / "written"), 0640U);
    });
    EXPECT_GT(committed, 50);
    EXPECT_GT(refused, 50);
}

INSTANTIATE_TEST_SUITE_P(With, TransactionFaultTest, ::testing::Values("ENOSPC", "EIO", "EACCES"));

TEST_F(TransactionFaults, RefusesWhereNewBytesMayNotHaveArrived) {
    std::set<std::string> created;
    bool isNew = false, isFolder = false, isReplacing = false;
    int tried = 0;
    sweep.forEachCall(
        {.error = "EIO"},
        [&](const FaultyRun& run, const std::string&) {
            ++tried;
            EXPECT_EQ(verdictOf(run).kind, Verdict::Kind::refused);
        },
        [&](const std::string& call) {
            isReplacing = isReplacing || call.starts_with("renameat2 ");
            if (call.starts_with("open ")) {
                isFolder = call == "open " + root.string();
                isNew = !isReplacing &&
                        (call.ends_with(".tmp") || call.contains(".wendlow-backup-")) &&
                        created.insert(call).second;
            }
            return (isNew && (call.starts_with("write ") || call.starts_with("close "))) ||
                   ((isNew || isFolder) && call.starts_with("fsync "));
        });
    EXPECT_EQ(tried, 6 * 3 + 4) << "three copies, three new files, the folder for each copy and "
                                   "after the last file";
}

TEST_P(TransactionFaultTest, TellsTheTruthOnADiskThatStaysBroken) {
    sweep.failFromEachCall(GetParam());
}

TEST_F(TransactionFaults, IsNotDisturbedBySignalsAndShortCounts) {
    for (const auto* error : {"EINTR", "SHORT"})
        sweep.forEachCall(
            {.error = error},
            [&](const FaultyRun& run, const std::string&) {
                EXPECT_EQ(verdictOf(run).kind, Verdict::Kind::committed) << run.out;
                expectTruth(sweep.files, verdictOf(run));
            },
            [](const std::string& call) {
                return call.starts_with("read ") || call.starts_with("write ") ||
                       call.starts_with("fsync ") || call.starts_with("close ");
            });
}

TEST_F(TransactionFaults, LeavesAWayBackWhereverItIsKilled) {
    for (const auto* lacks : {"", "renameat2", "renameat2 link"})
        for (const auto* when : {"before", "after"}) {
            auto lesser = sweep;
            lesser.lacks = lacks;
            lesser.killAtEachCall(when);
        }
}

TEST_F(TransactionFaults, TellsTheTruthWhereFilesCanNeitherBeExchangedNorLinked) {
    for (const auto* lacks : {"renameat2", "renameat2 link"}) {
        auto lesser = sweep;
        lesser.lacks = lacks;
        lesser.failEachCall("EIO");
    }
}

TEST_F(TransactionFaults, FlushesBeforeAnythingIsReplacedAndBeforeAnythingIsLetGo) {
    int unflushed = 0, flushedFolders = 0, replaced = 0, removed = 0;
    std::string opened;
    for (const auto& call : sweep.run({}).calls) {
        if (call.starts_with("open "))
            opened = call.substr(5);
        unflushed += call.starts_with("write ") ? 1 : 0;
        if (call.starts_with("fsync ")) {
            unflushed = 0;
            flushedFolders += opened == root ? 1 : 0;
        }
        if (call.starts_with("rename")) {
            EXPECT_EQ(unflushed, 0) << call;
            EXPECT_EQ(flushedFolders, 3) << "one copy's name for each file that was there";
            replaced += call.starts_with("renameat2 ") ? 1 : 0;
        }
        if (call.starts_with("unlink ")) {
            EXPECT_EQ(flushedFolders, 4) << "the names of the new files too";
            ++removed;
        }
    }
    EXPECT_EQ(replaced, 5) << "two exchanges, a try of one, a new name, a deletion";
    EXPECT_EQ(removed, 4) << "what three files held before, and one copy pruned";
}

TEST_F(TransactionFaults, BelievesNoCopyThatItCannotReadBack) {
    const auto calls = sweep.run({}).calls;
    const auto copy = std::ranges::find_if(
        calls, [](const auto& call) { return call.find("deleted.wendlow-backup-") != call.npos; });
    const auto write = std::find(copy, calls.end(), "write (open file)");
    const auto verdict =
        verdictOf(sweep.run({.at = write - calls.begin() + 1, .error = "CORRUPT"}));
    ASSERT_EQ(verdict.observations.size(), 1U);
    EXPECT_EQ(verdict.observations[0].subject, root / "deleted");
    EXPECT_TRUE(verdict.observations[0].text.starts_with(
        "this file was not copied, so nothing was written — " +
        (root / "deleted.wendlow-backup-").string()));
    EXPECT_TRUE(verdict.observations[0].text.ends_with(
        " could not be written: the copy did not match the original"));
    expectTruth(sweep.files, verdict);
}

/// At no call may another program's write vanish; one that comes after the reading and is replaced
/// is told.
TEST_F(TransactionFaults, KeepsWhatAnotherProgramWritesWheneverItDoes) {
    const auto path = (root / "written").string();
    struct Write {
        const char* lacks;
        std::string command;
        std::string before; ///< the exchange: what a copy holds
        std::string after;
    };
    const std::string moved =
        fmt::format("printf theirs >{0}.new; chmod 640 {0}.new; mv {0}.new {0}", path);
    const std::string written = fmt::format("printf theirs >{}", path);
    const std::string added = fmt::format("printf theirs >>{}", path);
    // Without an exchange, what is moved there between the two calls that do its work is not kept.
    for (const auto& [lacks, command, before, after] :
         {Write{"", moved, "theirs", "theirs"}, Write{"", written, "theirs", "theirs"},
          Write{"", added, "old writtentheirs", "new writtentheirs"},
          Write{"renameat2", written, "theirs", "theirs"}}) {
        auto lesser = sweep;
        lesser.lacks = lacks;
        bool isOpen = false, isRead = false;
        lesser.forEachCall({.command = command}, [&](const FaultyRun& run,
                                                     const std::string& call) {
            const auto verdict = verdictOf(run);
            EXPECT_EQ(verdict.kind, Verdict::Kind::committed);
            const bool stands = get(path) == after;
            EXPECT_TRUE(stands || hasCopy({path, before, {}}));
            EXPECT_FALSE(hasTemporary(root));
            const bool isTold = std::ranges::any_of(verdict.observations, [](const auto& said) {
                return said.text.starts_with("another program wrote to the file since it was read");
            });
            EXPECT_EQ(isTold, isRead && !stands);
            isOpen = isOpen || call == "open " + path;
            // A file that is open stays what it is when another takes its name.
            isRead = isRead || (isOpen && (command == moved || call.starts_with("read ")));
        });
    }
}

} // namespace
} // namespace wendlow
