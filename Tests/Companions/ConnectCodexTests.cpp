// Codex through wendlow-connect: what is recorded in its files, looked at from the outside, and a
// disk that fails at any call between the two files.

#include "FaultSweep.h"
#include "RunProgram.h"
#include "TemporaryHome.h"

#include <map>

#include <boost/json.hpp>
#include <gmock/gmock.h>

namespace wendlow {
namespace {

using namespace testing;
using ::testing::HasSubstr;
namespace fs = std::filesystem;
namespace json = boost::json;

const std::string theirs = R"({"hooks":[{"type":"command","command":"lint"}]})";

class ConnectCodex : public ::testing::Test {
protected:
    ConnectCodex() {
        put(bundle / "Contents/MacOS/wendlow-hook", "");
        put(bundle / "Contents/MacOS/wendlow-mcp", "");
        fs::create_directories(hooks.parent_path());
    }
    std::vector<std::string> words(const std::string& verb) const {
        return {"--home", root, "--bundle", bundle, verb, "codex", "--json"};
    }
    json::object connect(const std::string& verb) const {
        const auto run = runProgram(WENDLOW_CONNECT_PROGRAM, words(verb));
        return json::parse(run.out).at(0).as_object();
    }

    TemporaryHome home;
    const fs::path root = home / "person é";
    const fs::path bundle = home / "Wendlow.app";
    const fs::path hooks = root / ".codex/hooks.json";
    const fs::path config = root / ".codex/config.toml";
};

/// The text that Codex hashes for one entry, put together from the file alone.
std::string hashedText(const json::object& group, const json::object& entry) {
    std::map<std::string, json::value> fields{{"async", false}};
    for (const auto& [key, value] : entry)
        fields[std::string(key)] = value;
    std::string text;
    for (const auto& [key, value] : fields)
        text += (text.empty() ? "" : ",") + json::serialize(json::value(key)) + ":" +
                json::serialize(value);
    text = R"({"event_name":"user_prompt_submit","hooks":[{)" + text + "}]";
    if (const auto* matcher = group.if_contains("matcher"))
        text += ",\"matcher\":" + json::serialize(*matcher);
    return text + "}";
}

TEST_F(ConnectCodex, recordsTheHashOfWhatIsInTheFile) {
    const std::string old = R"({"command":"/B/Wendlow.app/Contents/MacOS/wendlow-hook --harness )"
                            R"(codex"})";
    struct Case {
        std::optional<std::string> hooks;
        std::string position;
    };
    const Case cases[] = {
        {{}, "0:0"},
        {R"({"hooks":{"UserPromptSubmit":[)" + theirs + "," + theirs + "]}}", "2:0"},
        {R"({"hooks":{"UserPromptSubmit":[7,{"matcher":"é|\"x\"/","hooks":[{},)" + old + "]}]}}",
         "1:1"},
        {R"({"hooks":{"Stop":[{"hooks":[)" + old + "]}]}}", "0:0"},
    };
    for (const auto& [before, position] : cases) {
        SCOPED_TRACE(position);
        fs::remove_all(root);
        fs::create_directories(hooks.parent_path());
        // The record names the file where it really lies.
        fs::create_symlink(home / "real.json", hooks);
        fs::remove(home / "real.json");
        if (before)
            put(home / "real.json", *before);
        EXPECT_EQ(connect("install").at("result"), "changed");

        const auto group = std::stoul(position.substr(0, 1));
        const auto index = std::stoul(position.substr(2));
        const json::value file = json::parse(*get(hooks));
        const auto& entries = file.at("hooks").at("UserPromptSubmit").at(group);
        const auto& entry = entries.at("hooks").at(index).as_object();
        EXPECT_EQ(entry.at("command").as_string(),
                  (bundle / "Contents/MacOS/wendlow-hook").string() + " --harness codex");
        const auto sum =
            runProgram("/usr/bin/sha256sum", {}, {}, hashedText(entries.as_object(), entry));
        ASSERT_EQ(sum.status, 0);
        EXPECT_THAT(*get(config),
                    HasSubstr("\n[hooks.state.\"" + (home / "real.json").string() +
                              ":user_prompt_submit:" + position +
                              "\"]\ntrusted_hash = \"sha256:" + sum.out.substr(0, 64) + "\"\n"));
    }
}

