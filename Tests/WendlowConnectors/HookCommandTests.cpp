#include "BundleCommand.h"
#include "HookCommand.h"
#include "InstalledBundle.h"
#include "TemporaryHome.h"

#include <gtest/gtest.h>

namespace wendlow {
namespace {

TEST(BundleCommand, takesAFlagOffOnlyWhereItsValueIsOneWord) {
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"a --harness h --slot s", "a --harness h"},
        {"a --harness h --slot=s", "a --harness h"},
        {"a --harness h --slot s t", "a --harness h --slot s t"},
        {"a --harness h --slot ", "a --harness h --slot "},
        {"a --harness h", "a --harness h"},
        // The spaced form is looked for first, wherever it stands.
        {"a --slot b --slot=c", "a --slot b --slot=c"},
    };
    for (const auto& [command, expected] : cases)
        EXPECT_EQ(BundleCommand::withoutSlot(command), expected) << command;
}

TEST(BundleCommand, readsTheHarnessAndTheExecutable) {
    struct Case {
        std::string_view command;
        std::optional<std::string_view> harness;
        std::optional<std::string_view> executableForH;
    };
    const Case cases[] = {
        {"/x/y --harness h", "h", "/x/y"}, {"/x/y --harness=h --slot=s", "h", "/x/y"},
        {"/x/y --harness g", "g", {}},     {"/x y --harness h", "h", {}},
        {" --harness h", "h", {}},         {"a --harness ", {}, {}},
        {"a --harness h i", {}, {}},       {"a", {}, {}},
    };
    for (const Case& each : cases) {
        EXPECT_EQ(BundleCommand::harness(each.command), each.harness) << each.command;
        EXPECT_EQ(BundleCommand::hookExecutable(each.command, "h"), each.executableForH)
            << each.command;
    }
    EXPECT_EQ(BundleCommand::hookExecutable("/x/y --harness ", ""), std::nullopt);
}

TEST(BundleCommand, namesABinaryInAnyCopyOfTheApplication) {
    const std::pair<std::string_view, bool> cases[] = {
        {"/Applications/Wendlow.app/Contents/MacOS/wendlow-hook", true},
        {"/Wendlow.app/Contents/MacOS/wendlow-hook", true},
        {"/a//Wendlow.app/Contents//MacOS/wendlow-hook", true},
        {"/Applications/OldWendlow.app/Contents/MacOS/wendlow-hook", false},
        {"/Applications/Wendlow.app/Contents/MacOS/wendlow-mcp", false},
        {"/Contents/MacOS/wendlow-hook", false},
        {"Wendlow.app/Contents/MacOS/wendlow-hook", false},
    };
    for (const auto& [path, expected] : cases)
        EXPECT_EQ(BundleCommand::names(path, "wendlow-hook"), expected) << path;
}

TEST(HookCommand, tellsOursFromAPersonsOwn) {
    const std::string currents[] = {
        "/A/Wendlow.app/Contents/MacOS/wendlow-hook --harness codex --slot rules"};
    constexpr auto current = HookOwnership::current;
    constexpr auto stale = HookOwnership::stale;
    const std::pair<std::string, std::optional<HookOwnership>> cases[] = {
        {currents[0], current},
        {"/A/Wendlow.app/Contents/MacOS/wendlow-hook --harness=codex --slot=rules", current},
        {"/A/Wendlow.app/Contents/MacOS/wendlow-hook --harness codex --slot other", stale},
        {"/B/Wendlow.app/Contents/MacOS/wendlow-hook --harness codex", stale},
        {"/B/Wendlow.app/Contents/MacOS/wendlow-hook --harness cursor", {}},
        {"/B/Wendlow.app/Contents/MacOS/wendlow-mcp --harness codex", {}},
        {"/B/My Wendlow.app/Contents/MacOS/wendlow-hook --harness codex", {}},
        {"'/B/Wendlow.app/Contents/MacOS/wendlow-hook' --harness codex", {}},
        {"/B/Wendlow.app/Contents/MacOS/wendlow-hook --harness codex && say done", {}},
        {"python3 /Users/x/fenmoor/wendlow/Scripts/rules-hook.py", stale},
        {"python3 /Users/x/fenmoor/wendlow/Scripts/wendlow-hook.py", stale},
        {"python3 /Users/x/fenmoor/wendlow/Scripts/prime-hook.py", stale},
        {"python3 /Users/x/fenmoor/wendlow/Scripts/other.py", {}},
        {"python3 /Users/x/fenmoor/wendlow/Tools/rules-hook.py", {}},
        {"python3 fenmoor/wendlow/Scripts/rules-hook.py", {}},
        {"python /Users/x/fenmoor/wendlow/Scripts/rules-hook.py", {}},
    };
    for (const auto& [command, expected] : cases)
        EXPECT_EQ(HookCommand::tier(command, currents), expected) << command;
    EXPECT_EQ(HookCommand::tier("anything", {}), std::nullopt);
}

TEST(HookCommand, refusesAPathThatAShellWouldNotLeaveAsItIs) {
    for (const char* path : {"/A/Wendlow.app/Contents/MacOS/wendlow-hook", "/a-b_c.1+2@x=,:%/é/h"})
        EXPECT_EQ(HookCommand::unusableReason(path), std::nullopt) << path;
    for (const char byte : std::string_view(" \t\n\r\x01\x1F\x7F\"'\\`$&|;<>()*?[]{}#!~\xFF"))
        EXPECT_EQ(HookCommand::unusableReason(std::string("/a") + byte + "b/h"),
                  "this path holds a space or another character that a hook command cannot carry, "
                  "so nothing was written")
            << byte;
}

TEST(InstalledBundle, isTheInnermostApplicationFolderThatIsThere) {
    const testing::TemporaryHome home;
    const auto application = home / "Outer.app/Inner.app";
    std::filesystem::create_directories(application / "Contents/MacOS");
    EXPECT_EQ(InstalledBundle::enclosing(application / "Contents/MacOS/x"), application);
    EXPECT_EQ(InstalledBundle::enclosing(application / "Contents/../Contents/"), application);
    EXPECT_EQ(InstalledBundle::enclosing(application), application);
    EXPECT_EQ(InstalledBundle::enclosing(home / "Outer.app/Gone.app/x"), home / "Outer.app");
    EXPECT_EQ(InstalledBundle::enclosing("/usr/bin/x"), std::nullopt);
    EXPECT_EQ(InstalledBundle::enclosing("/"), std::nullopt);
    // The test program lies in no application.
    EXPECT_EQ(InstalledBundle::current(), std::nullopt);
}

} // namespace
} // namespace wendlow
