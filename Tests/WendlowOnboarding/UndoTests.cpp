#include "Files.h"
#include "LocalModelsUndo.h"
#include "SafeRemoval.h"
#include "TemporaryHome.h"

#include <QCoroTask>
#include <QHostAddress>
#include <QSemaphore>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>

#include <gmock/gmock.h>

#include <mutex>
#include <thread>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace wendlow {
namespace {

namespace fs = std::filesystem;
namespace Undo = LocalModelsUndo;
using Receipts = LocalModelsProgress::Receipts;
using ::testing::Each;
using ::testing::ElementsAre;
using testing::get;
using ::testing::HasSubstr;
using ::testing::Ne;
using testing::put;
using testing::TemporaryHome;

Receipts receipts() {
    return {.runtimeDir = "/r",
            .agentPlist = "/p",
            .pulledModel = "gemma",
            .asrCacheDir = "/a",
            .senkoDir = "/s",
            .ollama = LocalModelsProgress::OllamaInventory{"/o", false, {}, 1},
            .pullBeganAt = 100};
}

TEST(LocalModelsUndo, PlansInOrderWhatIsOursAlone) {
    using namespace Undo;
    const Receipts all = receipts();
    EXPECT_EQ(plan(all, {"/o/blobs/b"}),
              (Steps{DeleteModel{"gemma"}, BootoutAgent{"/p", "works.fenmoor.wendlow.ollama"},
                     RemoveFile{"/o/blobs/b"}, RemoveDirectory{"/r"}, RemoveDirectory{"/a"},
                     RemoveDirectory{"/s"}, RemoveModelFolder{"/o"}}));
    Receipts shared = all;
    shared.ollama->models = {"gemma", "other"};
    shared.ollama->folderExisted = true;
    EXPECT_EQ(plan(shared, {}).size(), 4U) << "neither the model nor the folder is ours";
    EXPECT_THAT(keeps(shared), ElementsAre("your 2 existing Ollama models stay"));
    Receipts blind = all;
    blind.ollama.reset();
    EXPECT_EQ(plan(blind, {"/o/blobs/b"}).size(), 5U) << "no partial file, no folder";
    EXPECT_TRUE(weInstalled("gemma", blind));
    EXPECT_FALSE(leavesNothingBehind(blind));
    EXPECT_TRUE(caveats(blind).empty());
    blind.agentPlist.reset();
    EXPECT_THAT(caveats(blind),
                ElementsAre("partly downloaded model files in your Ollama folder may remain"));
    EXPECT_TRUE(plan({}, {}).empty());
    EXPECT_TRUE(leavesNothingBehind(all));
}

TEST(LocalModelsUndo, SaysEachStepAndWhatStays) {
    EXPECT_THAT(Undo::describe(Undo::plan(receipts(), {"/o/blobs/sha256-1-partial"})),
                ElementsAre("will ask Ollama to remove the naming model Wendlow downloaded (gemma)",
                            "the model host Wendlow started (works.fenmoor.wendlow.ollama)",
                            "a partly downloaded model file (sha256-1-partial)", "/r", "/a", "/s",
                            "the model folder Wendlow created (/o)"));
    Receipts before = receipts();
    EXPECT_TRUE(Undo::keeps(before).empty());
    before.ollama->folderExisted = true;
    EXPECT_THAT(Undo::keeps(before),
                ElementsAre("your Ollama folder stays; it was here before Wendlow"));
    before.ollama->models = {"theirs"};
    EXPECT_THAT(Undo::keeps(before), ElementsAre("your existing Ollama model stays (theirs)"));
}

TEST(LocalModelsUndo, FindsThePartialFilesOfThisPullAlone) {
    const TemporaryHome home;
    const auto blob = [&](const char* name, std::int64_t modified) {
        const fs::path file = put(home / "o/blobs" / name, "");
        const timespec time{modified, 0};
        const timespec times[] = {time, time};
        ASSERT_EQ(::utimensat(AT_FDCWD, file.c_str(), times, 0), 0);
    };
    blob("sha256-b-partial-2", 100);
    blob("sha256-a-partial", 200);
    blob("sha256-old-partial", 99);
    blob("sha256-whole", 200);
    blob("other-partial", 200);
    Receipts ours = receipts();
    ours.ollama->folder = (home / "o").string();
    EXPECT_THAT(Undo::partialBlobs(ours),
                ElementsAre((home / "o/blobs/sha256-a-partial").string(),
                            (home / "o/blobs/sha256-b-partial-2").string()));
    ours.pullBeganAt.reset();
    EXPECT_TRUE(Undo::partialBlobs(ours).empty());
}

/// A home with a support folder in it, and things of the person's beside both.
struct Machine {
    TemporaryHome root;
    fs::path home = root / "home/ada";
    fs::path support = home / "Library/Application Support/Wendlow";
    fs::path theirs = put(home / "Documents/letter", "mine");
    fs::path outside = put(root / "etc/passwd", "theirs");
    std::mutex lock;
    std::vector<std::string> log;

