#include "ExportedScreens.h"
#include "FaultyDisk.h"
#include "Files.h"
#include "ResourceBundle.h"
#include "SenkoSeed.h"
#include "TemporaryHome.h"

#include <gmock/gmock.h>

#include <future>

namespace wendlow::testing {
namespace {

namespace fs = std::filesystem;
using ::testing::AnyOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

ProgramRun inAProcess(const std::vector<std::string>& arguments) {
    return runProgram(WENDLOW_RESOURCES_PROGRAM, arguments);
}

struct Exported : ::testing::Test {
    TemporaryHome temporary;
    fs::path folder = temporary / ExportedScreens::folderName();
    ExportedScreens screens{folder};

    /// What the refusal of a picture says.
    std::string refusal() const {
        const auto written = screens.write("bytes", 1, "");
        return written ? "written" : written.error().description();
    }
};

TEST_F(Exported, areThisUsersAloneAndNamedByMomentAndWindow) {
    const Umask open(0);
    const std::string longName(400, 'x');
    const std::vector<std::tuple<std::string, std::int64_t, std::string>> cases = {
        {"", 7, "moment-7.png"},
        {"../../etc/passwd", 8, "moment-8-etcpasswd.png"},
        {"Plan: 3. Entwurf – Größe (日本)", -9, "moment--9-Plan3EntwurfGröße日本.png"},
        {"\xff/. \n", 10, "moment-10.png"},
        {longName, 11, "moment-11-" + longName.substr(0, 180) + ".png"},
    };
    for (const auto& [window, moment, name] : cases) {
        const auto written = screens.write("png of " + window, moment, window);
        ASSERT_TRUE(written.has_value()) << written.error().description();
        EXPECT_EQ(*written, folder / name);
        EXPECT_EQ(get(*written), "png of " + window);
        EXPECT_EQ(modeOf(*written), 0600);
    }
    EXPECT_EQ(modeOf(folder), 0700);
    EXPECT_EQ(namesIn(folder).size(), cases.size()) << "nothing else is left";

    // A folder that others could look into is closed; a link at a picture's place is replaced.
    ::chmod(folder.c_str(), 0755);
    const auto outside = put(temporary / "outside", "mine");
    fs::create_symlink(outside, folder / "moment-12.png");
    EXPECT_TRUE(screens.write("new", 12, "").has_value());
    EXPECT_EQ(modeOf(folder), 0700);
    EXPECT_EQ(get(outside), "mine");
    EXPECT_EQ(get(folder / "moment-12.png"), "new");
}

TEST_F(Exported, areNotWrittenThroughWhatIsNoFolderOfOnesOwn) {
    const std::string plain =
        folder.string() + " is not a plain folder; nothing is written through it";
    const fs::path elsewhere = temporary / "elsewhere";
    fs::create_directory(elsewhere);
    fs::create_directory_symlink(elsewhere, folder);
    EXPECT_EQ(refusal(), plain);
    EXPECT_EQ(screens.clear(), 0);
    fs::remove(folder);
    fs::create_symlink(temporary / "nowhere", folder);
    EXPECT_EQ(refusal(), plain);
    EXPECT_FALSE(fs::exists(temporary / "nowhere"));
    fs::remove(folder);
    put(folder, "a file");
    EXPECT_EQ(refusal(), plain);
    EXPECT_EQ(get(folder), "a file");
    fs::remove(folder);
    EXPECT_THAT(namesIn(elsewhere), IsEmpty());

    fs::create_directory(folder);
    if (::geteuid() == 0) {
        ASSERT_EQ(::chown(folder.c_str(), 4711, 4711), 0);
        EXPECT_EQ(refusal(), "could not write " + folder.string() + ": Operation not permitted");
        EXPECT_THAT(namesIn(folder), IsEmpty());
    }
    EXPECT_THAT(ExportedScreens(temporary / "none" / "x").write("x", 1, "").error().description(),
                HasSubstr("No such file or directory"));
}

TEST_F(Exported, areWholeOrNotThereOnADiskThatIsFull) {
    const std::vector<std::string> write = {"write", folder.string(), "300000"};
    const fs::path picture = folder / "moment-7-Awindow.png";
    FaultyProgram program(WENDLOW_RESOURCES_PROGRAM, write);
    const auto calls = program.run({.root = folder.string()}).calls;
    ASSERT_THAT(calls, ::testing::Contains(HasSubstr("write")));
    const auto before = get(picture);
    int refused = 0;
    for (std::size_t at = 1; at <= calls.size(); ++at) {
        const auto run = program.run({.root = folder.string(),
                                      .at = static_cast<long>(at),
                                      .error = "ENOSPC",
                                      .lasting = DiskFault::Lasting::persistent});
        EXPECT_THAT(run.out, AnyOf(picture.string(), HasSubstr(": No space left on device")))
            << calls[at - 1];
        refused += run.out == picture.string() ? 0 : 1;
        EXPECT_EQ(get(picture), before) << calls[at - 1];
        EXPECT_THAT(namesIn(folder), ElementsAre(picture.filename())) << calls[at - 1];
    }
    EXPECT_GE(refused, 2);
}

TEST_F(Exported, areClearedAndNothingElseIs) {
    ASSERT_TRUE(screens.write("a", 1, "").has_value());
    ASSERT_TRUE(screens.write("b", 2, "").has_value());
    const auto kept = put(folder / "sub" / "kept", "mine");
    const auto outside = put(temporary / "outside", "mine");
    fs::create_symlink(outside, folder / "link");
    EXPECT_EQ(screens.clear(), 3);
    EXPECT_THAT(namesIn(folder), ElementsAre("sub"));
    EXPECT_EQ(get(outside), "mine");
    fs::remove_all(folder / "sub");
    EXPECT_EQ(screens.clear(), 0);
    EXPECT_FALSE(fs::exists(folder)) << "an empty one goes";

    // Only by its own name, and not at the root.
    const auto other = put(temporary / "photos" / "picture.png", "mine");
    EXPECT_EQ(ExportedScreens(temporary / "photos").clear(), 0);
    EXPECT_TRUE(fs::exists(other));
    EXPECT_EQ(ExportedScreens("/" + ExportedScreens::folderName()).clear(), 0);
    EXPECT_EQ(ExportedScreens(ExportedScreens::folderName()).clear(), 0);
}

TEST_F(Exported, liveInTheFolderOfTheSession) {
    ::setenv("XDG_RUNTIME_DIR", temporary.path().c_str(), 1);
    EXPECT_EQ(ExportedScreens::live()->folder(), folder);
    for (const char* const none : {"/", "relative"}) {
        ::setenv("XDG_RUNTIME_DIR", none, 1);
        EXPECT_FALSE(ExportedScreens::live().has_value()) << none;
    }
    ::unsetenv("XDG_RUNTIME_DIR");
    const auto shared = ExportedScreens::live();
    ASSERT_TRUE(shared.has_value());
    EXPECT_EQ(modeOf(shared->folder().parent_path()), 0700);
}

TEST(ResourceBundle, isFoundInEachLayout) {
    const TemporaryHome place;
    const fs::path contents = place / "Wendlow.app/Contents";
    const ResourceBundle::Surroundings application{.executable = contents / "MacOS/wendlow",
                                                   .mainResources = contents / "Resources",
                                                   .mainBundle = place / "Wendlow.app",
                                                   .anchor = contents / "MacOS"};
    EXPECT_THAT(ResourceBundle::candidates("Models", application),
                ElementsAre(contents / "Resources/Models.bundle", contents / "MacOS/Models.bundle",
                            place / "Wendlow.app/Models.bundle"));
    EXPECT_FALSE(ResourceBundle::app("/usr/bin/MacOS").has_value());
    EXPECT_FALSE(ResourceBundle::find("Models", application).has_value());
    // The first that opens: a file is none.
    put(contents / "Resources/Models.bundle", "no folder");
    fs::create_directories(place / "Wendlow.app/Models.bundle");
    EXPECT_EQ(ResourceBundle::find("Models", application)->folder(),
              place / "Wendlow.app/Models.bundle");

    ResourceBundle::Surroundings tool;
    tool.executable = place / "bin/tool";
    put(place / "bin/Models.bundle/x", "x");
    EXPECT_EQ(ResourceBundle::require("Models", tool).resource("x"), place / "bin/Models.bundle/x");

    const auto run = inAProcess({"require", "None", (place / "bin").string()});
    EXPECT_EQ(run.signal, SIGABRT);
    EXPECT_EQ(run.err, "could not load resource bundle None.bundle — tried:\n" +
                           (place / "bin/None.bundle").string() + "\n");
}

struct Senko : ::testing::Test {
    TemporaryHome place;
    fs::path bundle = place / "bundle";
    fs::path support = place / "support";
    fs::path source = bundle / "senko";
    fs::path target = support / "senko";

