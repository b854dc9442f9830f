#include "Codex/CodexTrust.h"
#include "CodexHome.h"

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using testing::CodexHome;
using ::testing::ElementsAre;

TEST(CodexHookIdentity, isHashedAsCodexDoes) {
    struct Case {
        CodexHookIdentity identity;
        std::string text;
        std::string hash; ///< of the text, by sha256sum
    };
    const auto legacy = CodexHookIdentity::legacyIdentities("/S", 3);
    ASSERT_EQ(legacy.size(), 3U);
    const std::vector<Case> cases{
        {{"/A/wendlow-hook --harness codex", "Loading Wendlow rules and memory", 3, false, 7500},
         R"([{"additionalContextLimit":7500,"async":false,"command":"/A/wendlow-hook --harness codex","statusMessage":"Loading Wendlow rules and memory","timeout":3,"type":"command"}]})",
         "eed04b931c2d67a1fe617a0cb6ae7b60ac598899f38aabe3ce124ba7b5d07ed1"},
        {{"/Users/Zoë/Wendlow.app/x", {}, 1, true, {}},
         R"([{"async":true,"command":"/Users/Zoë/Wendlow.app/x","timeout":1,"type":"command"}]})",
         "938c2d9981a0711e7e734b51264832db0ffa9d5ca595070ee5f8ee8a81bb3619"},
        {{"C:\\x\t/y", R"(say "hi")", 600, false, {}},
         R"([{"async":false,"command":"C:\\x\t/y","statusMessage":"say \"hi\"","timeout":600,"type":"command"}]})",
         "1992719d5b8352fe5abbb23d0d172ffe4da44f16750429fd29cdbb072e6347f5"},
        {legacy[0],
         R"([{"async":false,"command":"python3 /S/rules-hook.py","statusMessage":"Loading Wendlow rules","timeout":3,"type":"command"}]})",
         "a0e95849b817d8bae2cf44982eef54a62dde1c8b7654a79882d0804f9cd9efd3"},
        {legacy[1],
         R"([{"async":false,"command":"python3 /S/prime-hook.py","statusMessage":"Loading Wendlow memory","timeout":3,"type":"command"}]})",
         "e082e40fcea05bbf5833563eafcc0d78e689b770e00c4e3794868ddf30c8aee2"},
        {legacy[2],
         R"([{"async":false,"command":"python3 /S/wendlow-hook.py","statusMessage":"Loading Wendlow rules and memory","timeout":3,"type":"command"}]})",
         "2237b749dc0f1eccd7df82c43597a2464ee9134121e051efa8636158a86933fa"},
    };
    for (const auto& [identity, text, hash] : cases) {
        EXPECT_EQ(identity.canonicalJSON(),
                  R"({"event_name":"user_prompt_submit","hooks":)" + text);
        EXPECT_EQ(identity.trustedHash(), "sha256:" + hash);
    }
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
                                 false,
                                 {}}));
    EXPECT_EQ(sites[1].group, 1);
    EXPECT_EQ(sites[1].tier, HookOwnership::current);
    EXPECT_EQ(sites[1].timeout, std::nullopt);
    EXPECT_EQ(sites[1].identity(), std::nullopt);
    EXPECT_EQ(sites[1].statusMessage, std::nullopt);
    EXPECT_EQ(sites[1].additionalContextLimit, -12);
    EXPECT_TRUE(sites[1].isAsync);
    EXPECT_EQ(CodexHook::onPrompt(sites), &sites[1]);
}

TEST(CodexHook, takesATimeoutAsCodexDoes) {
    const CodexHome home;
    const CodexHook hook(home.paths());
    const std::pair<const char*, std::optional<std::int64_t>> cases[] = {
        {"", 600},
        {R"(,"timeout":0)", 1},
        {R"(,"timeout":7)", 7},
        {R"(,"timeout":3.0)", {}},
        {R"(,"timeout":-1)", {}},
        {R"(,"timeout":null)", {}}};
    for (const auto& [stated, timeout] : cases) {
        const std::string bytes =
            home.filled(R"({"hooks":{"UserPromptSubmit":[{"matcher":"m","hooks":[{"command":)"
                        R"("@home/Wendlow.app/Contents/MacOS/wendlow-hook --harness codex")" +
                        std::string(stated) + "}]}]}}");
        const auto document = *hook.read(bytes);
        EXPECT_EQ(hook.sites(document.root(), bytes).at(0).timeout, timeout) << stated;
        EXPECT_EQ(CodexHook::holdsBrokenTimeout(document.root(), bytes), !timeout) << stated;
    }
}

