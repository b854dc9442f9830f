#include "CodexHome.h"

#include "Found.h"

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using testing::CodexHome;
using testing::found;

/// `{"hooks":{"UserPromptSubmit":[<groups>]}}`.
std::string onPrompt(const std::string& groups) {
    return R"({"hooks":{"UserPromptSubmit":[)" + groups + "]}}";
}

TEST(CodexHook, readsEveryFieldThatIsHashed) {
    const CodexHome home;
    const CodexHook hook(home.paths());
    const std::string bytes = home.filled(
        R"({"hooks":{"Stop":[{"hooks":[@theirs,@old]}],"UserPromptSubmit":[7,{"matcher":"m","hooks":[)"
        R"({"command":"@home/Wendlow.app/Contents/MacOS/wendlow-hook --harness=codex","timeout":3.5,)"
        R"("async":true,"statusMessage":7,"additionalContextLimit":-12}]}]}})");
    const auto document = *hook.read(bytes);
    const auto sites = hook.sites(document.root(), bytes);
    ASSERT_EQ(sites.size(), 2U);
    EXPECT_EQ(sites[0].event, "Stop");
    EXPECT_EQ(sites[0].entry, 1);
    EXPECT_EQ(sites[0].tier, HookOwnership::stale);
    EXPECT_EQ(sites[0].identity(),
              (CodexHookIdentity{"/Old/Wendlow.app/Contents/MacOS/wendlow-hook --harness codex",
                                 "Loading Wendlow rules and memory",
                                 3,
                                 {},
                                 false,
                                 {}}));
    EXPECT_EQ(sites[1].group, 1);
    EXPECT_EQ(sites[1].tier, HookOwnership::current);
    EXPECT_EQ(sites[1].matcher, "m");
    EXPECT_EQ(sites[1].timeout, std::nullopt);
    EXPECT_EQ(sites[1].identity(), std::nullopt);
    EXPECT_EQ(sites[1].statusMessage, std::nullopt);
    EXPECT_EQ(sites[1].additionalContextLimit, -12);
    EXPECT_TRUE(sites[1].isAsync);
    EXPECT_EQ(CodexHook::onPrompt(sites), &sites[1]);
}

TEST(CodexHook, saysWhatItFinds) {
    const CodexHome home;
    const CodexHook hook(home.paths());
    const auto drifted = [](std::vector<std::string> reasons) {
        return BlockFinding{BlockFinding::Drifted{std::move(reasons)}};
    };
    const auto foreign = [](std::string reason) {
        return BlockFinding{BlockFinding::Foreign{{std::move(reason)}}};
    };
    const std::string shape = "the entry's shape is not the one this build writes";
    const std::string old = "the command is not the one this build writes: "
                            "/Old/Wendlow.app/Contents/MacOS/wendlow-hook --harness codex";
    const std::string half = home.filled(
        R"({"type":"command","command":"@home/Wendlow.app/Contents/MacOS/wendlow-hook --harness codex","timeout":)");
    const std::string notWhole = "the timeout on the Wendlow entry here is not a whole number, so "
                                 "the identity Codex hashes cannot be computed";
    const std::pair<std::string, BlockFinding> cases[] = {
        {"{}", {BlockFinding::Absent{}}},
        {"{", {BlockFinding::Unreadable{"a member name was expected (at byte 1)"}}},
        {R"({"hooks":{"Stop":[{"a":1,"hooks":[],"a":2}]}})",
         {BlockFinding::Unreadable{"the name \"a\" appears twice in one object (at byte 36)"}}},
        {R"({"hooks":[]})",
         foreign("the hooks value in this file is not an object, so no entry can be put in it")},
        {onPrompt(R"({"hooks":[@theirs]})"), {BlockFinding::Absent{}}},
        {onPrompt(R"({"hooks":[@theirs]},{"hooks":[@ours]})"), {BlockFinding::Connected{}}},
        {onPrompt(R"({"hooks":[@theirs,@ours]})"), drifted({shape})},
        {onPrompt(R"({"hooks":[@old]})"), drifted({old, shape})},
        {onPrompt(R"({"hooks":[@old]},{"hooks":[@ours]})"),
         drifted({"this file holds 2 Wendlow entries where one is expected", old})},
        {R"({"hooks":{"SessionStart":[{"hooks":[@ours]}]}})",
         drifted({"a Wendlow entry here is under the SessionStart event, which Codex does not read "
                  "as UserPromptSubmit"})},
        {onPrompt("{\"hooks\":[" + half + "3.5}]}"), drifted({notWhole, shape})},
        {onPrompt("{\"hooks\":[" + half + "\"3\"}]}"), drifted({notWhole, shape})},
        {onPrompt("{\"hooks\":[" + half + "5}]}"), drifted({shape})},
    };
    for (const auto& [bytes, finding] : cases) {
        EXPECT_EQ(found(hook, home.filled(bytes)), finding) << bytes;
    }
    std::filesystem::remove(home.paths().hookBinary);
    EXPECT_EQ(found(hook, home.filled(onPrompt(R"({"hooks":[@ours]})"))),
              drifted({"the file the command names is not on disk: " +
                       home.paths().hookBinary.string()}));
}