    Senko() {
        put(source / "model.bin", std::string(40'000, 'm'));
        put(source / "more/index", "four");
    }
    std::vector<std::string> seeding() const { return {"seed", bundle.string(), support.string()}; }
};

TEST_F(Senko, isSeededOnceAndAgainWhereItIsNotWhole) {
    EXPECT_EQ(SenkoSeed::seed(place / "none", support),
              SenkoSeed::Outcome(SenkoSeed::BundleMissing{(place / "none/senko").string()}));
    const SenkoSeed::Outcome seeded = SenkoSeed::Seeded{2, 40'004};
    EXPECT_EQ(SenkoSeed::seed(bundle, support), seeded);
    EXPECT_EQ(get(target / "more/index"), "four");
    EXPECT_EQ(SenkoSeed::seed(bundle, support), SenkoSeed::Outcome(SenkoSeed::Present{}));

    // Half a seed is none, and a newer bundle's data take the older ones' place.
    fs::remove(target / "more/index");
    EXPECT_EQ(SenkoSeed::seed(bundle, support), seeded);
    EXPECT_TRUE(fs::exists(target / "more/index"));
    put(source / "more/index", "longer");
    EXPECT_EQ(SenkoSeed::seed(bundle, support), SenkoSeed::Outcome(SenkoSeed::Seeded{2, 40'006}));
    EXPECT_EQ(get(target / "more/index"), "longer");
    EXPECT_THAT(namesIn(support), ElementsAre("senko"));
}

TEST_F(Senko, isWholeOrNotThereWhateverTheDiskDoes) {
    FaultyProgram program(WENDLOW_RESOURCES_PROGRAM, seeding());
    const auto calls = program.run({.root = support.string()});
    ASSERT_EQ(calls.out, "seeded");
    for (const char* const kill : {"before", "after", ""}) {
        for (std::size_t at = 1; at <= calls.calls.size(); ++at) {
            fs::remove_all(support);
            const auto run = program.run({.root = support.string(),
                                          .at = static_cast<long>(at),
                                          .error = "ENOSPC",
                                          .kill = kill});
            const std::string told = fmt::format("{} {}", kill, calls.calls[at - 1]);
            if (fs::exists(target))
                EXPECT_EQ(get(target / "more/index"), "four") << told;
            else
                EXPECT_NE(run.out, "seeded") << told;
            EXPECT_THAT(inAProcess(seeding()).out, AnyOf("seeded", "present")) << told;
            EXPECT_EQ(get(target / "more/index"), "four") << told;
            EXPECT_THAT(namesIn(support), ElementsAre("senko")) << told;
        }
    }
}

TEST_F(Senko, isSeededByTwoProcessesAtOnce) {
    for (int round = 0; round < 8; ++round) {
        fs::remove_all(support);
        auto other = std::async(std::launch::async, [&] { return inAProcess(seeding()).out; });
        const std::string one = inAProcess(seeding()).out;
        const std::string two = other.get();
        EXPECT_THAT(one, AnyOf("seeded", "present")) << two;
        EXPECT_THAT(two, AnyOf("seeded", "present")) << one;
        EXPECT_TRUE(one == "seeded" || two == "seeded");
        EXPECT_EQ(get(target / "model.bin"), std::string(40'000, 'm'));
        EXPECT_THAT(namesIn(support), ElementsAre("senko"));
    }
}

} // namespace
} // namespace wendlow::testing
