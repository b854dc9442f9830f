// wendlow-connect on a disk that fails, fills up, or dies under it, at every call that it makes.

#include "FaultSweep.h"
#include "TemporaryHome.h"

#include <boost/json.hpp>

namespace wendlow {
namespace {

using namespace testing;
namespace fs = std::filesystem;
namespace json = boost::json;

/// The one tool of an answer in JSON.
Verdict verdictOf(const ProgramRun& run) {
    const json::value tool = json::parse(run.out).at(0);
    const auto& result = tool.at("result").as_string();
    EXPECT_EQ(run.status, result == "refused" ? 1 : 0);
    Verdict verdict{.kind = result == "changed"   ? Verdict::Kind::committed
                            : result == "refused" ? Verdict::Kind::refused
                                                  : Verdict::Kind::nothingDone,
                    .observations = {}};
    for (const json::value& said : tool.at("observations").as_array())
        verdict.observations.push_back({json::value_to<std::string>(said.at("subject")),
                                        json::value_to<std::string>(said.at("text"))});
    return verdict;
}

/// A person's home, an application beside it, and the program at work on one tool.
class FaultyHome : public ::testing::Test {
protected:
    FaultyHome() {
        for (const auto* name : {"wendlow-hook", "wendlow-mcp"})
            put(home / "Wendlow.app/Contents/MacOS" / name, "", 0755);
    }
    FaultSweep sweep(const char* verb, const char* tool, std::function<void()> prepare,
                     std::vector<SweptFile> files) const {
        return {
            .program = WENDLOW_CONNECT_PROGRAM,
            .arguments = {"--home", root, "--bundle", home / "Wendlow.app", verb, tool, "--json"},
            .root = root,
            .prepare = std::move(prepare),
            .files = std::move(files),
            .verdict = verdictOf};
    }
    void run(const char* verb, const char* tool) const {
        const auto healthy = sweep(verb, tool, {}, {});
        runProgram(healthy.program, healthy.arguments);
    }

    const TemporaryHome home;
    const fs::path root = home / "person";
};

/// A person's two files, the settings linked into a dotfiles folder; and what each verb makes of
/// them when nothing goes wrong.
class ConnectFaults : public FaultyHome, public ::testing::WithParamInterface<const char*> {
protected:
    ConnectFaults() {
        prepare();
        run("install", "claude-code");
        installedSettings = get(settings);
        installedServers = get(servers);
        record = get(receipt);
        fs::remove(receipt);
        run("remove", "claude-code");
        forgetfulSettings = get(settings);
        forgetfulServers = get(servers);
    }

    void prepare() const {
        fs::remove_all(root);
        put(settings, oldSettings, 0600);
        put(servers, oldServers, 0640);
        fs::create_directory(root / ".claude");
        fs::create_symlink("../dotfiles/settings.json", link);
    }
    FaultSweep install() const {
        return sweep("install", "claude-code", [this] { prepare(); },
                     {{settings, oldSettings, installedSettings, link},
                      {servers, oldServers, installedServers}});
    }
    FaultSweep remove() const {
        const auto prepareInstalled = [this] {
            prepare();
            put(settings, *installedSettings, 0600);
            put(servers, *installedServers, 0640);
            put(receipt, *record, 0600);
        };
        // Without its record the verb leaves the containers: they may be the person's.
        return sweep("remove", "claude-code", prepareInstalled,
                     {{settings, installedSettings, oldSettings, link, forgetfulSettings},
                      {servers, installedServers, oldServers, servers, forgetfulServers}});
    }
    /// What holds after every run, whatever befell it.
    void expectNothingElseLost() const {
        EXPECT_TRUE(fs::is_symlink(link));
        EXPECT_EQ(modeOf(settings) & ~0600U, 0U);
        EXPECT_EQ(modeOf(servers) & ~0640U, 0U);
        const auto recorded = get(receipt);
        EXPECT_TRUE(!recorded || recorded == record) << *recorded;
    }
    bool saysNoRecord(const Verdict& verdict) const {
        return std::ranges::any_of(verdict.observations, [&](const Observation& observation) {
            return observation.subject == receipt &&
                   observation.text.starts_with(
                       "the record of what was created was not written here — ");
        });
    }