TEST(CodexHook, isInstalledInItsPlaceAndRemovedAgain) {
    const CodexHome home;
    const CodexHook hook(home.paths());
    const std::set<Created> none;
    const std::set group{Created::codexHookGroup};
    const std::set list{Created::codexEventArray, Created::codexHookGroup};
    const std::set all{Created::codexHooksObject, Created::codexEventArray,
                       Created::codexHookGroup};
    const std::string theirs = R"({"hooks":[@theirs]})";
    const std::string ours = R"({"hooks":[@ours]})";
    const std::string emptied = R"({"hooks":[]})";
    const auto onBoth = [](const std::string& stop, const std::string& prompt) {
        return R"({"hooks":{"Stop":[)" + stop + R"(],"UserPromptSubmit":[)" + prompt + "]}}";
    };
    const struct {
        std::string before, after;
        std::set<Created> created;
        std::string removed;
        std::string leftover = ""; ///< what remains empty and is not ours
        std::string moved = "";    ///< the command of somebody else's entry that moved
    } cases[] = {
        {"{}", onPrompt(ours), all, "{}"},
        {R"({"hooks":{}})", onPrompt(ours), list, R"({"hooks":{}})", "hooks object"},
        {onPrompt(""), onPrompt(ours), group, onPrompt(""), "UserPromptSubmit list"},
        {onPrompt(theirs), onPrompt(theirs + "," + ours), group, onPrompt(theirs)},
        // Ours stays where it is, in a group of the person's too, and older ones become it.
        {onPrompt(R"({"hooks":[@old,@theirs]})"), onPrompt(R"({"hooks":[@ours,@theirs]})"), none,
         onPrompt(theirs)},
        {onPrompt(R"({"matcher":"m","hooks":[@script]})"),
         onPrompt(R"({"matcher":"m","hooks":[@ours]})"), none,
         onPrompt(R"({"matcher":"m","hooks":[]})"), "hook group"},
        // The first one stays, the others go; what stood behind one of them has moved.
        {onPrompt(ours + R"(,{"hooks":[@old,@theirs,@script]},)" + ours),
         onPrompt(ours + "," + theirs), none, onPrompt(emptied + "," + theirs), "hook group",
         "lint"},
        // Another event's position says nothing, so that one is made anew.
        {onBoth(R"({"hooks":[@ours,@theirs]})", theirs), onBoth(theirs, theirs + "," + ours), group,
         onBoth(theirs, theirs), "", "lint"},
    };
    for (const auto& [before, after, created, removed, leftover, moved] : cases) {
        SCOPED_TRACE(before);
        const auto listed = [](const std::string& one, const std::string& rest = "") {
            return one.empty() ? std::vector<std::string>() : std::vector{one + rest};
        };
        const std::string bytes = home.filled(before);
        const auto document = *hook.read(bytes);
        const auto installed = hook.installed(bytes, document);
        ASSERT_TRUE(installed);
        const std::string now = installed->bytes.value_or(bytes);
        EXPECT_EQ(now, home.filled(after));
        EXPECT_EQ(installed->created, created);
        const auto nowDocument = *hook.read(now);
        const auto sites = hook.sites(nowDocument.root(), now);
        ASSERT_EQ(sites.size(), 1U);
        EXPECT_EQ(std::pair(installed->site.group, installed->site.entry),
                  std::pair(sites[0].group, sites[0].entry));
        EXPECT_EQ(hook.movedForeignEntries(document.root(), nowDocument.root()), listed(moved));
        const auto again = hook.installed(now, nowDocument);
        EXPECT_EQ(again->bytes, std::nullopt);
        EXPECT_EQ(again->created, none);
        const auto rest = hook.removed(now, nowDocument, created);
        EXPECT_EQ(rest->bytes, home.filled(removed));
        EXPECT_EQ(rest->leftovers, listed(leftover.empty() ? "" : "an empty " + leftover,
                                          " remains here, which Wendlow did not create"));
    }
}

} // namespace
} // namespace wendlow
