#include "ClaudeCode/ClaudeCodeHook.h"
#include "ClaudeCodeTestSupport.h"

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using testing::filled;

const ClaudeCodeHook hook(testing::paths());
constexpr auto all = {Created::hooksObject, Created::eventArray, Created::hookGroup,
                      Created::preToolEventArray, Created::preToolGroup};
const std::string whole =
    filled(R"({"hooks":{"UserPromptSubmit":[{"hooks":[@slots]}],)"
           R"("PreToolUse":[{"matcher":"mcp__wendlow__.*","hooks":[@pretool]}]}})");

std::string afterInstall(const std::string& before, std::set<Created>* created = nullptr) {
    const auto block = hook.installed(before);
    if (!block)
        return description(block.error());
    if (created != nullptr)
        *created = block->created;
    return block->bytes.value_or(before);
}

TEST(ClaudeCodeHook, writesTheWholeShapeIntoANewFile) {
    const std::string command =
        R"("command": "/A/Wendlow.app/Contents/MacOS/wendlow-hook --harness claude-code --slot )";
    std::set<Created> created;
    EXPECT_EQ(afterInstall("{}\n", &created), R"({
  "hooks": {
    "UserPromptSubmit": [
      {
        "hooks": [
          {
            "type": "command",
            )" + command + R"(rules",
            "timeout": 3
          },
          {
            "type": "command",
            )" + command + R"(index",
            "timeout": 3
          },
          {
            "type": "command",
            )" + command + R"(recall",
            "timeout": 3
          }
        ]
      }
    ],
    "PreToolUse": [
      {
        "matcher": "mcp__wendlow__.*",
        "hooks": [
          {
            "type": "command",
            )" + command + R"(pretool",
            "timeout": 3
          }
        ]
      }
    ]
  }
}
)");
    EXPECT_EQ(created, std::set<Created>(all));
}

struct Repair {
    const char* name;
    std::string before;
    std::string after;
    std::set<Created> created;
};

TEST(ClaudeCodeHook, installsWithTheSmallestEdit) {
    const std::string preToolPart =
        R"("PreToolUse":[{"matcher":"mcp__wendlow__.*","hooks":[@pretool]}])";
    constexpr auto group = Created::hookGroup;
    constexpr auto preGroup = Created::preToolGroup;
    constexpr auto preList = Created::preToolEventArray;
    const Repair repairs[] = {
        {"one line", "{}", whole, all},
        {"nothing to do", whole, whole, {}},
        {"the person's group stays in front",
         R"({"hooks":{"UserPromptSubmit":[{"hooks":[@theirs]}]}})",
         R"({"hooks":{"UserPromptSubmit":[{"hooks":[@theirs]},{"hooks":[@slots]}],)" + preToolPart +
             "}}",
         {group, preGroup, preList}},
        {"an older copy's entries are rewritten where they are",
         R"({"hooks":{"UserPromptSubmit":[{"matcher":"","hooks":[@old]}]}})",
         R"({"hooks":{"UserPromptSubmit":[{"matcher":"","hooks":[@slots]}],)" + preToolPart + "}}",
         {preGroup, preList}},
        {"our entries leave a group that is shared",
         R"({"hooks":{"UserPromptSubmit":[{"hooks":[@rules,@theirs,@old]}],)" + preToolPart + "}}",
         R"({"hooks":{"UserPromptSubmit":[{"hooks":[@theirs]},{"hooks":[@slots]}],)" + preToolPart +
             "}}",
         {group}},
        {"and leave it where the person's entry comes first",
         R"({"hooks":{"UserPromptSubmit":[{"hooks":[@theirs,@slots]}],)" + preToolPart + "}}",
         R"({"hooks":{"UserPromptSubmit":[{"hooks":[@theirs]},{"hooks":[@slots]}],)" + preToolPart +
             "}}",
         {group}},
        {"a shared group that is right already stays",
         R"({"hooks":{"UserPromptSubmit":[{"hooks":[@slots,@theirs]}],)" + preToolPart + "}}",
         R"({"hooks":{"UserPromptSubmit":[{"hooks":[@slots,@theirs]}],)" + preToolPart + "}}",
         {}},
        {"twins go, the first stays",
         R"({"hooks":{"UserPromptSubmit":[{"hooks":[@slots]},{"hooks":[@slots]}],"Stop":[)"
         R"({"hooks":[@old]},{"hooks":[@theirs]}],)" +
             preToolPart + "}}",
         R"({"hooks":{"UserPromptSubmit":[{"hooks":[@slots]}],"Stop":[{"hooks":[@theirs]}],)" +
             preToolPart + "}}",
         {}},
        {"a misplaced entry goes, its emptied list stays",
         R"({"hooks":{"PostToolUse":[{"hooks":[@pretool]}],"UserPromptSubmit":[{"hooks":[@slots]}]}})",
         R"({"hooks":{"PostToolUse":[],"UserPromptSubmit":[{"hooks":[@slots]}],)" + preToolPart +
             "}}",
         {preGroup, preList}},
        {"a group with the person's own matcher stays, emptied",
         R"({"hooks":{"UserPromptSubmit":[{"hooks":[@slots]}],"PreToolUse":[)"
         R"({"matcher":"Bash","hooks":[@pretool]}]}})",
         R"({"hooks":{"UserPromptSubmit":[{"hooks":[@slots]}],"PreToolUse":[)"
         R"({"matcher":"Bash","hooks":[]},{"matcher":"mcp__wendlow__.*","hooks":[@pretool]}]}})",
         {preGroup}},
        {"slots out of order",
         R"({"hooks":{"UserPromptSubmit":[{"hooks":[@index,@rules,@recall]}],)" + preToolPart +
             "}}",
         whole,
         {}},
        {"an entry that is no object is not ours to rewrite",
         R"({"hooks":{"UserPromptSubmit":[{"hooks":[5,@rules]}],)" + preToolPart + "}}",
         R"({"hooks":{"UserPromptSubmit":[{"hooks":[5]},{"hooks":[@slots]}],)" + preToolPart + "}}",
         {group}},
    };
    for (const Repair& repair : repairs) {
        std::set<Created> created;
        const std::string after = afterInstall(filled(repair.before), &created);
        EXPECT_EQ(after, filled(repair.after)) << repair.name;
        EXPECT_EQ(created, repair.created) << repair.name;
        const auto again = hook.installed(after);
        EXPECT_TRUE(again && !again->bytes && again->created.empty()) << repair.name;
    }
}

