#include "CursorHome.h"

#include "Cursor/CursorThirdParty.h"
#include "Cursor/CursorVersion.h"

#include <gtest/gtest.h>

namespace wendlow {
namespace {

using testing::CursorHome;
using testing::versionList;

TEST(CursorHook, knowsItsSeedAndWritesNothingIntoAVersionItHasNotRead) {
    EXPECT_FALSE(CursorHook(CursorHome().paths()).installed(R"({"version":2})"));
    for (const char* bytes : {"{}", " {\"version\":1}\n", CursorHook::seed.data()})
        EXPECT_TRUE(CursorHook::isSeedResidue(bytes)) << bytes;
    for (const char* bytes : {"[]", "{", R"({"version":2})", R"({"version":"1"})", R"({"a":1})",
                              R"({"version":1,"hooks":{}})"})
        EXPECT_FALSE(CursorHook::isSeedResidue(bytes)) << bytes;
}

TEST(CursorThirdParty, findsTheFirstEntryThatCursorRuns) {
    using CursorThirdParty::Kind;
    const std::string ours = "/A/Wendlow.app/Contents/MacOS/wendlow-hook";
    const auto kind = [&](const std::string& groups) -> std::optional<Kind> {
        const auto found = CursorThirdParty::mappedWendlowEntry(
            R"({"hooks":{"Stop":[{"hooks":[{"command":")" + ours +
                R"( --harness cursor"}]}],"UserPromptSubmit":)" + groups + "}}",
            ours + " --harness cursor", ours + " --harness claude-code");
        return found ? std::optional(found->kind) : std::nullopt;
    };
    const auto group = [](const std::string& command) {
        return R"([7,{"hooks":7},{"hooks":[{"command":7},{"command":"lint"},{"command":")" +
               command + R"("},{"command":"/A/wendlow-hook --harness cursor"}]}])";
    };
    const std::pair<std::string, std::optional<Kind>> cases[] = {
        {ours + " --harness=cursor", Kind::cursorCommand},
        {"/B/Wendlow.app/Contents/MacOS/wendlow-hook --harness cursor --slot x",
         Kind::cursorCommand},
        {ours + " --harness claude-code --slot rules", Kind::claudeCommand},
        {"python3 /u/fenmoor/wendlow/Scripts/prime-hook.py", Kind::legacyScript},
        {"python3 /u/fenmoor/wendlow/Scripts/other.py", {}},
        {ours + " --harness codex", {}},
    };
    for (const auto& [command, expected] : cases)
        EXPECT_EQ(kind(group(command)), expected) << command;
    for (const char* groups : {"[]", "{}", "1"})
        EXPECT_EQ(kind(groups), std::nullopt);
    EXPECT_EQ(CursorThirdParty::mappedWendlowEntry("{", "a", "b"), std::nullopt);
}

TEST(CursorVersion, readsBothFormatsAndNothingElse) {
    const CursorHome home;
    const auto version = [&](const std::string& list) {
        home.fillVersion(list);
        return CursorVersion::read(home.paths().cursorApp);
    };
    EXPECT_EQ(CursorVersion::read(home.paths().cursorApp), std::nullopt);
    EXPECT_EQ(version(versionList("\t 2.1.4 beta \n")), "2.1.4 beta");
    using namespace std::string_literals;
    const std::string binary =
        "bplist00\xD1\x01\x02_\x10\x1A"s
        "CFBundleShortVersionString"
        "S2.0"
        "\x08\x0B\x28\0\0\0\0\0\0\x01\x01\0\0\0\0\0\0\0\x03\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\x2C"s;
    EXPECT_EQ(version(binary), "2.0");
    for (std::size_t size = 0; size < binary.size(); ++size)
        EXPECT_EQ(version(binary.substr(0, size)), std::nullopt) << size;
    for (const std::string& text : {""s, " \n"s, "2\xFF"s, std::string(2'000'000, '2')})
        EXPECT_EQ(version(versionList(text)), std::nullopt) << text.substr(0, 9);
}

} // namespace
} // namespace wendlow
