#include "CursorHome.h"

#include "Cursor/CursorThirdParty.h"
#include "Cursor/CursorVersion.h"

#include "Found.h"

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using testing::CursorHome;
using testing::found;
using testing::versionList;

/// `{"version":1,"hooks":{"beforeSubmitPrompt":[...],"preToolUse":[...]}}`.
std::string both(const std::string& prompt, const std::string& preTool) {
    return R"({"version":1,"hooks":{"beforeSubmitPrompt":[)" + prompt + R"(],"preToolUse":[)" +
           preTool + "]}}";
}

const std::string shape = "the entry's shape is not the one this build writes";
const std::string older = "the command is not the one this build writes: "
                          "/Old/Wendlow.app/Contents/MacOS/wendlow-hook --harness cursor";
const std::string noted = R"({"note":"x","command":"@hook --harness cursor"})";
const std::string spelled =
    R"({"command":"@hook --harness cursor --slot=pretool","matcher":"Read"})";

std::string holds(const std::string& count) {
    return "this file holds " + count + " where two are expected";
}
std::string version(const std::string& text) {
    return "this file states hooks configuration version " + text +
           ", which this build has not read";
}

TEST(CursorHook, saysWhatItFinds) {
    const CursorHome home;
    const CursorHook hook(home.paths());
    const auto drifted = [&](std::vector<std::string> reasons) {
        for (auto& reason : reasons)
            reason = home.filled(reason);
        return BlockFinding{BlockFinding::Drifted{std::move(reasons)}};
    };
    const auto foreign = [](std::vector<std::string> reasons) {
        return BlockFinding{BlockFinding::Foreign{std::move(reasons)}};
    };
    const auto unreadable = [](const std::string& reason) {
        return BlockFinding{BlockFinding::Unreadable{reason}};
    };
    const BlockFinding absent{BlockFinding::Absent{}};
    const std::string under = "a Wendlow entry here is under the ";
    const std::string noHooks =
        "the hooks value in this file is not an object, so no entry can be put in it";
    const std::pair<std::string, BlockFinding> cases[] = {
        {std::string(CursorHook::seed), absent},
        {"[]", absent},
        {both("@theirs,7,{\"command\":7}", ""), absent},
        {"{", unreadable("a member name was expected (at byte 1)")},
        {R"({"version":1,"version":1})",
         unreadable("the name \"version\" appears twice in one object (at byte 13)")},
        {R"({"hooks":{"stop":[{"a":1,"a":2}]}})",
         unreadable("the name \"a\" appears twice in one object (at byte 25)")},
        {R"({"hooks":{"stop":[{"hooks":[{"a":1,"a":2}]}]}})", absent},
        {R"({"hooks":[]})", foreign({noHooks})},
        {R"({"version":2,"hooks":[]})", foreign({version("2"), noHooks})},
        {R"({"hooks":{"preToolUse":{}}})", foreign({"the preToolUse value in this file is not an "
                                                    "array, so no entry can be put in it"})},
        {R"({"version":2})", foreign({version("2")})},
        {R"({"version":"1"})", foreign({version("\"1\"")})},
        {R"({"version":1.0,"hooks":{"beforeSubmitPrompt":[@prompt],"preToolUse":[@pretool]}})",
         drifted({version("1.0")})},
        {both("@theirs,@prompt", "@pretool"), {BlockFinding::Connected{}}},
        {R"({"hooks":{"preToolUse":[@pretool],"beforeSubmitPrompt":[@prompt]}})",
         {BlockFinding::Connected{}}},
        {both("", "@pretool"), drifted({holds("1 Wendlow entry")})},
        {both("@prompt,@old", "@pretool"), drifted({holds("3 Wendlow entries")})},
        {both("@old", "@pretool"), drifted({older, shape})},
        {both(noted, "@pretool"), drifted({shape})},
        {both("@prompt", spelled), drifted({shape})},
        {both("", spelled),
         drifted({holds("1 Wendlow entry"), "the command is not the one this build writes: @hook "
                                            "--harness cursor --slot=pretool"})},
        {both("", "@pretool,@prompt"),
         drifted({under + "preToolUse event rather than beforeSubmitPrompt"})},
        {R"({"hooks":{"stop":[@pretool],"sessionStart":[@prompt,@old]}})",
         drifted({holds("3 Wendlow entries"), under + "stop event rather than preToolUse",
                  under + "sessionStart event rather than beforeSubmitPrompt",
                  under + "sessionStart event rather than beforeSubmitPrompt"})},
    };
    for (const auto& [bytes, finding] : cases)
        EXPECT_EQ(found(hook, home.filled(bytes)), finding) << bytes;
    std::filesystem::remove(home.paths().hookBinary);
    EXPECT_EQ(found(hook, home.filled(both("@prompt", "@pretool"))),
              drifted({"the file the command names is not on disk: @hook"}));
}

