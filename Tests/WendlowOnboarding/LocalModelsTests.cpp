#include "Files.h"
#include "FirstRunWarm.h"
#include "FullDisk.h"
#include "LocalModelsDoor.h"
#include "LocalModelsMenuLine.h"
#include "LocalModelsScreen.h"
#include "TemporaryHome.h"

#include <QCoroTask>

#include <gmock/gmock.h>

#include <sys/wait.h>
#include <unistd.h>

namespace wendlow {
namespace {

using LocalModelsScreen::Writer;
using Progress = LocalModelsProgress;
using Row = Progress::Row;
using testing::get;
using testing::put;
using testing::TemporaryHome;
using namespace std::chrono_literals;

constexpr double start = 1'700'000'000;

std::chrono::system_clock::time_point at(double seconds) {
    return std::chrono::system_clock::time_point(
        std::chrono::milliseconds(static_cast<std::int64_t>(seconds * 1000)));
}

Row row(const char* id, std::string_view state, std::optional<std::int64_t> bytes,
        std::optional<std::int64_t> total, bool present = false) {
    return {.id = id,
            .label = "label",
            .state = std::string(state),
            .download = true,
            .bytes = bytes,
            .totalBytes = total,
            .present = present};
}

/// Half of a download, by a writer that is this process.
Progress half() {
    return {.pid = ::getpid(),
            .writtenAt = start,
            .running = true,
            .rows = {row("runtime", Row::done, 90, 100),
                     row("model", Row::active, 300, 800),
                     row("asr", Row::pending, std::nullopt, 100),
                     {.id = "tidy", .label = "Tidying", .state = "pending"}},
            .samples = {{.at = start, .bytes = 400}},
            .installed = {}};
}

TEST(LocalModelsProgress, ComesBackAsItWasWritten) {
    Progress whole = half();
    whole.migrating = true;
    whole.installed = {.runtimeDir = "/r \"x\"",
                       .agentPlist = "/p",
                       .pulledModel = "m",
                       .asrCacheDir = "/a",
                       .senkoDir = "/s",
                       .ollama =
                           Progress::OllamaInventory{"/o", true, {"one", "two"}, start + 0.25},
                       .pullBeganAt = start + 0.125,
                       .oldModelWasOurs = false};
    whole.rows[1].bytes = 2'498'344'265;
    whole.samples.push_back({.at = start + 0.5, .bytes = 9'007'199'254'740'993}); // no double
    const TemporaryHome home;
    const auto file = home / "deep/er/local-models-progress.json";
    ASSERT_TRUE(whole.write(file));
    EXPECT_EQ(Progress::read(file), whole);
    EXPECT_EQ(testing::namesIn(file.parent_path()).size(), 1U) << "a temporary file was left";
    {
        const testing::FullDisk full;
        EXPECT_FALSE(half().write(file));
    }
    EXPECT_EQ(Progress::read(file), whole) << "the old one, whole";
    EXPECT_EQ(testing::namesIn(file.parent_path()).size(), 1U) << "a piece of the new one";
    const std::string json = *get(file);
    for (std::size_t cut = 0; cut < json.size(); ++cut)
        ASSERT_EQ(Progress::decode(json.substr(0, cut)), std::nullopt) << cut;
    put(file, std::string((1U << 20U) + 1, ' ') + json);
    EXPECT_EQ(Progress::read(file), std::nullopt) << "longer than it may be";
    for (const auto& unreadable : {home.path(), std::filesystem::path("/proc/self/mem")})
        EXPECT_EQ(Progress::read(unreadable), std::nullopt) << unreadable;
    EXPECT_FALSE(whole.write(home.path())) << "a folder stands there";
    EXPECT_EQ(testing::namesIn(home.path()).size(), 1U);
}

TEST(LocalModelsProgress, OfAnotherVersionIsReadWhereItCanBe) {
    const char* least =
        R"({"pid":1,"writtenAt":2,"running":true,"rows":[],"samples":[],"installed":{}%1})";
    const auto with = [least](const std::string& more) {
        return Progress::decode(testing::replaced(least, {{"%1", more}}));
    };
    EXPECT_EQ(with(R"(,"newer":[1])")->migrating, std::nullopt);
    EXPECT_EQ(with(R"(,"migrating":null)")->pid, 1);
    EXPECT_EQ(with(R"(,"migrating":1)"), std::nullopt);
    for (const char* broken :
         {R"(,"pid":"1")", R"(,"pid":1.5)", R"(,"pid":99999999999)", R"(,"rows":[{}])",
          R"(,"rows":{})", R"(,"installed":{"ollama":{}})", R"(,"samples":[{"at":1}])"})
        EXPECT_EQ(with(broken), std::nullopt) << broken;
    EXPECT_EQ(Progress::decode("[]"), std::nullopt);
}

TEST(LocalModelsProgress, CountsWhatMovesAndWhatStays) {
    Progress progress = half();
    EXPECT_EQ(progress.downloadedBytes(), 400); // a row that is done has moved all of it
    EXPECT_EQ(progress.knownTotalBytes(), 1000);
    EXPECT_EQ(progress.downloadsDone(), (Progress::Done{1, 3}));
    progress.rows[2] = row("asr", Row::done, std::nullopt, 50, true);
    EXPECT_EQ(progress.knownTotalBytes(), 900);
    EXPECT_EQ(progress.footprintBytes(), 950);
    progress.rows[1].totalBytes.reset();
    EXPECT_EQ(progress.knownTotalBytes(), std::nullopt);
    for (Row& each : progress.rows)
        each.present = true;
    EXPECT_EQ(progress.knownTotalBytes(), 0);
    EXPECT_EQ(LocalModelsMenuLine::line(progress, true),
              (LocalModelsMenuLine::Line{"Setting up local models…"}));
    EXPECT_FALSE(Progress::stepsDone(std::nullopt));
    EXPECT_FALSE(Progress::stepsDone(progress));
}

TEST(LocalModelsProgress, ToldByAProcessThatHasDiedHasNoWriter) {
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(0);
    ::waitpid(child, nullptr, 0);
    Progress progress = half();
    EXPECT_TRUE(progress.writerAlive());
    EXPECT_TRUE(LocalModelsMenuLine::line(progress));
    for (const std::int32_t pid : {static_cast<std::int32_t>(child), 0, -1}) {
        progress.pid = pid;
        EXPECT_FALSE(progress.writerAlive()) << pid;
    }
    EXPECT_EQ(LocalModelsMenuLine::line(progress), std::nullopt);
    EXPECT_TRUE(LocalModelsScreen::needsWake(progress, Writer::gone));
    progress.pid = 1; // which we may not signal, or are
    EXPECT_TRUE(progress.writerAlive());
    for (Row& each : progress.rows)
        each.state = Row::done;
    EXPECT_FALSE(LocalModelsScreen::needsWake(progress, Writer::gone));
}

TEST(LocalModelsProgress, WithFiguresThatCannotBeIsNotBelieved) {
    struct Case {
        const char* what;
        std::function<void(Progress&)> change;
        bool believed;
    };
    static constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
    const Case cases[] = {
        {"as it is", [](Progress&) {}, true},
        {"below zero", [](Progress& p) { p.rows[1].bytes = -1; }, false},
        {"a size below zero", [](Progress& p) { p.rows[0].totalBytes = -5; }, false},
        {"beyond the disk", [](Progress& p) { p.rows[2].totalBytes = 1'000'001; }, false},
        {"a sum beyond all numbers",
         [](Progress& p) {
             p.rows[0].totalBytes = most;
             p.rows[1].totalBytes = most;
         },
         false},
        {"of the future", [](Progress& p) { p.writtenAt = start + 60; }, false},
        {"of a clock that was set", [](Progress& p) { p.writtenAt = start + 2; }, true},
    };
    for (const auto& [what, change, believed] : cases) {
        Progress progress = half();
        change(progress);
        EXPECT_EQ(progress.isPlausible(at(start), 1'000'000), believed) << what;
    }
}

TEST(LocalModelsScreen, SaysWhatARowIsAt) {
    using LocalModelsScreen::face;
    using LocalModelsScreen::rowLine;
    struct Case {
        Row row;
        Writer writer;
        const char* line;
        std::optional<double> fraction;
    };
    const Case cases[] = {
        {row("model", Row::active, 1'250'000'000, 2'500'000'000), Writer::alive, "1.2 GB of 2.5 GB",
         0.5},
        {row("model", Row::active, 3000, 2000), Writer::alive, "3 KB of 2 KB", 1.0},
        {row("model", Row::active, {}, 2000), Writer::alive, "0 B of 2 KB", 0.0},
        {row("model", Row::active, 999, {}), Writer::alive, "999 B so far", {}},
        {row("model", Row::active, 999, 0), Writer::alive, "999 B of 0 B", {}},
        {row("model", Row::active, 1, 2'000'000), Writer::gone, "2 MB · Waiting", {}},
        {row("asr", Row::pending, {}, {}), Writer::alive, "Waiting", {}},
        {row("asr", "elsewhere", {}, {}), Writer::alive, "Waiting", {}},
        {row("asr", Row::skipped, {}, 1000, true), Writer::alive, "1 KB · already on this Mac", {}},
        {row("asr", Row::done, {}, {}, true), Writer::gone, "already on this Mac", {}},
        {row("asr", Row::done, {}, {}), Writer::gone, "Done", {}},
        {row("asr", Row::done, {}, 1'500'000'000), Writer::gone, "1.5 GB · Done", {}},
    };
    for (const auto& [row, writer, line, fraction] : cases) {
        EXPECT_EQ(rowLine(face(row, writer)), line);
        EXPECT_EQ(LocalModelsScreen::fraction(face(row, writer)), fraction) << line;
    }
    EXPECT_EQ(LocalModelsScreen::name(row("runtime", "", {}, {})), "Ollama runtime");
    EXPECT_EQ(LocalModelsScreen::name(row("other", "", {}, {})), "label");
    EXPECT_EQ(LocalModelsScreen::bytesLabel(-1), "0 B");
    EXPECT_EQ(LocalModelsScreen::totalLine(half(), Writer::alive), "400 B of 1 KB so far.");
    EXPECT_EQ(LocalModelsScreen::totalLine(half(), Writer::gone), "");
    EXPECT_EQ(LocalModelsMenuLine::line(half(), true),
              (LocalModelsMenuLine::Line{"Setting up local models", 0.4}));
}

TEST(LocalModelsScreen, EstimatesOnlyWhatWasEvenForAMinute) {
    using Samples = std::vector<Progress::Sample>;
    using LocalModelsScreen::estimate;
    struct Case {
        const char* what;
        Samples samples;
        std::int64_t remaining;
        double now;
        int minutes; ///< 0: none
    };
    // 10 bytes a second in each, but where it is told otherwise.
    const Samples even{{start, 0}, {start + 30, 300}, {start + 60, 600}};
    const Case cases[] = {
        {"4 minutes are 5", even, 4 * 600, start + 60, 5},
        {"7.4 are 5", even, 4440, start + 60, 5},
        {"7.6 are 10", even, 4560, start + 60, 10},
        {"in any order", {even[2], even[0], even[1]}, 4560, start + 60, 10},
        {"nothing left", even, 0, start + 60, 0},
        {"20 seconds old", even, 4560, start + 80, 10},
        {"older", even, 4560, start + 80.5, 0},
        {"59 seconds", {{start, 0}, {start + 30, 300}, {start + 59, 590}}, 4560, start + 60, 0},
        {"no middle", {{start, 0}, {start + 60, 600}}, 4560, start + 60, 0},
        {"the middle behind the half", {even[0], {start + 31, 310}, even[2]}, 4560, start + 60, 0},
        {"a first half of half the rate",
         {{start, 0}, {start + 30, 150}, even[2]},
         4560,
         start + 60,
         0},
        {"a little more", {{start, 0}, {start + 30, 151}, even[2]}, 4560, start + 60, 10},
        {"backwards", {{start, 600}, {start + 30, 300}, {start + 60, 0}}, 4560, start + 60, 0},
        {"none at all", {}, 4560, start + 60, 0},
        {"no time", {{std::nan(""), 0}, even[0], even[1], even[2]}, 4560, start + 60, 10},
        {"for ever", even, std::numeric_limits<std::int64_t>::max(), start + 60, 0},
    };
    for (const auto& [what, samples, remaining, now, minutes] : cases) {
        const auto found = estimate(samples, remaining, at(now));
        EXPECT_EQ(found ? found->minutes : 0, minutes) << what;
        EXPECT_TRUE(!found || found->doneBy == at(now) + std::chrono::minutes(minutes)) << what;
    }
    Progress progress = half();
    progress.samples = even;
    progress.writtenAt = start + 60;
    EXPECT_TRUE(estimate(progress, Writer::alive, at(start + 60)));
    EXPECT_FALSE(estimate(progress, Writer::gone, at(start + 60)));
    EXPECT_FALSE(estimate(progress, Writer::alive, at(start + 81)));
    EXPECT_FALSE(estimate(std::nullopt, Writer::alive, at(start)));
    EXPECT_THAT(LocalModelsScreen::estimateLine({.minutes = 10, .doneBy = at(start)}, QLocale::c()),
                ::testing::MatchesRegex("At the current rate, done by about [0-9]+:[0-9]+, in 10 "
                                        "minutes\\."));
}

TEST(LocalModelsScreen, OffersAWayOutAndTellsTheSizes) {
    using LocalModelsScreen::hint;
    EXPECT_TRUE(LocalModelsScreen::offersCancel(std::nullopt));
    Progress progress = half();
    EXPECT_TRUE(LocalModelsScreen::offersCancel(progress));
    for (Row& each : progress.rows)
        each.state = Row::done;
    EXPECT_FALSE(LocalModelsScreen::offersCancel(progress));
    progress.installed.senkoDir = "/s";
    EXPECT_TRUE(LocalModelsScreen::offersCancel(progress));
    EXPECT_EQ(hint(std::nullopt, std::nullopt),
              "**Why we are telling you.** So you know what is happening on your Mac. Wendlow "
              "itself is small. The models are 3.1 GB. If that is too much, you can back out now.");
    progress.installed.ollama = Progress::OllamaInventory{};
    EXPECT_THAT(hint(progress, 212'000'000),
                ::testing::HasSubstr("itself is 212 MB. The models are 1 KB. If that is too much, "
                                     "you can back out now and nothing stays behind."));
}

TEST(LocalModelsScreen, MeasuresTheBundleAndNotWhatItsLinksLeadTo) {
    const TemporaryHome home;
    EXPECT_EQ(LocalModelsScreen::appBundleBytes(home / "tool"), std::nullopt);
    put(home / "X.app/Contents/MacOS/x", std::string(10'000, 'x'));
    const auto own = LocalModelsScreen::appBundleBytes(home / "X.app/Contents/MacOS/x");
    ASSERT_TRUE(own && *own >= 10'000);
    put(home / "big", std::string(1'000'000, 'x'));
    std::filesystem::create_symlink(home / "big", home / "X.app/Contents/link");
    EXPECT_EQ(LocalModelsScreen::appBundleBytes(home / "X.app"), own);
}

TEST(LocalModelsDoor, WaitsForTheReceiptAndNoLonger) {
    const TemporaryHome home;
    const auto receipt = LocalModelsDoor::receiptPath(home / "support");
    const auto waits = [&](std::chrono::milliseconds timeout) {
        return QCoro::waitFor(LocalModelsDoor::awaitReceipt(receipt, timeout, 5ms));
    };
    EXPECT_FALSE(waits(20ms));
    std::filesystem::create_directories(receipt);
    EXPECT_FALSE(waits(0ms)) << "a folder is no receipt";
    std::filesystem::remove(receipt);
    {
        const testing::FullDisk full;
        LocalModelsDoor::writeReceipt(receipt);
    }
    EXPECT_TRUE(testing::namesIn(receipt.parent_path()).empty()) << "a piece of a receipt";
    LocalModelsDoor::writeReceipt(receipt);
    EXPECT_TRUE(waits(0ms)) << "looked for once at least";
    EXPECT_TRUE(get(receipt)->starts_with("cancelled at "));
}

/// A hook that is a script.
struct Hook {
    TemporaryHome home;
    std::filesystem::path marker = FirstRunWarm::path(home / "support");

    FirstRunWarm::Result fire(const std::string& script, std::chrono::milliseconds leash = 5s,
                              const std::string& person = "/home/ada") const {
        const auto hook = home / "hook";
        if (!script.empty())
            put(hook, "#!/bin/sh\n" + script, 0755);
        return FirstRunWarm::run(
            {.hook = hook, .build = "7", .marker = marker, .leash = leash, .home = person});
    }
};

TEST(FirstRunWarm, FiresTheHookOnceHoweverItEnds) {
    using FirstRunWarm::Outcome;
    struct Case {
        const char* what;
        const char* script;
        Outcome outcome;
    };
    const Case cases[] = {
        {"missing", "", Outcome::failed},
        {"exits 1", "exit 1\n", Outcome::failed},
        {"is killed", "kill -9 $$\n", Outcome::failed},
        {"does not read", "exit 0\n", Outcome::ok},
        {"prints megabytes",
         "cat >/dev/null; head -c 5000000 /dev/zero; head -c 5000000 /dev/zero >&2\n", Outcome::ok},
        {"checks its arguments", "[ \"$*\" = '--harness claude-code' ]\n", Outcome::ok},
    };
    for (const auto& [what, script, outcome] : cases) {
        const Hook hook;
        EXPECT_EQ(hook.fire(script).outcome, outcome) << what;
        EXPECT_TRUE(FirstRunWarm::isWarm(hook.marker, "7")) << what;
        EXPECT_TRUE(hook.fire(script).alreadyWarm) << what;
        EXPECT_FALSE(FirstRunWarm::isWarm(hook.marker, "8")) << what;
    }
}

TEST(FirstRunWarm, IsDoneAgainWhereTheDiskTookNoMarker) {
    const Hook hook;
    put(hook.home / "hook", "#!/bin/sh\n", 0755);
    {
        const testing::FullDisk full;
        EXPECT_EQ(hook.fire("").outcome, FirstRunWarm::Outcome::ok);
    }
    EXPECT_FALSE(FirstRunWarm::isWarm(hook.marker, "7"));
    EXPECT_FALSE(hook.fire("").alreadyWarm);
    EXPECT_TRUE(FirstRunWarm::isWarm(hook.marker, "7"));
}

TEST(FirstRunWarm, KillsAHookThatHangs) {
    const Hook hook;
    const auto began = std::chrono::steady_clock::now();
    EXPECT_EQ(hook.fire("exec sleep 30\n", 100ms).outcome, FirstRunWarm::Outcome::timeout);
    EXPECT_LT(std::chrono::steady_clock::now() - began, 3s);
    EXPECT_THAT(*get(hook.marker), ::testing::StartsWith("build=7 outcome=timeout ms="));
}

TEST(FirstRunWarm, SendsAPromptThatIsJsonAndFitsThePipe) {
    const Hook hook;
    hook.fire("cat >\"$0.in\"\n", 5s, "/home/a\\d\"a");
    EXPECT_EQ(get(hook.home / "hook.in"),
              R"({"session_id":"warm-up","prompt":"wendlow warm-up","hook_event_name":)"
              R"("UserPromptSubmit","cwd":"/home/a\\d\"a"})");
    const std::size_t empty = FirstRunWarm::payload("").size();
    for (const auto& [size, outcome] : {std::pair(16383, FirstRunWarm::Outcome::ok),
                                        std::pair(16384, FirstRunWarm::Outcome::failed)}) {
        const Hook other;
        const std::string home(static_cast<std::size_t>(size) - empty, 'h');
        EXPECT_EQ(other.fire("cat >/dev/null\n", 5s, home).outcome, outcome) << size;
    }
}

TEST(FirstRunWarm, BelievesOnlyAWholeMarker) {
    using FirstRunWarm::parse;
    const FirstRunWarm::Marker marker{"12", FirstRunWarm::Outcome::failed, 34};
    EXPECT_EQ(parse(marker.line() + "\n"), marker);
    EXPECT_EQ(parse("ms=34 newer=1 build=12 outcome=failed"), marker);
    for (const char* other :
         {"", "build=12", "build=12 outcome=fine ms=1", "build=12 outcome=ok ms=1s",
          "build=12 outcome=ok ms=", "outcome=ok ms=1", "build 12"})
        EXPECT_EQ(parse(other), std::nullopt) << other;
    EXPECT_EQ(parse(std::nullopt), std::nullopt);
}

} // namespace
} // namespace wendlow
