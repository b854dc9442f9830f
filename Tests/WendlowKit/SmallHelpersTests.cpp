#include "AgentDefinition.h"
#include "ClientInstance.h"
#include "Files.h"
#include "LoginItems.h"
#include "QuitSentinel.h"
#include "SetupLog.h"
#include "TemporaryHome.h"
#include "TerminationSignals.h"
#include "TextFile.h"
#include "UpdateOptIn.h"

#include <csignal>
#include <ctime>
#include <fstream>
#include <iomanip>
#include <sstream>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace wendlow {
namespace {

namespace fs = std::filesystem;
using ::testing::MatchesRegex;

class SmallHelpers : public ::testing::Test {
protected:
    SmallHelpers() { ::setenv("HOME", home.path().c_str(), 1); }
    ~SmallHelpers() override { ::setenv("HOME", before.c_str(), 1); }

    std::string before = std::getenv("HOME");
    testing::TemporaryHome home;
};

std::vector<std::string> lines(const fs::path& path) {
    std::istringstream text(TextFile::read(path).value_or(""));
    std::vector<std::string> result;
    for (std::string line; std::getline(text, line);)
        result.push_back(line);
    return result;
}

/// A process whose event loop never turns, and one that hangs behind it, end after a second.
TEST(TerminationSignalsDeathTest, EndWhateverStandsStill) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto standStill = [] {
        for (;;)
            ::pause();
    };
    EXPECT_EXIT(
        {
            const TerminationSignals signals;
            ::raise(SIGTERM);
            standStill();
        },
        ::testing::ExitedWithCode(0), "");
    EXPECT_EXIT(
        {
            TerminationSignals::leave(3);
            standStill();
        },
        ::testing::ExitedWithCode(3), "");
}

TEST_F(SmallHelpers, SetupLogAppendsDatedLinesForThisPersonAlone) {
    const fs::path log = home / "Library/Logs/wendlow-journey.log";
    ::setenv("TZ", "Asia/Tokyo", 1); // the time is told in UTC all the same
    ::tzset();
    const std::time_t now = std::time(nullptr);
    {
        const testing::Umask open(0);
        SetupLog::line("door: menu asked for stats");
        SetupLog::line("ü — b");
        SetupLog::drain();
    }
    ::unsetenv("TZ");
    ::tzset();
    const auto stamp = [](const std::string& text) {
        return MatchesRegex("2[0-9]{3}-[01][0-9]-[0-3][0-9]T[0-2][0-9]:[0-5][0-9]:[0-6][0-9]Z " +
                            text);
    };
    EXPECT_THAT(lines(log),
                ::testing::ElementsAre(stamp("door: menu asked for stats"), stamp("ü — b")));
    EXPECT_EQ(fs::status(log).permissions(), fs::perms(0600));
    std::tm told{};
    std::istringstream(lines(log).at(0)) >> std::get_time(&told, "%Y-%m-%dT%H:%M:%SZ");
    EXPECT_NEAR(double(::timegm(&told)), double(now), 5);

    fs::remove(log);
    fs::create_directory(log); // a failure is given up in silence, and the next line is tried anew
    SetupLog::line("lost");
    SetupLog::drain();
    fs::remove(log);
    SetupLog::line("kept");
    SetupLog::drain();
    EXPECT_THAT(lines(log), ::testing::ElementsAre(stamp("kept")));
}

TEST_F(SmallHelpers, SetupLogKeepsTheLinesOfManyThreadsWholeAndNeverHoldsThemUp) {
    ASSERT_TRUE(fs::create_directories(home / "Library/Logs"));
    // A pipe that nobody reads holds up whoever opens it.
    ASSERT_EQ(::mkfifo(SetupLog::path().c_str(), 0600), 0);
    const auto start = std::chrono::steady_clock::now();
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread)
        threads.emplace_back([] {
            for (int count = 0; count < 500; ++count)
                SetupLog::line("abcdefgh");
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));

    std::ifstream pipe(SetupLog::path()); // now the first lines can go
    fs::remove(SetupLog::path());
    SetupLog::drain();
    std::vector<std::string> written = lines(SetupLog::path());
    for (std::string line; std::getline(pipe, line);)
        written.push_back(line);
    EXPECT_EQ(written.size(), 2000U);
    for (const std::string& line : written)
        EXPECT_EQ(line.size(), std::string("2026-01-01T00:00:00Z abcdefgh").size()) << line;
}

TEST_F(SmallHelpers, QuitSentinelIsAFileThatSaysWhen) {
    const QuitSentinel sentinel{QuitSentinel::defaultPath(ClientInstance::defaultSupport())};
    EXPECT_EQ(sentinel.path, home / "Library/Application Support/Wendlow/quit-requested");
    sentinel.clear();
    EXPECT_FALSE(sentinel.isSet());
    sentinel.set();
    EXPECT_TRUE(sentinel.isSet());
    EXPECT_THAT(TextFile::read(sentinel.path).value_or(""),
                MatchesRegex("quit at 2[0-9-]{9} [0-9:]{8} \\+0000\n"));
    EXPECT_EQ(fs::status(sentinel.path).permissions(), fs::perms(0600));
    sentinel.clear();
    EXPECT_FALSE(sentinel.isSet());
    QuitSentinel{"/dev/null/quit-requested"}.set(); // given up in silence
}

TEST_F(SmallHelpers, UpdateOptInSetsItsKeyAndLeavesTheOthers) {
    const fs::path suite = home / "Library/Preferences/works.fenmoor.wendlow.menubar.ini";
    EXPECT_EQ(UpdateOptIn::suitePath(ClientInstance::menubarID), suite);
    UpdateOptIn::write(UpdateOptIn::Choice::yes, ClientInstance::menubarID);
    EXPECT_EQ(TextFile::read(suite), "[General]\nSUAutomaticallyUpdate=true\n");
    std::ofstream(suite) << "[General]\nother=7\nSUAutomaticallyUpdate=true\n";
    UpdateOptIn::write(UpdateOptIn::Choice::no, ClientInstance::menubarID);
    EXPECT_EQ(TextFile::read(suite), "[General]\nSUAutomaticallyUpdate=false\nother=7\n");

    ASSERT_TRUE(fs::create_directory(home / "Library/Preferences/folder.ini"));
    UpdateOptIn::write(UpdateOptIn::Choice::yes, "folder");
    EXPECT_TRUE(fs::is_empty(home / "Library/Preferences/folder.ini"));
}

TEST(LoginItems, DecideByStatus) {
    using Status = LoginItemStatus;
    using Action = AgentDefinitionAction;
    const std::pair<AgentDefinition::State, Action> rows[] = {
        {{Status::notRegistered, "a", "a", true}, Action::register_},
        {{Status::requiresApproval, "a", "a", true}, Action::needsApproval},
        {{Status::enabled, "a", "a", true}, Action::leaveEnabled},
        {{Status::enabled, "a", "a", false}, Action::reregister},
        {{Status::enabled, "b", "a", true}, Action::reregister},
        {{Status::enabled, std::nullopt, "", true}, Action::reregister}};
    for (const auto& [state, action] : rows)
        EXPECT_EQ(AgentDefinition::action(state), action) << int(state.status);
    EXPECT_EQ(AgentRegistration::action({true, false}), AgentRegistration::Action::bootstrap);
}

} // namespace
} // namespace wendlow