TEST_F(ConnectCodex, connectsDisconnectsAndReconnects) {
    const std::string hooksBefore = R"({"hooks":{"UserPromptSubmit":[)" + theirs + "]}}";
    const std::string configBefore = "# mine\r\nmodel = \"x\"";
    put(hooks, hooksBefore);
    put(config, configBefore);
    std::optional<std::string> hooksThen, configThen;
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(connect("install").at("result"), "changed");
        EXPECT_EQ(connect("scan").at("state"), "connected");
        EXPECT_EQ(connect("install").at("result"), "unchanged");
        EXPECT_TRUE(round == 0 || (get(hooks) == hooksThen && get(config) == configThen));
        hooksThen = get(hooks);
        configThen = get(config);
        EXPECT_EQ(connect("remove").at("result"), "changed");
        EXPECT_EQ(get(hooks), hooksBefore);
        EXPECT_EQ(get(config), configBefore);
    }
}

Verdict verdictOf(const ProgramRun& run) {
    const json::value outcome = json::parse(run.out).at(0);
    const auto& result = outcome.at("result").as_string();
    Verdict verdict{.kind = result == "changed"   ? Verdict::Kind::committed
                            : result == "refused" ? Verdict::Kind::refused
                                                  : Verdict::Kind::nothingDone,
                    .observations = {}};
    EXPECT_EQ(run.status, verdict.kind == Verdict::Kind::refused ? 1 : 0);
    for (const json::value& said : outcome.at("observations").as_array())
        verdict.observations.push_back({json::value_to<std::string>(said.at("subject")),
                                        json::value_to<std::string>(said.at("text"))});
    return verdict;
}

/// Both files change together, whichever call fails: there is never a hook without its trust.
TEST_F(ConnectCodex, changesBothFilesOrNoneOnAFailingDisk) {
    const std::string before = R"({"hooks":{"UserPromptSubmit":[)" + theirs + "]}}";
    const auto prepare = [&] {
        put(hooks, before);
        put(config, "model = \"x\"\n");
    };
    prepare();
    connect("install");
    const FaultSweep install{
        .program = WENDLOW_CONNECT_PROGRAM,
        .arguments = words("install"),
        .root = root,
        .prepare = prepare,
        .files = {{hooks, before, get(hooks)}, {config, "model = \"x\"\n", get(config)}},
        .verdict = verdictOf};
    int committed = 0, refused = 0;
    for (const auto* error : {"ENOSPC", "EIO"})
        install.failEachCall(error, [&](const Verdict& verdict) {
            ++(verdict.kind == Verdict::Kind::committed ? committed : refused);
        });
    EXPECT_GT(committed, 20);
    EXPECT_GT(refused, 60);
    install.failFromEachCall("ENOSPC");
    install.killAtEachCall("after");

    // And out again, from a group of the person's: a receipt that cannot be read then changes
    // nothing about what is right.
    const auto prepareBoth = [&] {
        put(hooks, R"({"hooks":{"UserPromptSubmit":[{"hooks":[{"command":"lint"},{"command":")" +
                       (bundle / "Contents/MacOS/wendlow-hook").string() +
                       R"( --harness codex"}]}]}})");
        put(config, "model = \"x\"\n");
        connect("install");
    };
    fs::remove_all(root);
    prepareBoth();
    const FaultSweep remove{
        .program = WENDLOW_CONNECT_PROGRAM,
        .arguments = words("remove"),
        .root = root,
        .prepare = prepareBoth,
        .files = {{hooks, get(hooks),
                   R"({"hooks":{"UserPromptSubmit":[{"hooks":[{"command":"lint"}]}]}})"},
                  {config, get(config), "model = \"x\"\n"}},
        .verdict = verdictOf};
    remove.failEachCall("EIO");
}

TEST_F(ConnectCodex, looksPastAnUnreadableSession) {
    const std::string session = R"({"type":"session_meta","payload":{"cwd":"/p"}})"
                                "\n";
    put(root / ".codex/sessions/2026/one.jsonl", session);
    put(root / ".codex/sessions/2026/two.jsonl", session);
    const FaultSweep sweep{.program = WENDLOW_CONNECT_PROGRAM,
                           .arguments = words("projects"),
                           .root = root,
                           .prepare =
                               [&] {
                                   put(root / ".codex/sessions/2026/one.jsonl", session);
                                   put(root / ".codex/sessions/2026/two.jsonl", session);
                               },
                           .files = {},
                           .verdict = {}};
    int unreadable = 0;
    sweep.forEachCall(
        {.error = "EACCES"},
        [&](const FaultyRun& run, const std::string&) {
            ++unreadable;
            const auto projects = json::parse(run.out).at(0).at("projects").as_array();
            ASSERT_EQ(projects.size(), 1U);
            EXPECT_EQ(projects[0].at("path"), "/p");
        },
        [](const std::string& call) { return call.ends_with(".jsonl"); });
    EXPECT_GE(unreadable, 2);
}

} // namespace
} // namespace wendlow
