// wendlow-connect as a script starts it: whole outputs, exit statuses, real files.

#include "Files.h"
#include "RunProgram.h"
#include "TemporaryHome.h"

#include <regex>

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using testing::get;
using ::testing::HasSubstr;
using testing::put;
namespace fs = std::filesystem;

constexpr const char* usage = "usage: wendlow-connect [--home DIR] [--bundle DIR] "
                              "[--applications DIR] VERB [TOOL]... [--json]\n";

class Connect : public ::testing::Test {
protected:
    Connect() {
        put(bundle() / "Contents/MacOS/wendlow-hook", "", 0755);
        put(bundle() / "Contents/MacOS/wendlow-mcp", "");
    }

    /// The program at `program`, in the home's own folder, with no home of its own in sight.
    testing::ProgramRun start(const fs::path& program, const std::string& arguments) const {
        const std::string line =
            "cd '" + m_home.path().string() + "' && exec '" + program.string() + "' " + arguments;
        return testing::runProgram("/bin/sh", {"-c", line}, {{"HOME", "/nonexistent"}});
    }
    /// With this test's home and application, whose path is written as HOME in what comes back.
    testing::ProgramRun connect(const std::string& arguments) const {
        testing::ProgramRun run =
            start(WENDLOW_CONNECT_PROGRAM, "--home . --bundle Wendlow.app " + arguments);
        run.out = std::regex_replace(run.out, std::regex(m_home.path().string()), "HOME");
        run.out = std::regex_replace(run.out, std::regex("backup-[0-9]{8}-[0-9]{6}"), "backup");
        return run;
    }

    /// The same with the answer's lines drawn together: what stands between them is told elsewhere.
    std::string connectJSON(const std::string& arguments) const {
        return std::regex_replace(connect(arguments + " --json").out, std::regex("\n *"), "");
    }

    fs::path bundle() const { return m_home / "Wendlow.app"; }
    fs::path file(const std::string& name) const { return m_home / name; }
    testing::TemporaryHome m_home;
};

TEST_F(Connect, tellsPeopleInLines) {
    EXPECT_EQ(connect("scan claude-code").out, "Claude Code: notFound\n"
                                               "  HOME/.claude: there is no directory here\n"
                                               "  HOME/.claude.json: there is no file here\n");
    const auto refused = connect("install claude-code");
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.out, "Claude Code: refused\n  HOME/.claude: there is no Claude Code "
                           "configuration here, so nothing was written\n");
    EXPECT_EQ(connect("converge claude-code").out, "nothing needed repair\n");
    EXPECT_EQ(connect("converge --claude-running no").out,
              "Claude Chat retirement: unchanged\n  HOME/Library/Application Support/Claude/"
              "claude_desktop_config.json: there is no file here\n");
    EXPECT_EQ(connect("stale claude-code").out,
              "Claude Code\n  there is no stale wiring of this installation\n");
    EXPECT_EQ(connect("memory claude-code").out, "Claude Code\n  no memory files found\n");
    EXPECT_EQ(connect("projects claude-code").out,
              "Claude Code\n  HOME/.claude/projects: no session store found\n");
}

TEST_F(Connect, saysThatItLooksInTheUsualPlaceOnly) {
    const auto scan = [&](const std::string& home, const std::string& place) {
        const auto run = testing::runProgram(
            WENDLOW_CONNECT_PROGRAM, {"--bundle", bundle(), "--home", home, "scan", "codex"},
            {{"HOME", m_home.path().string()}, {"CODEX_HOME", place}});
        return run.out.contains(place + ": CODEX_HOME keeps Codex here, and Wendlow looks in the "
                                        "usual place only");
    };
    EXPECT_TRUE(scan(m_home.path(), "/elsewhere"));
    EXPECT_FALSE(scan(m_home.path(), file(".codex"))); // which is the usual one
    EXPECT_FALSE(scan("/somebody", "/elsewhere"));     // of whose environment nothing is known
}

