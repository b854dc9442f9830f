#include "ClaudeCode/ClaudeCodeHook.h"
#include "ClaudeCodeTestSupport.h"
#include "Drift.h"

#include "Found.h"

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using testing::filled;
using testing::found;

const ClaudeCodeHook hook(testing::paths());
constexpr auto all = {Created::hooksObject, Created::eventArray, Created::hookGroup,
                      Created::preToolEventArray, Created::preToolGroup};

/// A file with these groups on the prompt, as `filled` reads them.
std::string onPrompt(const std::string& groups) {
    return filled(R"({"hooks":{"UserPromptSubmit":[)" + groups + "]}}");
}
/// The same, and our group on the tools as it should be; in front `before`.
std::string complete(const std::string& groups, const std::string& before = "") {
    return filled(R"({"hooks":{)" + before + R"("UserPromptSubmit":[)" + groups +
                  R"(],"PreToolUse":[{"matcher":"mcp__wendlow__.*","hooks":[@pretool]}]}})");
}
const std::string slots = R"({"hooks":[@slots]})";
const std::string theirs = R"({"hooks":[@theirs]})";
const std::string whole = complete(slots);

std::string afterInstall(const std::string& before, std::set<Created>* created = nullptr) {
    const auto block = hook.installed(before);
    if (!block)
        return description(block.error());
    if (created != nullptr)
        *created = block->created;
    return block->bytes.value_or(before);
}

TEST(ClaudeCodeHook, installsWithTheSmallestEdit) {
    constexpr auto group = Created::hookGroup;
    constexpr auto preGroup = Created::preToolGroup;
    constexpr auto preList = Created::preToolEventArray;
    const auto bash = [](const std::string& entries) {
        return R"({"matcher":"Bash","hooks":[)" + entries + "]}";
    };
    const struct {
        const char* name;
        std::string before, after;
        std::set<Created> created;
    } repairs[] = {
        {"one line", "{}", whole, all},
        {"nothing to do", whole, whole, {}},
        {"the person's group stays in front", onPrompt(theirs), complete(theirs + "," + slots),
         std::set{group, preGroup, preList}},
        {"an older copy's entries are rewritten where they are",
         onPrompt(R"({"matcher":"","hooks":[@old]})"),
         complete(R"({"matcher":"","hooks":[@slots]})"), std::set{preGroup, preList}},
        {"our entries leave a group that is shared", complete(R"({"hooks":[@rules,@theirs,@old]})"),
         complete(theirs + "," + slots), std::set{group}},
        {"and leave it where the person's entry comes first",
         complete(R"({"hooks":[@theirs,@slots]})"), complete(theirs + "," + slots),
         std::set{group}},
        {"a shared group that is right already stays",
         complete(R"({"hooks":[@slots,@theirs]})"),
         complete(R"({"hooks":[@slots,@theirs]})"),
         {}},
        {"twins go, the first stays",
         complete(slots + "," + slots, R"("Stop":[{"hooks":[@old]},)" + theirs + "],"),
         complete(slots, R"("Stop":[)" + theirs + "],"),
         {}},
        {"a misplaced entry goes, its emptied list stays",
         filled(R"({"hooks":{"PostToolUse":[{"hooks":[@pretool]}],"UserPromptSubmit":[)" + slots +
                "]}}"),
         complete(slots, R"("PostToolUse":[],)"), std::set{preGroup, preList}},
        {"a group with the person's own matcher stays, emptied",
         filled(R"({"hooks":{"PreToolUse":[)" + bash("@pretool") + R"(],"UserPromptSubmit":[)" +
                slots + "]}}"),
         filled(R"({"hooks":{"PreToolUse":[)" + bash("") +
                R"(,{"matcher":"mcp__wendlow__.*","hooks":[@pretool]}],"UserPromptSubmit":[)" +
                slots + "]}}"),
         std::set{preGroup}},
        {"slots out of order", complete(R"({"hooks":[@index,@rules,@recall]})"), whole, {}},
        {"an entry that is no object is not ours to rewrite", complete(R"({"hooks":[5,@rules]})"),
         complete(R"({"hooks":[5]},)" + slots), std::set{group}},
    };
    for (const auto& [name, before, after, expected] : repairs) {
        std::set<Created> created;
        EXPECT_EQ(afterInstall(before, &created), after) << name;
        EXPECT_EQ(created, expected) << name;
        const auto again = hook.installed(after);
        EXPECT_TRUE(again && !again->bytes && again->created.empty()) << name;
    }
}

TEST(ClaudeCodeHook, rewritesAnotherSpellingOfItsOwnCommand) {
    std::string spelled = whole;
    spelled.replace(spelled.find("--slot rules"), 12, "--slot=rules");
    const auto finding = found(hook, spelled);
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
    const auto noPlace = [](const std::string& what) {
        return BlockFinding{
            BlockFinding::Foreign{{"the " + what + ", so no entry can be put in it"}}};
    };
    const std::string shape(Drift::otherShape);
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
        {R"({"hooks":[]})", noPlace("hooks value in this file is not an object")},
        {R"({"hooks":{"PreToolUse":{},"UserPromptSubmit":7}})",
         noPlace("UserPromptSubmit value in this file is not an array")},
        {R"({"hooks":{"PreToolUse":{}}})",
         noPlace("PreToolUse value in this file is not an array")},
        {R"({"a":1,"a":2})",
         {BlockFinding::Unreadable{"the name \"a\" appears twice in one object (at byte 7)"}}},
    };
    for (const auto& [bytes, expected] : cases)
        EXPECT_EQ(found(hook, filled(bytes)), expected) << bytes;
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
    const auto leftover = [](const std::string& what) {
        return "an empty " + what + " remains here, which Wendlow did not create";
    };
    const std::set<Created> groups{Created::hookGroup, Created::preToolGroup,
                                   Created::preToolEventArray};
    std::set<Created> lists = groups;
    lists.insert(Created::eventArray);
    const struct {
        std::string before;
        std::set<Created> created;
        std::string after;
        std::vector<std::string> leftovers;
    } removals[] = {
        {whole, all, "{}", {}},
        {whole,
         {},
         R"({"hooks":{"UserPromptSubmit":[{"hooks":[]}],)"
         R"("PreToolUse":[{"matcher":"mcp__wendlow__.*","hooks":[]}]}})",
         {leftover("hook group"), leftover("hook group")}},
        {whole, groups, onPrompt(""), {leftover("UserPromptSubmit list")}},
        {whole, lists, R"({"hooks":{}})", {leftover("hooks object")}},
        {complete(R"({"hooks":[@rules,@theirs,@old]})"), all, onPrompt(theirs), {}},
        {onPrompt(R"({"note":"mine","hooks":[@slots]})"),
         all,
         onPrompt(R"({"note":"mine","hooks":[]})"),
         {"a hook group without entries remains here, because it holds more than Wendlow wrote"}},
        {onPrompt(R"({"hooks":[]})"), all, onPrompt(R"({"hooks":[]})"), {}},
        {R"({"hooks":[]})", all, R"({"hooks":[]})", {}},
    };
    for (const auto& [before, created, after, leftovers] : removals) {
        const auto block = hook.removed(before, created);
        ASSERT_TRUE(block) << before;
        EXPECT_EQ(block->bytes.value_or(before), after);
        EXPECT_EQ(block->leftovers, leftovers) << before;
    }
}

} // namespace
} // namespace wendlow
