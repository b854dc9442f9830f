#include "ClientInstance.h"
#include "ClientProfile.h"
#include "ClientStoreMode.h"
#include "ClientVersion.h"
#include "Files.h"
#include "HomeFolder.h"
#include "InfoPlist.h"
#include "TemporaryHome.h"
#include "TextFile.h"
#include "WireContract.h"

#include <gtest/gtest.h>

namespace wendlow {
namespace {

namespace fs = std::filesystem;
using testing::modeOf;
using testing::put;

/// HOME is another for as long as this lives.
class HomeAt {
public:
    explicit HomeAt(const fs::path& home) : m_before(std::getenv("HOME")) {
        ::setenv("HOME", home.c_str(), 1);
    }
    ~HomeAt() { ::setenv("HOME", m_before.c_str(), 1); }
    HomeAt(const HomeAt&) = delete;
    HomeAt& operator=(const HomeAt&) = delete;

private:
    std::string m_before;
};

TEST(ClientInstance, FindsItsFoldersBelowTheHome) {
    const testing::TemporaryHome home;
    const HomeAt there(home.path() / "");
    EXPECT_EQ(homeFolder(), home.path().string());
    EXPECT_EQ(ClientInstance::runbooksRootExpanded(), (home / ".wendlow/runbooks").string());
    EXPECT_EQ(ClientInstance::supportRoot(ClientInstance::defaultSupport()),
              (home / "Library/Application Support/Wendlow").string());
    EXPECT_EQ(ClientInstance::daemonLogPath("/h"), "/h/Library/Logs/wendlow.log");

    const HomeAt nowhere("not/absolute");
    EXPECT_TRUE(homeFolder().starts_with('/')) << homeFolder();
}

TEST(ClientInstance, RecognisesTheDataOfEitherBuild) {
    const testing::TemporaryHome home;
    const HomeAt there(home.path());
    const fs::path support = home / "Library/Application Support";
    fs::create_directories(support / "Wendlow/frames");
    fs::create_directory_symlink(support / "Wendlow", home / "shortcut");
    fs::create_directory_symlink(home / "nowhere", home / "dangling");

    const std::pair<std::string, bool> rows[] = {
        {"~/Library/Application Support/Wendlow Dev/data.db", true},
        {"~/Library/Application Support/WendlowX/data.db", false},
        {"~/Library/Application Support/Wendlow", true},
        {"/Volumes/Old/Application Support/Wendlow/x/y", true},
        {"~/Library/Application Support/Wendlow/../Other/x", false},
        {(home / "shortcut/frames/1.heic").string(), true},
        {(home / "dangling/Wendlow").string(), false},
        {"", false},
    };
    for (const auto& [path, isUnder] : rows)
        EXPECT_EQ(ClientInstance::isUnderAnySupportRoot(path), isUnder) << path;
}

TEST(ClientProfile, ReadsExactlyItsOwnNames) {
    EXPECT_EQ(ClientProfiles::parse("dev"), ClientProfile::dev);
    EXPECT_EQ(ClientProfiles::parse("Production"), std::nullopt);
}

TEST(WireContract, OnlyAnotherVersionIsAMismatch) {
    using WireContract::Verdict;
    EXPECT_EQ(WireContract::verdict(1, 1), Verdict::admitted);
    EXPECT_EQ(WireContract::verdict(1, 2), Verdict::mismatch);
    EXPECT_EQ(WireContract::verdict(1, 0), Verdict::mismatch);
    EXPECT_EQ(WireContract::verdict(1, std::nullopt), Verdict::admitted);
}

TEST(ClientStoreMode, WritesForThisPersonAlone) {
    const testing::TemporaryHome home;
    const fs::path path = home / "a/b/terms-agreed";
    {
        const testing::Umask open(0);
        ASSERT_TRUE(ClientStoreMode::write("one", path));
    }
    EXPECT_EQ(modeOf(home / "a/b"), 0700U);
    EXPECT_EQ(modeOf(path), 0600U);

    fs::permissions(path, fs::perms(0644));
    fs::permissions(home / "a", fs::perms(0755));
    ASSERT_TRUE(ClientStoreMode::write("", path));
    EXPECT_EQ(TextFile::read(path), "");
    EXPECT_EQ(modeOf(path), 0600U);
    EXPECT_EQ(modeOf(home / "a"), 0755U) << "a folder that was there keeps its mode";
    EXPECT_EQ(std::distance(fs::directory_iterator(home / "a/b"), {}), 1);
}

TEST(ClientStoreMode, LeavesNothingBehindWhenItFails) {
    const testing::TemporaryHome home;
    put(home / "file", "x");
    EXPECT_EQ(ClientStoreMode::write("x", home / "file/deep/below"),
              std::unexpected(std::make_error_code(std::errc::not_a_directory)));
    fs::create_directories(home / "folder/inside");
    EXPECT_EQ(ClientStoreMode::write("x", home / "folder"),
              std::unexpected(std::make_error_code(std::errc::is_a_directory)));
    EXPECT_EQ(std::distance(fs::directory_iterator(home.path()), {}), 2);
    EXPECT_EQ(TextFile::read(home / "file"), "x");
}

TEST(ClientVersion, ShapesOnlyDigitsBetweenDots) {
    EXPECT_EQ(ClientVersion::shaped("1.2.3"), "1.2.3");
    EXPECT_EQ(ClientVersion::shaped("\r\n 7.0\t"), "7.0");
    for (const char* text : {"1..2", ".1", "1.", "1.x", "", " \n", "1 .2", "١.٢"})
        EXPECT_EQ(ClientVersion::shaped(text), std::nullopt) << text;
    EXPECT_EQ(ClientVersion::shaped(std::nullopt), std::nullopt);
}

TEST(ClientVersion, KnowsABundleByItsLayout) {
    EXPECT_EQ(ClientVersion::appInfoPlist("/A/Wendlow.app/Contents/MacOS/x"),
              "/A/Wendlow.app/Contents/Info.plist");
    for (const char* path : {"/A/Wendlow.app/Contents/Bin/x", "/A/Wendlow.app/Inside/MacOS/x",
                             "/A/Wendlow/Contents/MacOS/x", "/MacOS/x", "x", ""})
        EXPECT_EQ(ClientVersion::appInfoPlist(path), std::nullopt) << path;
}

TEST(ClientVersion, LooksFiveFoldersAboveTheExecutablesOwn) {
    const auto found = [](const fs::path& at) {
        return ClientVersion::versionFile("/1/2/3/4/5/6/x", 5,
                                          [&](const fs::path& path) { return path == at; });
    };
    EXPECT_EQ(found("/1/2/3/4/5/6/VERSION"), "/1/2/3/4/5/6/VERSION");
    EXPECT_EQ(found("/1/VERSION"), "/1/VERSION");
    EXPECT_EQ(found("/VERSION"), std::nullopt);
}

TEST(ClientVersion, ComesFromTheBundleElseFromTheTree) {
    const testing::TemporaryHome home;
    const fs::path executable = home / "tree/Wendlow.app/Contents/MacOS/x";
    const fs::path plist = home / "tree/Wendlow.app/Contents/Info.plist";
    const ClientVersion::Sources sources{
        .plist = [](const fs::path& path) { return InfoPlist::string(path, "V"); },
        .versionFileText = [](const fs::path& path) { return TextFile::read(path); },
        .exists = [](const fs::path& path) { return fs::exists(path); }};
    const auto version = [&] { return ClientVersion::resolve(executable, sources); };
    const auto list = [](std::string inner) {
        return "<?xml version=\"1.0\"?><plist version=\"1.0\">" + inner + "</plist>";
    };
    fs::create_directories(executable.parent_path());
    EXPECT_EQ(version(), "0");
    put(plist, "<plist><dict><key>V</ke");
    EXPECT_EQ(version(), "0");
    put(home / "tree/VERSION", "1.4.2\n");
    EXPECT_EQ(version(), "1.4.2");
    for (const char* inner : {"<dict><key>V</key><string>main</string></dict>",
                              "<dict><key>V</key><integer>3</integer></dict>",
                              "<dict><key>W</key><string>3</string></dict>", "<array/>", ""}) {
        put(plist, list(inner));
        EXPECT_EQ(version(), "1.4.2") << inner;
    }
    put(plist, list("<dict><key>V</key><string> 2.0 </string></dict>"));
    EXPECT_EQ(version(), "2.0");
    put(plist, "");
    put(home / "tree/VERSION", "main");
    EXPECT_EQ(version(), "0");
    EXPECT_EQ(ClientVersion::resolve(std::nullopt, sources), "0");
}

TEST(TextFile, RefusesWhatIsNoSmallFile) {
    const testing::TemporaryHome home;
    put(home / "fits", std::string(TextFile::sizeLimit, 'x'));
    put(home / "large", std::string(TextFile::sizeLimit + 1, 'x'));
    ASSERT_EQ(::mkfifo((home / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(TextFile::read(home / "fits").value_or("").size(), TextFile::sizeLimit);
    for (const char* name : {"large", "pipe", "absent", "."})
        EXPECT_EQ(TextFile::read(home / name), std::nullopt) << name;
}

} // namespace
} // namespace wendlow