    const fs::path settings = root / "dotfiles/settings.json";
    const fs::path link = root / ".claude/settings.json";
    const fs::path servers = root / ".claude.json";
    const fs::path receipt =
        root / "Library/Application Support/Wendlow/Connectors/claude-code.json";
    const std::string oldSettings = "{\n  \"model\": \"opus\"\n}\n";
    const std::string oldServers = "{\"numStartups\":7}\n";
    std::optional<std::string> installedSettings, installedServers, record;
    std::optional<std::string> forgetfulSettings, forgetfulServers;
};

TEST_P(ConnectFaults, InstallTellsTheTruthWhicheverCallFails) {
    ASSERT_NE(installedSettings, oldSettings);
    install().failEachCall(GetParam(), [this](const Verdict& said) {
        expectNothingElseLost();
        const bool committed = said.kind == Verdict::Kind::committed;
        if (!committed || !saysNoRecord(said)) {
            EXPECT_EQ(get(receipt), committed ? record : std::nullopt);
        }
    });
}

TEST_P(ConnectFaults, RemoveTellsTheTruthWhicheverCallFails) {
    ASSERT_NE(forgetfulSettings, oldSettings);
    remove().failEachCall(GetParam(), [this](const Verdict& said) {
        expectNothingElseLost();
        if (said.kind != Verdict::Kind::committed) {
            EXPECT_EQ(get(receipt), record);
        }
    });
}

TEST_P(ConnectFaults, BothTellTheTruthOnADiskThatStaysBroken) {
    for (const auto& sweep : {install(), remove()})
        sweep.failFromEachCall(GetParam(), [this](const auto&) { expectNothingElseLost(); });
}

INSTANTIATE_TEST_SUITE_P(With, ConnectFaults, ::testing::Values("ENOSPC", "EIO", "EACCES"));

class ConnectKills : public ConnectFaults {};

TEST_P(ConnectKills, LeaveAWayBackAndTheNextVerbSweeps) {
    for (const auto& sweep : {install(), remove()})
        sweep.killAtEachCall(GetParam(), [&] {
            expectNothingElseLost();
            sweep.runAgain({});
            expectOldOrNew(sweep.files);
            EXPECT_FALSE(hasTemporary(root));
        });
}

INSTANTIATE_TEST_SUITE_P(Happening, ConnectKills, ::testing::Values("before", "after"));

class ConnectOpenCodeFaults : public FaultyHome {
protected:
    void fill() const {
        put(config, "{ // mine\n}\n");
        fs::create_directory(config.parent_path() / "themes");
    }
    /// A plugins folder that a verb made is gone when that verb made nothing of it.
    void expectNoEmptyFolder(const Verdict& verdict) const {
        const bool refused = verdict.kind == Verdict::Kind::refused;
        EXPECT_FALSE(refused && fs::exists(plugins) && fs::is_empty(plugins));
    }

    const fs::path config = root / ".config/opencode/opencode.jsonc";
    const fs::path plugins = root / ".config/opencode/plugins";
    const fs::path plugin = plugins / "wendlow.js";
    const fs::path receipt = root / "Library/Application Support/Wendlow/Connectors/opencode.json";
};

TEST_F(ConnectOpenCodeFaults, InstallChangesBothFilesOrNone) {
    fill();
    run("install", "opencode");
    const auto install =
        sweep("install", "opencode", [this] { fill(); },
              {{config, "{ // mine\n}\n", get(config)}, {plugin, std::nullopt, get(plugin)}});
    int committed = 0, refused = 0;
    for (const auto* error : {"ENOSPC", "EIO", "EACCES"})
        install.failEachCall(error, [&](const Verdict& verdict) {
            ++(verdict.kind == Verdict::Kind::committed ? committed : refused);
            expectNoEmptyFolder(verdict);
        });
    EXPECT_GT(committed, 20);
    EXPECT_GT(refused, 60);
    install.failFromEachCall("ENOSPC",
                             [&](const Verdict& verdict) { expectNoEmptyFolder(verdict); });
    install.failFromEachCall("EIO");
    for (const auto* when : {"before", "after"})
        install.killAtEachCall(when);
}

/// Without its record the verb leaves the containers: they may be the person's.
TEST_F(ConnectOpenCodeFaults, RemoveChangesBothFilesOrNone) {
    fill();
    run("install", "opencode");
    const auto installed = get(config), source = get(plugin), record = get(receipt);
    const auto prepare = [&] {
        fill();
        put(config, *installed);
        put(plugin, *source);
        put(receipt, *record);
    };
    const auto remove =
        sweep("remove", "opencode", prepare,
              {{config, installed, "{ // mine\n}\n", config, "{ // mine\n  \"mcp\": {}\n}\n"},
               {plugin, source, std::nullopt}});
    for (const auto* error : {"ENOSPC", "EIO", "EACCES"})
        remove.failEachCall(error);
    remove.failFromEachCall("EIO");
    for (const auto* when : {"before", "after"})
        remove.killAtEachCall(when);
}

/// Cursor's two files change together, whichever call fails; what is in them is the person's in
/// part, so that no receipt is needed to take ours out again.
TEST_F(FaultyHome, CursorChangesBothFilesOrNone) {
    const fs::path hooks = root / ".cursor/hooks.json", servers = root / ".cursor/mcp.json";
    const std::string oldHooks =
        R"({"version":1,"hooks":{"beforeSubmitPrompt":[{"command":"a"}],"preToolUse":[7]}})";
    const std::string oldServers = R"({"mcpServers":{"x":{}}})";
    const auto prepare = [&] {
        put(hooks, oldHooks);
        put(servers, oldServers);
    };
    prepare();
    run("install", "cursor");
    const auto newHooks = get(hooks), newServers = get(servers);
    int committed = 0, refused = 0;
    const auto count = [&](const Verdict& verdict) {
        ++(verdict.kind == Verdict::Kind::committed ? committed : refused);
    };
    const auto install = sweep("install", "cursor", prepare,
                               {{hooks, oldHooks, newHooks}, {servers, oldServers, newServers}});
    for (const auto* error : {"ENOSPC", "EIO"})
        install.failEachCall(error, count);
    install.failFromEachCall("ENOSPC");
    install.killAtEachCall("after");
    const auto prepareInstalled = [&] {
        put(hooks, *newHooks);
        put(servers, *newServers);
    };
    sweep("remove", "cursor", prepareInstalled,
          {{hooks, newHooks, oldHooks}, {servers, newServers, oldServers}})
        .failEachCall("EIO", count);
    EXPECT_GT(committed, 30);
    EXPECT_GT(refused, 90);
}

class ConnectCodexFaults : public FaultyHome {
protected:
    void fill(const std::string& groups) const {
        put(hooks, R"({"hooks":{"UserPromptSubmit":[)" + groups + "]}}");
        put(config, oldConfig);
    }

