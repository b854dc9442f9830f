#include "ConfigFile/Disk.h"

#include "Files.h"
#include "TemporaryHome.h"

#include <gtest/gtest.h>

#include <sys/wait.h>

namespace wendlow {
namespace {

using namespace testing;
using std::string;
namespace fs = std::filesystem;

constexpr std::size_t piece = std::size_t{256} * 1024;

TEST(Disk, ReadsFilesWholeAndRefusesWhatIsNoFile) {
    const TemporaryHome home;
    for (const auto& bytes : {string(), string("a\0b", 3), string(piece - 1, 'x'),
                              string(piece, 'x'), string(3 * piece + 1, 'x')})
        EXPECT_EQ(Disk::read(put(home / "file", bytes)), bytes) << bytes.size();
    EXPECT_NE(Disk::read("/proc/self/cmdline")->value(), "") << "a file that says it is empty";

    fs::create_symlink("gone", home / "dangling");
    fs::create_symlink("loop", home / "loop");
    ASSERT_EQ(::mkfifo((home / "pipe").c_str(), 0600), 0);
    for (const auto* absent : {"none", "none/below", "file/below", "dangling"})
        EXPECT_EQ(Disk::read(home / absent).value(), std::nullopt) << absent;
    EXPECT_EQ(Disk::read(home.path()).error(), EISDIR);
    EXPECT_EQ(Disk::read(home / "loop").error(), ELOOP);
    EXPECT_EQ(Disk::read(home / "pipe").error(), ENOTSUP) << "and does not wait for a writer";
}

TEST(Disk, ComparesWithoutTakingAPrefixForTheWhole) {
    const TemporaryHome home;
    for (const auto size : {std::size_t{0}, std::size_t{5}, piece - 1, piece, 2 * piece}) {
        const string bytes(size, 'x');
        put(home / "file", bytes);
        EXPECT_EQ(Disk::holds(home / "file", bytes), true) << size;
        EXPECT_EQ(Disk::holds(home / "file", bytes + "x"), false) << size;
        put(home / "file", bytes + "y");
        EXPECT_EQ(Disk::holds(home / "file", bytes), false) << size;
        EXPECT_EQ(Disk::holds(home / "file", bytes + "x"), false) << size;
    }
}

TEST(Disk, CreatesWithTheModeThatWasAskedForAndOverwritesNothing) {
    const TemporaryHome home;
    const Umask umask(0027);
    for (const auto& [rule, mode] :
         {std::pair(Disk::ModeRule::exact, 0666), std::pair(Disk::ModeRule::masked, 0640)}) {
        ASSERT_TRUE(Disk::create(home / "new", "bytes", 0666, rule));
        EXPECT_EQ(modeOf(home / "new"), static_cast<mode_t>(mode));
        EXPECT_EQ(Disk::create(home / "new", "other", 0666, rule).error(), EEXIST);
        EXPECT_EQ(get(home / "new"), "bytes");
        fs::remove(home / "new");
    }
    fs::create_symlink("elsewhere", home / "link");
    EXPECT_EQ(Disk::create(home / "link", "bytes", 0600).error(), EEXIST);
    EXPECT_FALSE(fs::exists(home / "elsewhere"));
}

TEST(Disk, MakesMissingFoldersOnly) {
    const TemporaryHome home;
    const Umask umask(0277);
    ::chmod(home.path().c_str(), 0755);
    EXPECT_TRUE(Disk::createDirectories(home / "a/b/c", 0700));
    for (const auto* made : {"a", "a/b", "a/b/c"})
        EXPECT_EQ(modeOf(home / made), 0700U) << made;
    EXPECT_EQ(modeOf(home.path()), 0755U);
    put(home / "file", "");
    EXPECT_EQ(Disk::createDirectories(home / "file", 0700).error(), EEXIST);
    EXPECT_EQ(Disk::createDirectories(home / "file/below", 0700).error(), ENOTDIR);
}

TEST(Disk, AsksAsTheUserWhoWillWrite) {
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can become somebody else";
    const TemporaryHome home;
    ::chmod(home.path().c_str(), 0755);
    put(home / "readable", "", 0644);
    put(home / "secret", "", 0600);
    const pid_t child = ::fork();
    if (child == 0) {
        // The real user stays root: what counts is who the writing would be done as.
        const bool right = ::seteuid(65534) == 0 && !Disk::isWritable(home / "readable") &&
                           !Disk::isWritable(home.path()) && Disk::isWritable("/tmp") &&
                           Disk::read(home / "readable").has_value() &&
                           Disk::read(home / "secret") == std::unexpected(EACCES);
        ::_exit(right ? 0 : 1);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}

} // namespace
} // namespace wendlow
