#include "ConfigFile/AtomicWrite.h"

#include "Files.h"
#include "TemporaryHome.h"

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using namespace testing;
using ::testing::ElementsAre;
using ::testing::MatchesRegex;

TEST(AtomicWrite, KeepsAModeAndGivesANewFileTheDefaultOne) {
    const struct {
        mode_t umask;
        std::optional<mode_t> before;
        mode_t expected;
    } cases[] = {{0022, {}, 0644},   {0077, {}, 0600},   {0022, 0640, 0640}, {0077, 0666, 0666},
                 {0000, 0600, 0600}, {0777, 0640, 0640}, {0022, 0400, 0400}};
    for (const auto& [mask, before, expected] : cases) {
        const TemporaryHome home;
        if (before)
            put(home / "file", "old", *before);
        const Umask umask(mask);
        ASSERT_TRUE(AtomicWrite::write("new", home / "file"));
        EXPECT_EQ(modeOf(home / "file"), expected);
        EXPECT_EQ(get(home / "file"), "new");
        EXPECT_THAT(namesIn(home.path()), ElementsAre("file"));
    }
}

TEST(AtomicWrite, WritesBesideTheFileAndCallsBeforeTheRename) {
    const TemporaryHome home;
    put(home / "settings.json", "old", 0600);
    std::string temporary;
    const auto look = [&] {
        EXPECT_EQ(get(home / "settings.json"), "old");
        temporary = namesIn(home.path()).front();
        EXPECT_EQ(get(home / temporary), "new");
        EXPECT_EQ(modeOf(home / temporary), 0600U);
    };
    ASSERT_TRUE(AtomicWrite::write("new", home / "settings.json", {.beforeRename = look}));
    EXPECT_THAT(temporary,
                MatchesRegex("\\.settings\\.json\\.wendlow-[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]"
                             "{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}-[0-9]+-[0-9]+\\.tmp"));
    const auto first = temporary;
    ASSERT_TRUE(AtomicWrite::write("new", home / "settings.json", {.beforeRename = [&] {
                                       temporary = namesIn(home.path()).front();
                                   }}));
    EXPECT_NE(temporary, first);
}

TEST(AtomicWrite, FailsWithASentenceAndLeavesNothing) {
    const TemporaryHome home;
    std::filesystem::create_directories(home / "taken/inside");
    put(home / "plain", "");
    const std::pair<std::filesystem::path, std::string> cases[] = {
        {home / "taken", "Is a directory"},
        {home / "none/file", "No such file or directory"},
        {home / "plain/file", "Not a directory"},
        {home / std::string(240, 'x'), "File name too long"},
    };
    for (const auto& [path, reason] : cases)
        EXPECT_EQ(AtomicWrite::write("new", path).error().description(),
                  path.string() + " could not be written: " + reason);
    EXPECT_THAT(namesIn(home.path()), ElementsAre("plain", "taken"));
    EXPECT_EQ(ConfigFileError::notWritable("/a").description(),
              "/a cannot be written by this user");
}

} // namespace
} // namespace wendlow