    const fs::path hooks = root / ".codex/hooks.json";
    const fs::path config = root / ".codex/config.toml";
    const std::string oldConfig = "model = \"x\"\n";
};

/// Both files change together, whichever call fails: there is never a hook without its trust.
TEST_F(ConnectCodexFaults, InstallChangesBothFilesOrNone) {
    const auto prepare = [this] { fill(R"({"hooks":[{"command":"lint"}]})"); };
    prepare();
    const auto before = get(hooks);
    run("install", "codex");
    const auto install = sweep("install", "codex", prepare,
                               {{hooks, before, get(hooks)}, {config, oldConfig, get(config)}});
    int committed = 0, refused = 0;
    for (const auto* error : {"ENOSPC", "EIO"})
        install.failEachCall(error, [&](const Verdict& verdict) {
            ++(verdict.kind == Verdict::Kind::committed ? committed : refused);
        });
    EXPECT_GT(committed, 20);
    EXPECT_GT(refused, 60);
    install.failFromEachCall("ENOSPC");
    install.killAtEachCall("after");
}

/// From a group of the person's: a receipt that cannot be read then changes nothing about what is
/// right.
TEST_F(ConnectCodexFaults, RemoveChangesBothFilesOrNone) {
    const std::string lint = R"({"hooks":[{"command":"lint"})";
    fill(lint + "]}");
    const auto after = get(hooks);
    fill(lint + R"(,{"command":")" + (home / "Wendlow.app/Contents/MacOS/wendlow-hook").string() +
         R"( --harness codex"}]})");
    run("install", "codex");
    const auto installed = home / "installed";
    fs::copy(root, installed, fs::copy_options::recursive);
    const auto prepare = [&] { fs::copy(installed, root, fs::copy_options::recursive); };
    sweep("remove", "codex", prepare,
          {{hooks, get(hooks), after}, {config, get(config), oldConfig}})
        .failEachCall("EIO");
}

TEST_F(ConnectCodexFaults, ProjectsLookPastAnUnreadableSession) {
    const auto prepare = [this] {
        for (const auto* name : {"one.jsonl", "two.jsonl"})
            put(root / ".codex/sessions/2026" / name,
                "{\"type\":\"session_meta\",\"payload\":{\"cwd\":\"/p\"}}\n");
    };
    int unreadable = 0;
    sweep("projects", "codex", prepare, {})
        .forEachCall(
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

/// The file that Claude's desktop app owns, whichever call fails on the way to clearing it.
TEST_F(FaultyHome, ConvergeTellsTheTruthOfTheDesktopAppsFile) {
    const fs::path config = root / "Library/Application Support/Claude/claude_desktop_config.json";
    const std::string before =
        R"({"a":1,"mcpServers":{"w":{"command":"/Wendlow.app/Contents/MacOS/wendlow-mcp"}}})";
    auto converge = sweep("converge", "--claude-running", [&] { put(config, before, 0600); },
                          {{config, before, R"({"a":1,"mcpServers":{}})"}});
    converge.arguments.emplace(converge.arguments.end() - 1, "no");
    int committed = 0, refused = 0;
    const auto check = [&](const Verdict& verdict) {
        ++(verdict.kind == Verdict::Kind::committed ? committed : refused);
        EXPECT_EQ(modeOf(config), mode_t{0600});
    };
    for (const auto* error : {"ENOSPC", "EIO", "EACCES"})
        converge.failEachCall(error, check);
    EXPECT_GT(committed, 10);
    EXPECT_GT(refused, 30);
    converge.failFromEachCall("ENOSPC", check);
    converge.failFromEachCall("EIO", check);
    converge.killAtEachCall("before");
    converge.killAtEachCall("after");
}

} // namespace
} // namespace wendlow