TEST_F(Connect, printsNothingThatATerminalWouldObey) {
    put(file(".codex/sessions/one.jsonl"),
        R"({"type":"session_meta","payload":{"cwd":"/a\u001b[2J\u0007\u009b\ré"}})"
        "\n");
    EXPECT_THAT(connect("projects codex").out,
                ::testing::StartsWith("Codex\n  /a\\x1b[2J\\x07\\xc2\\x9b\\x0dé: last active"));
}

TEST_F(Connect, connectsAndDisconnects) {
    const std::string settings = "{\r\n  \"model\": \"opus\"\r\n}";
    const std::string servers = R"({"numStartups":7,"mcpServers":{"files":{}}})";
    put(file(".claude/settings.json"), settings);
    put(file(".claude.json"), servers);

    EXPECT_EQ(connectJSON("install claude-code"),
              R"([{"id": "claude-code","name": "Claude Code","result": "changed","observations": [)"
              R"({"subject": "HOME/.claude/settings.json.wendlow-backup",)"
              R"("text": "a copy of the file was made here first"},)"
              R"({"subject": "HOME/.claude.json.wendlow-backup",)"
              R"("text": "a copy of the file was made here first"},)"
              R"({"subject": "HOME/.claude/settings.json",)"
              R"("text": "the Wendlow entry was written to this file"},)"
              R"({"subject": "HOME/.claude.json",)"
              R"("text": "the Wendlow entry was written to this file"}],)"
              R"("backups": ["HOME/.claude/settings.json.wendlow-backup",)"
              R"("HOME/.claude.json.wendlow-backup"]}])");
    EXPECT_EQ(
        connectJSON("scan claude-code"),
        R"([{"id": "claude-code","name": "Claude Code",)"
        R"("detail": "The Claude Code CLI and Claude Code in the desktop app.",)"
        R"("symbol": "terminal","state": "connected","observations": [)"
        R"({"subject": "HOME/.claude/settings.json","text": "the Wendlow hook entry here runs )"
        R"(HOME/Wendlow.app/Contents/MacOS/wendlow-hook --harness claude-code"},)"
        R"({"subject": "HOME/.claude.json","text": "the Wendlow MCP server entry here runs )"
        R"(HOME/Wendlow.app/Contents/MacOS/wendlow-mcp"}]}])");
    EXPECT_THAT(connect("install").out, HasSubstr("Claude Code: unchanged\n"));

    std::string spelled = get(file(".claude/settings.json")).value();
    spelled.replace(spelled.find("--slot rules"), 12, "--slot=rules");
    put(file(".claude/settings.json"), spelled);
    EXPECT_EQ(connect("stale claude-code --json").out,
              "[\n  {\n    \"id\": \"claude-code\",\n    \"stale\": true\n  }\n]\n");
    const auto repairs = connectJSON("converge --profile dev --claude-running yes");
    EXPECT_THAT(repairs, HasSubstr(R"([{"name": "Claude Code","result": "changed",)"));
    EXPECT_THAT(repairs, HasSubstr(R"({"name": "Claude Chat retirement","result": "unchanged",)"));

    EXPECT_EQ(connect("remove claude-code").status, 0);
    EXPECT_EQ(get(file(".claude/settings.json")), settings);
    EXPECT_EQ(get(file(".claude.json")), servers);
}

TEST_F(Connect, listsProjectsAndMemoryFiles) {
    put(file(".claude/projects/-nowhere-\xFF/memory/MEMORY.md"), "12345");
    put(file(".claude/CLAUDE.md"), "123");
    EXPECT_EQ(
        std::regex_replace(connectJSON("projects claude-code"), std::regex("[0-9]{10,}"), "N"),
        R"([{"id": "claude-code","source": "HOME/.claude/projects","projects": [)"
        R"-({"path": "/nowhere/� (decoded path not verified on disk)","lastActivity": N,)-"
        R"("memory": {"path": "HOME/.claude/projects/-nowhere-�/memory/MEMORY.md",)"
        R"("bytes": 5,"modified": N}}]}])");
    EXPECT_THAT(
        connectJSON("memory claude-code"),
        HasSubstr(R"("files": [{"path": "HOME/.claude/CLAUDE.md","bytes": 3,"modified": )"));
}

