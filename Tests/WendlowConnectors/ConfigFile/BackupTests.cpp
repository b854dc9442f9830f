#include "ConfigFile/Backup.h"

#include "Files.h"
#include "TemporaryHome.h"

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using namespace testing;
using namespace std::chrono_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr auto mark = "settings.json.wendlow-backup-";

/// A second on 2026-01-31, in the time zone that the object sets.
class Clock {
public:
    explicit Clock(const char* zone = "UTC") { ::setenv("TZ", zone, 1); }
    ~Clock() { ::unsetenv("TZ"); }
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;

    Backup::Date at = std::chrono::sys_days(std::chrono::year(2026) / 1 / 31) + 23h + 59min + 59s;
};

TEST(Backup, StampsInTheMachinesTimeZone) {
    EXPECT_EQ(Backup::stamp(Clock().at), "20260131-235959");
    EXPECT_EQ(Backup::stamp(Clock().at + 999ms), "20260131-235959");
    EXPECT_EQ(Backup::stamp(Clock("UTC-01:30").at), "20260201-012959");
    EXPECT_EQ(Backup::stamp(Clock("CET-1CEST,M3.5.0,M10.5.0/3").at - 184 * 24h), "20250801-015959");
}

TEST(Backup, NamesEachCopySoThatItSortsLast) {
    const struct {
        std::vector<std::string> there;
        std::string expected;
    } cases[] = {
        {{}, "20260131-235959"},
        {{"20260131-235958", "20251231-000000-07"}, "20260131-235959"},
        {{"20260131-235959"}, "20260131-235959-02"},
        {{"20260131-235959-02"}, "20260131-235959-03"}, // the first was pruned
        {{"20260131-235959", "20260131-235959-09"}, "20260131-235959-10"},
        {{"20260131-235959-99"}, "20260131-235959-990"}, // "100" would sort before "99"
        {{"20260131-235959-100", "20260131-235959-99"}, "20260131-235959-990"},
        {{"20260131-235959-999"}, "20260131-235959-9990"},
        {{"20260201-000000"}, "20260201-000000-02"}, // the clock was set back since
        {{"mine", "2026", "20260131-235959-", "20260131-235959-2", "20260131-235959.json",
          "99999999-99999x", "99999999_999999"},
         "20260131-235959"}, // the person's own
    };
    for (const auto& [there, expected] : cases) {
        const TemporaryHome home;
        put(home / "settings.json", "now");
        for (const auto& suffix : there)
            put(home / (mark + suffix), "then");
        const auto copy = Backup::make(home / "settings.json", Clock().at);
        EXPECT_EQ(**copy, home / (mark + expected));
        EXPECT_EQ(get(**copy), "now");
        EXPECT_EQ(Backup::all(home / "settings.json").back(), **copy);
    }
}

TEST(Backup, KeepsTheTwoNewestOfManyMadeInOneSecond) {
    const TemporaryHome home;
    const auto file = put(home / "settings.json", "");
    const auto foreign = put(home / (std::string(mark) + "before the move"), "mine");
    std::optional<Backup::Path> last;
    for (int count = 0; count < 120; ++count) {
        const auto copy = *Backup::make(put(file, std::to_string(count)), Clock().at);
        Backup::prune(file);
        if (last) {
            EXPECT_THAT(Backup::all(file), ElementsAre(*last, *copy));
        }
        EXPECT_EQ(get(*copy), std::to_string(count));
        last = copy;
    }
    EXPECT_EQ(get(foreign), "mine");
    EXPECT_THAT(Backup::prune(file), IsEmpty());
    // What cannot be removed is passed over.
    std::filesystem::create_directory(home / (std::string(mark) + "20000101-000000"));
    const auto older = put(home / (std::string(mark) + "20000101-000001"), "");
    EXPECT_THAT(Backup::prune(file), ElementsAre(older));
}

TEST(Backup, CopiesTheModeWhateverTheUmask) {
    for (const mode_t mode : {0640, 0600, 0666, 0444, 0700})
        for (const mode_t mask : {0000, 0022, 0077, 0777}) {
            const TemporaryHome home;
            put(home / "settings.json", std::string(700000, 'x'), mode);
            const Umask umask(mask);
            const auto copy = *Backup::make(home / "settings.json", Clock().at);
            EXPECT_EQ(modeOf(*copy), mode);
            EXPECT_EQ(get(*copy), get(home / "settings.json"));
        }
}

TEST(Backup, HasNothingToCopyWhereThereIsNoFile) {
    const TemporaryHome home;
    std::filesystem::create_directory(home / "folder");
    std::filesystem::create_symlink("gone", home / "dangling");
    for (const auto* name : {"none", "none/file", "folder", "dangling"})
        EXPECT_EQ(Backup::make(home / name, Clock().at).value(), std::nullopt) << name;
    std::filesystem::create_symlink("loop", home / "loop");
    EXPECT_EQ(Backup::make(home / "loop", Clock().at).error().description(),
              (home / "loop.wendlow-backup-20260131-235959").string() +
                  " could not be written: Too many levels of symbolic links");
    EXPECT_THAT(namesIn(home.path()), ElementsAre("dangling", "folder", "loop"));
}

} // namespace
} // namespace wendlow