TEST(ClaudeCodeHook, rewritesAnotherSpellingOfItsOwnCommand) {
    std::string spelled = whole;
    spelled.replace(spelled.find("--slot rules"), 12, "--slot=rules");
    const auto scan = JSONText::scanWithTrivia(spelled, JSONDialect::json);
    for (const HookSite& site : hook.sites(scan->root()))
        EXPECT_EQ(site.tier, HookOwnership::current);
    const auto finding = hook.find(spelled);
    ASSERT_TRUE(finding.is<BlockFinding::Drifted>());
    EXPECT_EQ(std::get<BlockFinding::Drifted>(finding.content).reasons.front(),
              "the command is not the one this build writes: /A/Wendlow.app/Contents/MacOS/"
              "wendlow-hook --harness claude-code --slot=rules");
    EXPECT_EQ(afterInstall(spelled), whole);
}

TEST(ClaudeCodeHook, findsAndSaysWhatIsWrong) {
    const std::string gone = "the file the command names is not on disk: "
                             "/A/Wendlow.app/Contents/MacOS/wendlow-hook";
    const std::string notExpected = "the command is not the one this build writes: ";
    const auto drift = [](std::vector<std::string> reasons) {
        return BlockFinding{BlockFinding::Drifted{std::move(reasons)}};
    };
    const std::string shape(JSONBlock::otherShape);
    const std::pair<std::string, BlockFinding> cases[] = {
        {"{}", {BlockFinding::Absent{}}},
        {"[]", {BlockFinding::Absent{}}},
        {R"({"hooks":{"UserPromptSubmit":[{"hooks":[@theirs]}]}})", {BlockFinding::Absent{}}},
        {whole, drift({gone})},
        {R"({"hooks":{"UserPromptSubmit":[{"hooks":[@slots]}],"PostToolUse":[{"hooks":[@pretool]}]}})",
         drift(
             {"a Wendlow entry here is under the PostToolUse event rather than PreToolUse", gone})},
        {R"({"hooks":{"UserPromptSubmit":[{"hooks":[@pretool]}]}})",
         drift({"this file holds 1 Wendlow entry where four are expected",
                "a Wendlow entry here is under the UserPromptSubmit event rather than PreToolUse",
                gone})},
        {R"({"hooks":{"UserPromptSubmit":[{"hooks":[@old,@old]}]}})",
         drift({"this file holds 2 Wendlow entries where four are expected",
                notExpected + "/Old/Wendlow.app/Contents/MacOS/wendlow-hook --harness claude-code "
                              "--slot rules",
                gone})},
        {R"({"hooks":{"UserPromptSubmit":[{"hooks":[@slots]}],"PreToolUse":[{"hooks":[@pretool]}]}})",
         drift({gone, shape})},
        {R"({"hooks":[]})",
         {BlockFinding::Foreign{
             {"the hooks value in this file is not an object, so no entry can be put in it"}}}},
        {R"({"hooks":{"PreToolUse":{},"UserPromptSubmit":7}})",
         {BlockFinding::Foreign{{"the UserPromptSubmit value in this file is not an array, so no "
                                 "entry can be put in it"}}}},
        {R"({"hooks":{"PreToolUse":{}}})",
         {BlockFinding::Foreign{{"the PreToolUse value in this file is not an array, so no entry "
                                 "can be put in it"}}}},
        {R"({"a":1,"a":2})",
         {BlockFinding::Unreadable{"the name \"a\" appears twice in one object (at byte 7)"}}},
        {R"({"x":)",
         {BlockFinding::Unreadable{"the document ended where a value was expected (at byte 5)"}}},
    };
    for (const auto& [bytes, expected] : cases)
        EXPECT_EQ(hook.find(filled(bytes)), expected) << bytes;
    EXPECT_EQ(hook.find(std::nullopt), BlockFinding{BlockFinding::FileAbsent{}});
}

