#include "ConfigFile/Leftovers.h"

#include "ConfigFile/Backup.h"
#include "ConfigFile/HiddenName.h"
#include "Files.h"
#include "TemporaryHome.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <sys/wait.h>
#include <unistd.h>

namespace wendlow {
namespace {

using namespace testing;
using HiddenName::Parts;
using ::testing::ElementsAre;

const std::string uuid = "01234567-89AB-4CDE-8F01-23456789ABCD";

TEST(HiddenName, RecognisesItsOwnNamesAlone) {
    const struct {
        std::string name;
        std::optional<Parts> expected;
    } cases[] = {
        {".f.wendlow-" + uuid + "-7.tmp", Parts{7, {}}},
        {".f.wendlow-" + uuid + "-7-12.tmp", Parts{7, 12}},
        {".f.wendlow-" + uuid + "-7-0.tmp", Parts{7, 0}},
        {".f.wendlow-" + uuid + ".tmp", {}}, // of an earlier build, which names no process
        {".f.wendlow-" + uuid + "-.tmp", {}},
        {".f.wendlow-" + uuid + "-0.tmp", {}},
        {".f.wendlow-" + uuid + "-7-.tmp", {}},
        {".f.wendlow-" + uuid + "-7-12-3.tmp", {}},
        {".f.wendlow-" + uuid + "-7", {}},
        {".f.wendlow-" + uuid.substr(1) + "-7.tmp", {}},
        {".f.wendlow-" + uuid + "--7.tmp", {}},
        {".g.wendlow-" + uuid + "-7.tmp", {}},
        {"f.wendlow-" + uuid + "-7.tmp", {}},
        {".f.tmp", {}},
    };
    for (const auto& [name, expected] : cases)
        EXPECT_EQ(HiddenName::parts(name, "/folder/f"), expected) << name;
    const auto unique = *HiddenName::unique("/folder/f");
    EXPECT_EQ(HiddenName::parts(unique.filename().string(), "f"), (Parts{::getpid(), {}}));
    EXPECT_EQ(HiddenName::parts(HiddenName::numbered(unique, 5).filename().string(), "f"),
              (Parts{::getpid(), 5}));
}

TEST(Leftovers, AreSweptUnlessSomebodyCouldMissThem) {
    const pid_t gone = ::fork();
    if (gone == 0)
        ::_exit(0);
    ::waitpid(gone, nullptr, 0);
    const TemporaryHome home;
    const auto file = put(home / "f", "now");
    const auto date = Backup::Date::clock::now();
    const auto copy = *Backup::make(put(file, "then"), date);
    put(file, "now");
    int count = 0;
    const auto hidden = [&](pid_t process, std::optional<ino_t> number, const std::string& bytes) {
        auto name =
            home / fmt::format(".f.wendlow-{}{:04}-{}.tmp", uuid.substr(0, 32), ++count, process);
        return put(number ? HiddenName::numbered(name, *number) : name, bytes, 0600);
    };
    const auto cut = hidden(gone, {}, "half of the new by");
    const auto finished = hidden(::getpid(), {}, "all of the new bytes");
    struct stat status{};
    ASSERT_EQ(::stat(finished.c_str(), &status), 0);
    std::filesystem::rename(finished, HiddenName::numbered(finished, status.st_ino));
    hidden(gone, 0, "now");
    hidden(gone, 1, "then");
    hidden(gone, 1, "theirs");
    const auto running = hidden(::getppid(), {}, "of a verb that goes on");
    const auto earlier = put(home / (".f.wendlow-" + uuid + ".tmp"), "names nobody");
    const auto folder = home / fmt::format(".f.wendlow-{}-{}.tmp", uuid, gone);
    std::filesystem::create_directory(folder);

    const auto said = Leftovers::sweep(file, date);
    ASSERT_EQ(said.size(), 1U);
    EXPECT_EQ(get(said[0].subject), "theirs");
    EXPECT_EQ(modeOf(said[0].subject), 0600U);
    EXPECT_EQ(said[0].text, "a change of this file was interrupted earlier, and what stood in its "
                            "place then was kept here");
    EXPECT_THAT(Backup::all(file), ElementsAre(*copy, said[0].subject));
    EXPECT_THAT(namesIn(home.path()),
                ::testing::UnorderedElementsAre(running.filename(), earlier.filename(),
                                                folder.filename(), "f", copy->filename(),
                                                std::filesystem::path(said[0].subject).filename()));
    EXPECT_TRUE(Leftovers::sweep(file, date).empty());
    EXPECT_FALSE(std::filesystem::exists(cut));
}

} // namespace
} // namespace wendlow