TEST(CodexTrustSlot, isReadFromTheBack) {
    const std::pair<const char*, std::optional<CodexTrustSlot>> cases[] = {
        {"/h:user_prompt_submit:1:20", {{{}, "/h", "user_prompt_submit", 1, 20}}},
        {"/a:b:/h:pre_tool_use:-1:+2", {{{}, "/a:b:/h", "pre_tool_use", -1, 2}}},
        {"/h::0:0", {{{}, "/h", "", 0, 0}}},
        {":user_prompt_submit:0:0", {}},
        {"user_prompt_submit:0:0", {}},
        {"/h:user_prompt_submit:one:0", {}},
        {"/h:user_prompt_submit:0:", {}},
        {"/h:user_prompt_submit:0:1 ", {}},
        {"/h:user_prompt_submit:0:+-1", {}},
        {"/h:user_prompt_submit:0:99999999999999999999", {}},
        {"", {}},
    };
    for (auto [key, slot] : cases) {
        if (slot)
            slot->key = key;
        EXPECT_EQ(CodexTrustSlot::parse(key), slot) << key;
    }
    EXPECT_EQ(CodexTrustSlot::parse(CodexTrustSlot::at("/a:b", 3, 4).key),
              CodexTrustSlot::at("/a:b", 3, 4));
}

TEST(CodexTrust, readsOnlySlotsOfThePrompt) {
    const auto document = *TOMLText::scan(R"(
hooks.state."/root:user_prompt_submit:0:0".trusted_hash = "no table"
[hooks.state."/a:user_prompt_submit:0:1"]
trusted_hash = 'x'
[hooks.state."/a:pre_tool_use:0:1"]
[hooks.state."/a:user_prompt_submit:0:1".below]
[hooks.other."/a:user_prompt_submit:0:1"]
[hooks.state."/a:user_prompt_submit:x:1"]
[[hooks.state."/b:user_prompt_submit:0:1"]]
trusted_hash = "in an array"
[hooks.state.'/c:user_prompt_submit:5:0']
trusted_hash = 7
enabled = false
)");
    std::vector<std::string> keys;
    for (const CodexTrustSlot& slot : CodexTrust::slots(document))
        keys.push_back(slot.key);
    EXPECT_THAT(keys, ElementsAre("/a:user_prompt_submit:0:1", "/c:user_prompt_submit:5:0"));
    EXPECT_EQ(CodexTrust::recordedHash(keys[0], document), "x");
    EXPECT_EQ(CodexTrust::recordedHash(keys[1], document), std::nullopt);
    EXPECT_EQ(CodexTrust::recordedHash("/b:user_prompt_submit:0:1", document), std::nullopt);
    EXPECT_FALSE(CodexTrust::isSwitchedOff(keys[0], document));
    EXPECT_TRUE(CodexTrust::isSwitchedOff(keys[1], document));
}

TEST(CodexConnector, neverWritesAConfigurationThatDoesNotReadBack) {
    // A folder's name may be any bytes, and the slot's key would carry them into the file.
    const CodexHome home;
    const std::filesystem::path odd = home.path("odd\xFF");
    const CodexPaths paths = CodexPaths::under(odd, home.path("Wendlow.app"));
    testing::put(paths.serversFile, "a = 1\n");
    const auto outcome = CodexConnector(paths).install();
    EXPECT_EQ(outcome.result, ConnectorOutcome::Result::refused);
    EXPECT_EQ(outcome.observations,
              (Observations{{paths.serversFile.string(), "the planned edit did not read back as "
                                                         "TOML, so nothing was written"}}));
    EXPECT_EQ(testing::namesIn(paths.configDirectory), std::vector<std::string>{"config.toml"});
}

} // namespace
} // namespace wendlow