TEST(ClaudeCodeHook, judgesRepeatedNamesOnlyOnTheWayToAnEntry) {
    const std::pair<const char*, std::optional<std::string>> cases[] = {
        {R"({"hooks":{"Stop":[],"Stop":[]}})", "\"Stop\" appears twice in one object (at byte 20)"},
        {R"({"hooks":{"Stop":[{"b":1,"b":2}]}})", "\"b\" appears twice in one object (at byte 25)"},
        {R"({"hooks":{"Stop":[{"hooks":[{"c":1,"\u0063":2}]}]}})",
         "\"c\" appears twice in one object (at byte 35)"},
        {R"({"hooks":{"Stop":[{"hooks":[{"c":{"d":1,"d":2}}]}]},"e":{"f":1,"f":2}})", {}},
        // Depth first: the first group's entries come before the second group.
        {R"({"hooks":{"S":[{"hooks":[{"c":1,"c":2}]},{"b":1,"b":2}]}})",
         "\"c\" appears twice in one object (at byte 32)"},
    };
    for (const auto& [bytes, reason] : cases)
        EXPECT_EQ(hook.unreadableReason(bytes),
                  reason ? std::optional("the name " + *reason) : std::nullopt)
            << bytes;
}

TEST(ClaudeCodeHook, failsInWordsWhereThereIsNoPlace) {
    const std::pair<const char*, const char*> cases[] = {
        {"[]", "the top-level value is not an object"},
        {R"({"hooks":[]})", "hooks is not an object"},
        {R"({"hooks":{"UserPromptSubmit":{}}})", "hooks.UserPromptSubmit is not an array"},
        {R"({"hooks":{"PreToolUse":{}}})", "hooks.PreToolUse is not an array"},
    };
    for (const auto& [bytes, words] : cases)
        EXPECT_EQ(afterInstall(bytes), words);
}

TEST(ClaudeCodeHook, removesItsEntriesAndTheContainersThatTheReceiptClaims) {
    struct Removal {
        std::string before;
        std::set<Created> created;
        std::string after;
        std::vector<std::string> leftovers;
    };
    const auto leftover = [](const std::string& what) {
        return "an empty " + what + " remains here, which Wendlow did not create";
    };
    const Removal removals[] = {
        {whole, all, "{}", {}},
        {whole,
         {},
         R"({"hooks":{"UserPromptSubmit":[{"hooks":[]}],"PreToolUse":[)"
         R"({"matcher":"mcp__wendlow__.*","hooks":[]}]}})",
         {leftover("hook group"), leftover("hook group")}},
        {whole,
         {Created::hookGroup, Created::preToolGroup, Created::preToolEventArray},
         R"({"hooks":{"UserPromptSubmit":[]}})",
         {leftover("UserPromptSubmit list")}},
        {whole,
         {Created::hookGroup, Created::preToolGroup, Created::preToolEventArray,
          Created::eventArray},
         R"({"hooks":{}})",
         {leftover("hooks object")}},
        {R"({"hooks":{"UserPromptSubmit":[{"hooks":[@rules,@theirs,@old]}],"Stop":[{"hooks":[@old]}]},"a":1})",
         all,
         R"({"hooks":{"UserPromptSubmit":[{"hooks":[@theirs]}]},"a":1})",
         {}},
        {R"({"hooks":{"UserPromptSubmit":[{"note":"mine","hooks":[@slots]}]}})",
         all,
         R"({"hooks":{"UserPromptSubmit":[{"note":"mine","hooks":[]}]}})",
         {"a hook group without entries remains here, because it holds more than Wendlow wrote"}},
        {R"({"hooks":{"Stop":[{"hooks":[]}]}})", all, R"({"hooks":{"Stop":[{"hooks":[]}]}})", {}},
        {R"({"hooks":[]})", all, R"({"hooks":[]})", {}},
    };
    for (const Removal& removal : removals) {
        const std::string before = filled(removal.before);
        const auto block = hook.removed(before, removal.created);
        ASSERT_TRUE(block) << before;
        EXPECT_EQ(block->bytes.value_or(before), filled(removal.after));
        EXPECT_EQ(block->leftovers, removal.leftovers) << before;
    }
}

} // namespace
} // namespace wendlow