TEST_F(Connect, tellsAMaintainerWhereThingsAreAndNothingOfWhatTheySay) {
    const std::string secret = "s3cret";
    put(file(".claude/settings.json"),
        R"({"model":"s3cret","hooks":{"UserPromptSubmit":[{"hooks":[{"type":"command",)"
        R"("command":"/old-s3cret/fenmoor/wendlow/dist-dev/Wendlow.app/Contents/MacOS/)"
        R"(wendlow-hook --harness claude-code"}]}]}})");
    put(file(".claude.json"), R"({"projects":{"/s3cret/project":{}},"s3cret":1,"s3cret":2})", 0600);
    put(file(".claude.json.wendlow-backup-20260101-000000"), secret);
    put(file(".claude/projects/-s3cret/memory/s3cret.md"), secret);
    put(file(".codex/config.toml"), "s3cret = \"s3cret\n");
    put(file("Library/Application Support/Wendlow/Connectors/codex.json"),
        R"({"created":["codexHooksObject"],"trustSlots":["s3cret"],"appVersion":"1"})");
    put(file("lib/node_modules/@openai/codex/bin/codex.js"), "", 0755);
    put(file("lib/node_modules/@openai/codex/package.json"), R"({"version":"0.31.2"})");
    put(file("share/claude/versions/2.0.5"), "", 0755);
    fs::create_directory(file("bin"));
    fs::create_symlink(file("share/claude/versions/2.0.5"), file("bin/claude"));
    fs::create_symlink("../lib/node_modules/@openai/codex/bin/codex.js", file("bin/codex"));
    const auto doctor = [&](std::vector<std::string> more) {
        more.insert(more.begin(), {"--home", m_home.path(), "--bundle", bundle(), "doctor"});
        return testing::runProgram(WENDLOW_CONNECT_PROGRAM, more,
                                   {{"HOME", m_home.path().string()},
                                    {"PATH", file("bin").string() + ":/nowhere"},
                                    {"DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere"}});
    };
    const auto told = doctor({});
    EXPECT_EQ(told.status, 0) << told.err;
    for (const char* line : {
             "  bundle: ~/Wendlow.app\n",
             "    wendlow-hook: there\n    wendlow-mcp: not to be run by this user\n",
             "    wendlow-open: not there\n",
             "gateway:\n  is answering: no\n  health: there is no session bus\n",
             "  Claude Code\n    state: drifted\n    is stale: ",
             "    program: ~/bin/claude\n    version: 2.0.5\n",
             "    program: ~/bin/codex\n    version: 0.31.2\n",
             "      ~/.claude.json\n        is: a file\n        mode: 0600\n"
             "        is this users: yes\n        is writable: yes\n"
             "        copies:\n          .claude.json.wendlow-backup-20260101-000000\n",
             "points into a source checkout: …\n",
             "      tells of:\n        codexHooksObject\n      tools version: 1\n",
             "      ~/.cursor/mcp.json: not there\n",
         })
        EXPECT_THAT(told.out, HasSubstr(line));
    const auto json = doctor({"--json", "codex"});
    EXPECT_THAT(json.out, HasSubstr(R"("path": "~/.codex/config.toml")"));
    EXPECT_FALSE(json.out.contains(".claude"));
    for (const std::string& said : {told.out, json.out}) {
        EXPECT_FALSE(said.contains(secret)) << said;
        EXPECT_FALSE(said.contains(m_home.path().string())) << said;
    }
}

TEST_F(Connect, refusesWrongUsage) {
    const std::pair<const char*, const char*> cases[] = {
        {"", "no verb was given; the verbs are scan, install, remove, projects, memory, stale, "
             "converge, doctor"},
        {"scn", "there is no verb scn; the verbs are scan, install, remove, projects, memory, "
                "stale, converge, doctor"},
        {"install claude-code nothing", "there is no tool nothing"},
        {"scan --jsn", "there is no option --jsn"},
        {"scan --applications", "--applications needs a value"},
        {"--applications --json scan", "--applications needs a value"},
        {"converge --profile test", "--profile cannot be test"},
        {"converge --claude-running maybe", "--claude-running cannot be maybe"},
        {"scan --profile dev", "--profile goes with converge alone"},
    };
    for (const auto& [arguments, complaint] : cases) {
        const auto run = connect(arguments);
        EXPECT_EQ(run.status, 2) << arguments;
        EXPECT_EQ(run.out, "") << arguments;
        EXPECT_EQ(run.err, "wendlow-connect: " + std::string(complaint) + "\n" + usage);
    }
    const auto help = connect("scan --help");
    EXPECT_EQ(help.status, 0);
    EXPECT_THAT(help.out, ::testing::StartsWith(usage));
}