    Machine() { fs::create_directories(support); }

    SafeRemoval::Places places() const { return {home, support}; }
    std::string remove(const fs::path& path) const {
        const auto removed = SafeRemoval::remove(path.string(), places());
        return removed ? "" : removed.error();
    }
    Undo::Surroundings around(std::string host = "http://127.0.0.1:1") {
        return {.home = home,
                .support = support,
                .modelHost = std::move(host),
                .bootout = [](const std::string&) { return 3; },
                .log =
                    [this](const std::string& line) {
                        const std::lock_guard guard(lock);
                        log.push_back(line);
                    }};
    }
    void expectTheirsThere() const {
        EXPECT_EQ(get(theirs), "mine");
        EXPECT_EQ(get(outside), "theirs");
    }
};

TEST(SafeRemoval, RefusesWhatNoReceiptMayName) {
    Machine machine;
    const fs::path home = machine.home;
    for (const fs::path& path :
         {fs::path(), fs::path("/"), fs::path("//"), fs::path("relative/x"), home, home / "",
          home / ".", home.parent_path(), machine.root.path(), machine.root / "etc/passwd",
          machine.root / "home/adam", machine.root / "home/ada2/x", machine.support,
          machine.support.parent_path(), home / "Library", home / "x/..", home / "../ada/x",
          home / "x/../../../etc/passwd", fs::path(std::string("/\0x", 3))})
        EXPECT_NE(machine.remove(path), "") << path;
    machine.expectTheirsThere();
    // Where there is no home, nothing lies in it.
    for (const char* nobody : {"/", "", "home"})
        EXPECT_NE(SafeRemoval::refusal("/etc/passwd", {nobody, nobody}), "") << nobody;
}

TEST(SafeRemoval, TakesWhatIsNamedWithAllThatIsInIt) {
    Machine machine;
    const fs::path folder = machine.support / "models/runtime";
    put(folder / "deep/er/file", "ours");
    put(folder / ".hidden", "ours", 0400);
    fs::create_symlink(machine.theirs, folder / "link");
    fs::create_directory_symlink(machine.home / "Documents", folder / "folder-link");
    fs::create_symlink("nowhere", folder / "dangling");
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(machine.remove(folder / ""), "");
    EXPECT_FALSE(fs::exists(folder));
    EXPECT_TRUE(fs::exists(machine.support / "models"));
    machine.expectTheirsThere();
    EXPECT_EQ(machine.remove(folder), "No such file or directory");
    EXPECT_EQ(machine.remove(put(machine.home / ".ollama/blobs/x", "")), "");
    // The product's own folder may be elsewhere.
    const fs::path elsewhere = machine.root / "volume/Wendlow";
    put(elsewhere / "models/x", "");
    EXPECT_TRUE(SafeRemoval::remove((elsewhere / "models").string(), {machine.home, elsewhere}));
    EXPECT_FALSE(fs::exists(elsewhere / "models"));
}

TEST(SafeRemoval, TakesAPlantedLinkAsALinkAndFollowsNone) {
    Machine machine;
    const fs::path planted = machine.support / "models";
    fs::create_directory_symlink(machine.home / "Documents", planted);
    EXPECT_EQ(machine.remove(planted / "letter"), "a link or a file stands on the way to it");
    EXPECT_EQ(machine.remove(planted / "letter/x"), "a link or a file stands on the way to it");
    machine.expectTheirsThere();
    EXPECT_EQ(machine.remove(planted / ""), "") << "the link itself";
    EXPECT_FALSE(fs::is_symlink(planted));
    machine.expectTheirsThere();
    fs::create_directory_symlink(machine.root / "etc", machine.home / "etc");
    EXPECT_NE(machine.remove(machine.home / "etc/passwd"), "");
    machine.expectTheirsThere();
    // The home itself may be reached by a link of the person's.
    fs::create_directory_symlink(machine.root / "home", machine.root / "Users");
    put(machine.home / "cache/x", "");
    const fs::path byLink = machine.root / "Users/ada";
    EXPECT_TRUE(SafeRemoval::remove((byLink / "cache").string(), {byLink, byLink / "support"}));
    EXPECT_FALSE(fs::exists(machine.home / "cache"));
}

TEST(SafeRemoval, IsNotLedAwayByALinkThatComesWhileItWorks) {
    Machine machine;
    const fs::path inner = machine.support / "inner";
    const fs::path other = machine.support / "other";
    std::atomic<bool> over = false;
    // A folder and a link change their places as fast as can be.
    std::thread planter([&] {
        while (!over)
            ::renameat2(AT_FDCWD, inner.c_str(), AT_FDCWD, other.c_str(), RENAME_EXCHANGE);
    });
    for (int round = 0; round < 2000 && fs::exists(machine.theirs); ++round) {
        std::error_code ignored;
        fs::remove(inner, ignored);
        fs::remove(other, ignored);
        fs::create_directory(inner, ignored);
        fs::create_directory_symlink(machine.theirs.parent_path(), other, ignored);
        machine.remove(inner);
    }
    over = true;
    planter.join();
    machine.expectTheirsThere();
}

TEST(SafeRemoval, RunByTwoProcessesAtOnceLeavesNothing) {
    Machine machine;
    const fs::path folder = machine.support / "models";
    for (int file = 0; file < 10'000; ++file)
        put(folder / std::to_string(file % 50) / std::to_string(file), "");
    std::vector<pid_t> children;
    for (int each = 0; each < 2; ++each) {
        const pid_t child = ::fork();
        if (child == 0) {
            machine.remove(folder);
            ::_exit(0);
        }
        children.push_back(child);
    }
    for (const pid_t child : children) {
        int status = -1;
        ::waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    EXPECT_FALSE(fs::exists(folder));
    machine.expectTheirsThere();
}

TEST(LocalModelsUndo, GoesOnBehindWhatFailsAndCanBeRunAgain) {
    Machine machine;
    const fs::path models = machine.support / "models";
    const fs::path plist = put(machine.home / "Library/LaunchAgents/o.plist", "");
    put(models / "runtime/bin", "");
    put(models / "speech/model", "");
    const Receipts installed{.runtimeDir = (models / "runtime").string(),
                             .agentPlist = plist.string(),
                             .pulledModel = "gemma",
                             .asrCacheDir = machine.outside.string(),
                             .senkoDir = (models / "speech").string()};
    const auto shown = Undo::permitted(Undo::planNow(installed), machine.home, machine.support);
    EXPECT_EQ(shown.size(), 4U) << "what is refused is not announced";
    const auto perform = [&] {
        QCoro::waitFor(Undo::perform(Undo::planNow(installed), machine.around()));
        return std::exchange(machine.log, {});
    };
    EXPECT_THAT(
        perform(),
        ElementsAre("cancel-install: delete model gemma: no host answered",
                    "cancel-install: bootout works.fenmoor.wendlow.ollama → 3, plist removed",
                    "cancel-install: removed " + *installed.runtimeDir,
                    "cancel-install: " + *installed.asrCacheDir +
                        " not removed (it lies outside the home folder)",
                    "cancel-install: removed " + *installed.senkoDir));
    machine.expectTheirsThere();
    const auto again = perform();
    EXPECT_THAT(again.at(1), HasSubstr("plist not removed"));
    EXPECT_THAT(again.at(2), HasSubstr("not removed (No such file or directory)"));
    EXPECT_TRUE(fs::is_empty(models));
}

TEST(LocalModelsUndo, AsksTheHostToDeleteTheModel) {
    Machine machine;
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    QByteArray request;
    QObject::connect(&server, &QTcpServer::newConnection, [&] {
        QTcpSocket* const socket = server.nextPendingConnection();
        QObject::connect(socket, &QTcpSocket::readyRead, [socket, &request] {
            request += socket->readAll();
            if (!request.endsWith('}'))
                return;
            socket->write("HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n");
            socket->disconnectFromHost();
        });
    });
    auto around = machine.around("http://127.0.0.1:" + std::to_string(server.serverPort()));
    QCoro::waitFor(Undo::perform({Undo::DeleteModel{"fen/\"gemma\""}}, around));
    EXPECT_TRUE(request.startsWith("DELETE /api/delete HTTP/1.1\r\n")) << request.toStdString();
    EXPECT_TRUE(request.endsWith("\r\n\r\n{\"name\":\"fen/\\\"gemma\\\"\"}"))
        << request.toStdString();
    EXPECT_THAT(machine.log, ElementsAre("cancel-install: delete model fen/\"gemma\" → 404"));
}

TEST(LocalModelsUndo, LeavesTheWindowItsFrames) {
    Machine machine;
    put(machine.support / "models" / "one", "");
    QSemaphore turned; // by the window's loop, which a step waits for
    QTimer::singleShot(0, [&] { turned.release(); });
    auto around = machine.around();
    around.bootout = [&](const std::string&) {
        EXPECT_TRUE(turned.tryAcquire(1, 10'000));
        return 0;
    };
    std::vector<std::thread::id> threads;
    around.log = [&](const std::string&) { threads.push_back(std::this_thread::get_id()); };
    const auto none = (machine.support / "none.plist").string();
    QCoro::waitFor(Undo::perform({Undo::BootoutAgent{none, "label"},
                                  Undo::RemoveDirectory{(machine.support / "models").string()}},
                                 around));
    EXPECT_EQ(threads.size(), 2U);
    EXPECT_THAT(threads, Each(Ne(std::this_thread::get_id())));
}

} // namespace
} // namespace wendlow