TEST(CursorHook, isInstalledWithTheSmallestEditAndRemovedAgain) {
    const CursorHome home;
    const CursorHook hook(home.paths());
    const Created prompt = Created::cursorEventArray;
    const Created preTool = Created::cursorPreToolEventArray;
    const std::string right = both("@prompt", "@pretool");
    const std::string promptList = "an empty beforeSubmitPrompt list";
    const std::string preToolList = "an empty preToolUse list";
    const std::string object = "an empty hooks object";
    using Texts = std::vector<std::string>;
    const struct {
        std::string before, after;
        std::set<Created> created;
        Texts replaced;
        std::string removed;
        Texts leftovers;
    } cases[] = {
        {"{}",
         R"({"hooks":{"beforeSubmitPrompt":[@prompt],"preToolUse":[@pretool]}})",
         {prompt, preTool, Created::cursorHooksObject},
         {},
         "{}",
         {}},
        {R"({"version":1,"hooks":{}})",
         right,
         {prompt, preTool},
         {},
         R"({"version":1,"hooks":{}})",
         {object}},
        {both("@theirs", ""),
         both("@theirs,@prompt", "@pretool"),
         {},
         {},
         both("@theirs", ""),
         {preToolList}},
        {"{\n\t\"hooks\": {\n\t\t\"preToolUse\": [ { \"a\": [1.0] } ]\n\t}\n}",
         "{\n\t\"hooks\": {\n\t\t\"preToolUse\": [ { \"a\": [1.0] }, @pretool ],\n"
         "\t\t\"beforeSubmitPrompt\": [\n\t\t\t{\n\t\t\t\t\"command\": \"@hook --harness "
         "cursor\"\n\t\t\t}\n\t\t]\n\t}\n}",
         {prompt},
         {},
         "{\n\t\"hooks\": {\n\t\t\"preToolUse\": [ { \"a\": [1.0] } ]\n\t}\n}",
         {}},
        // In its place, and what the person had put into it is told.
        {both("@theirs," + noted + ",@theirs", "@pretool"),
         both("@theirs,@prompt,@theirs", "@pretool"),
         {},
         {"note \"x\""},
         both("@theirs,@theirs", ""),
         {preToolList}},
        {both(
             R"({"x": { "a" : [1,
  2] },"command":"@hook --harness=cursor","ä":"ääääääääääääääääääääää","é":"éééééééééééééééééééééé!"})",
             R"({"matcher":"Read","timeout":9,"command":"@hook --harness cursor --slot=pretool"})"),
         both("{\n  \"command\": \"@hook --harness cursor\"\n}", "@pretool"),
         {},
         {"x { \"a\" : [1, 2] }", "ä \"ääääääääääääääääääääää\"", "é \"éééééééééééééééééééééé!…"},
         both("", ""),
         {promptList, preToolList}},
        // Three under wrong events, one with a note: all go before any is placed, and a list that
        // was there is the person's also when it had to be made anew.
        {R"({"hooks":{"stop":[@pretool],"beforeSubmitPrompt":[@pretool],"preToolUse":[@theirs,)" +
             noted + "]}}",
         R"({"hooks":{"preToolUse":[@theirs,@pretool],"beforeSubmitPrompt":[@prompt]}})",
         {},
         {},
         R"({"hooks":{"preToolUse":[@theirs],"beforeSubmitPrompt":[]}})",
         {promptList}},
        {both("@old,@theirs,@prompt", "@pretool,@pretool"),
         both("@prompt,@theirs", "@pretool"),
         {},
         {},
         both("@theirs", ""),
         {preToolList}},
    };
    for (const auto& [before, after, created, replaced, removed, leftovers] : cases) {
        SCOPED_TRACE(before);
        const auto installed = hook.installed(home.filled(before));
        ASSERT_TRUE(installed);
        EXPECT_EQ(installed->bytes, home.filled(after));
        EXPECT_EQ(installed->created, created);
        EXPECT_EQ(installed->replaced, replaced);
        const auto again = hook.installed(*installed->bytes);
        EXPECT_TRUE(!again->bytes && again->created.empty() && again->replaced.empty());
        const auto rest = hook.removed(*installed->bytes, created);
        EXPECT_EQ(rest->bytes, home.filled(removed));
        Texts left;
        for (const std::string& text : leftovers)
            left.push_back(text + " remains here, which Wendlow did not create");
        EXPECT_EQ(rest->leftovers, left);
    }
    // Neither its own list nor one that only a person can have made.
    const auto rest = hook.removed(home.filled(R"({"hooks":{"stop":[@old],"preToolUse":[]}})"),
                                   {prompt, preTool, Created::cursorHooksObject});
    EXPECT_EQ(rest->bytes, R"({"hooks":{"stop":[],"preToolUse":[]}})");
    EXPECT_EQ(rest->leftovers.size(), 1U);
}

TEST(CursorHook, refusesWhatItHasNotReadAndKnowsItsSeed) {
    const CursorHook hook(CursorHome().paths());
    const std::pair<const char*, std::string> refusals[] = {
        {R"({"version":2})", version("2")},
        {R"({"version":{"a" : 1}})", version(R"({"a" : 1})")},
        {R"({"hooks":[]})", "hooks is not an object"},
        {R"({"hooks":{"preToolUse":1}})", "hooks.preToolUse is not an array"},
        {"{", "a member name was expected (at byte 1)"},
    };
    for (const auto& [bytes, reason] : refusals)
        EXPECT_EQ(description(hook.installed(bytes).error()), reason);
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