TEST_F(Connect, clearsTheDesktopAppsFileUnlessTheAppRuns) {
    const auto config = file("Library/Application Support/Claude/claude_desktop_config.json");
    put(config,
        R"({"mcpServers":{"w":{"command":"/dist-dev/Wendlow.app/Contents/MacOS/wendlow-mcp"}}})");
    EXPECT_THAT(connect("converge --claude-running no").out, HasSubstr("no Wendlow entry of this"));
    fs::copy_file("/bin/sleep", file("Claude"));
    const auto during = testing::runProgram(
        "/bin/sh", {"-c", "cd '" + m_home.path().string() +
                              "'; ./Claude 60 & until [ \"$(tr '\\0' ' ' </proc/$!/cmdline)\""
                              " = './Claude 60 ' ]; do :; done; "
                              "'" WENDLOW_CONNECT_PROGRAM
                              "' --home . --bundle Wendlow.app converge --profile dev; kill $!"});
    EXPECT_EQ(during.out, "Claude Chat retirement: unchanged\n  " + config.string() +
                              ": Claude is running, so this file was left as it is until Claude "
                              "quits\n");
    EXPECT_THAT(connect("converge --profile dev --claude-running no").out,
                HasSubstr("claude_desktop_config.json: the Wendlow entry \"w\" was removed from "
                          "this file\n"));
    EXPECT_EQ(get(config), R"({"mcpServers":{}})");
    put(config, "{");
    EXPECT_EQ(connect("converge --claude-running no").status, 1);
}

TEST_F(Connect, findsTheApplicationThatItLiesIn) {
    const fs::path inside = bundle() / "Contents/MacOS/wendlow-connect";
    fs::copy_file(WENDLOW_CONNECT_PROGRAM, inside);
    put(file(".claude.json"), "{}");
    EXPECT_EQ(start(inside, "--home . install claude-code").status, 0);
    EXPECT_THAT(get(file(".claude.json")).value(),
                HasSubstr(bundle().string() + "/Contents/MacOS/wendlow-mcp\""));
    fs::copy_file(WENDLOW_CONNECT_PROGRAM, file("wendlow-connect"));
    const auto outside = start(file("wendlow-connect"), "scan --home .");
    EXPECT_EQ(outside.status, 2);
    EXPECT_EQ(outside.err, "wendlow-connect: this program does not lie in an application, so "
                           "--bundle is needed\n" +
                               std::string(usage));
    // A pipe that nobody reads, a full disk: said, and nothing is thrown.
    EXPECT_EQ(start(inside, "--help >/dev/full").status, 1);
}

TEST_F(Connect, recordsTheHashOfWhatCodexReads) {
    // The record names the file by its path and by where it really lies, and no matcher is hashed.
    fs::create_directory(file(".codex"));
    fs::create_symlink(file("real.json"), file(".codex/hooks.json"));
    put(file("real.json"), R"({"hooks":{"UserPromptSubmit":[7,{"matcher":"é|\"x\"/","hooks":[{},)"
                           R"({"command":"/B/Wendlow.app/Contents/MacOS/wendlow-hook )"
                           R"(--harness codex"}]}]}})");
    EXPECT_THAT(connectJSON("install codex"), HasSubstr(R"("result": "changed")"));
    const std::string hashed =
        R"({"event_name":"user_prompt_submit","hooks":[{"additionalContextLimit":7500,)"
        R"("async":false,"command":")" +
        (bundle() / "Contents/MacOS/wendlow-hook").string() +
        R"( --harness codex","statusMessage":"Loading Wendlow rules and memory","timeout":3,)"
        R"("type":"command"}]})";
    const auto sum = testing::runProgram("/usr/bin/sha256sum", {}, {}, hashed);
    for (const char* name : {".codex/hooks.json", "real.json"})
        EXPECT_THAT(get(file(".codex/config.toml")).value(),
                    HasSubstr("\n[hooks.state.\"" + file(name).string() +
                              ":user_prompt_submit:1:1\"]\ntrusted_hash = \"sha256:" +
                              sum.out.substr(0, 64) + "\"\n"));
}

} // namespace
} // namespace wendlow
