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
        {{"/A/wendlow-hook --harness codex",
          "Loading Wendlow rules and memory",
          3,
          {},
          false,
          7500},
         R"([{"additionalContextLimit":7500,"async":false,"command":"/A/wendlow-hook --harness codex","statusMessage":"Loading Wendlow rules and memory","timeout":3,"type":"command"}]})",
         "eed04b931c2d67a1fe617a0cb6ae7b60ac598899f38aabe3ce124ba7b5d07ed1"},
        {{"/Users/Zoë/Wendlow.app/x", {}, -1, R"(a|"b")", true, {}},
         R"([{"async":true,"command":"/Users/Zoë/Wendlow.app/x","timeout":-1,"type":"command"}],"matcher":"a|\"b\""})",
         "ef655d28b6868c156aee547120f6781e4e301cb7fdaf670ecc6f5dfa048de42e"},
        {{"C:\\x\t/y", R"(say "hi")", 600, {}, false, {}},
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

TEST(CodexTrust, saysThatAnotherHashIsRecorded) {
    const CodexHome home;
    const CodexTrust trust(home.paths(), home.hooksFile());
    CodexHookSite site;
    site.command = "/x";
    site.timeout = 9;
    site.group = 2;
    const std::string config =
        home.filled("[hooks.state.\"@slot:2:0\"]\ntrusted_hash = \"sha256:0\"\n");
    const auto document = *TOMLText::scan(config);
    EXPECT_EQ(trust.find(&document, &site),
              BlockFinding{BlockFinding::Drifted{
                  {"the trusted hash recorded here is sha256:0 and the Wendlow hook entry in " +
                   home.hooksFile() + " hashes to " + site.identity()->trustedHash()}}});
    EXPECT_EQ(trust.find(nullptr, &site), BlockFinding{BlockFinding::FileAbsent{}});
    EXPECT_EQ(trust.find(&document, nullptr), BlockFinding{BlockFinding::Absent{}});
}

TEST(CodexTrust, judgesSlotsSoThatNobodyElsesTrustIsLost) {
    const CodexHome home;
    const CodexTrust trust(home.paths(), home.hooksFile());
    // Group 0 is empty, group 1 is live; k is one of our hashes, u is anybody's.
    const std::string config = home.filled(R"(
[hooks.state."@slot:0:0"]
trusted_hash = "k"
[hooks.state."@slot:0:1"]
trusted_hash = "u"
[hooks.state."@slot:0:2"]
enabled = false
[hooks.state."@slot:1:0"]
trusted_hash = "k"
[hooks.state."@slot:1:1"]
trusted_hash = "u"
[hooks.state."/elsewhere:user_prompt_submit:0:0"]
trusted_hash = "k"
)");
    const auto document = *TOMLText::scan(config);
    const auto judged = [&](const std::optional<std::string>& occupied, const TrustSlots& receipt) {
        TrustSlots keys;
        for (const std::string& key : receipt)
            keys.insert(home.filled(key));
        auto judgement = trust.judge(
            document, occupied ? std::optional(home.filled(*occupied)) : std::nullopt, keys, {"k"},
            [](std::ptrdiff_t group, std::ptrdiff_t) { return group == 1; });
        for (auto* list : {&judgement.clear, &judgement.report})
            for (std::string& key : *list)
                key = testing::replaced(key, {{home.filled("@slot"), "@slot"}});
        return judgement;
    };
    const std::string elsewhere = "/elsewhere:user_prompt_submit:0:0";
    EXPECT_EQ(judged({}, {}), (CodexTrust::Judgement{{"@slot:0:0"}, {"@slot:1:0", elsewhere}}));
    EXPECT_EQ(judged("@slot:0:0", {"@slot:0:0"}),
              (CodexTrust::Judgement{{}, {"@slot:1:0", elsewhere}}));
    // What we wrote goes, but where it holds by now what a person trusts.
    EXPECT_EQ(judged({}, {"@slot:0:0", "@slot:0:1", "@slot:0:2", "@slot:1:0", "@slot:1:1",
                          "@slot:9:9", elsewhere}),
              (CodexTrust::Judgement{
                  {"@slot:0:0", "@slot:0:1", "@slot:0:2", "@slot:1:0", elsewhere}, {}}));
}

TEST(CodexTrust, keepsWhatElseATableHolds) {
    const std::string before = "[hooks.state.k]\nenabled = true";
    const auto installed = CodexTrust::installed(before, *TOMLText::scan(before), "k", "h");
    ASSERT_TRUE(installed);
    EXPECT_EQ(installed->bytes, before + "\ntrusted_hash = \"h\"\n");
    EXPECT_EQ(installed->created, std::set{Created::codexConfigTrailingNewline});
    EXPECT_EQ(CodexTrust::removed(*installed->bytes, {"x", "k", "k"})->bytes, before + "\n");
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
