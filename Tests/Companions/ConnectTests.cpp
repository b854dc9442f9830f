// wendlow-connect as a script starts it: whole outputs, exit statuses, real files.

#include "TemporaryHome.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>

#include <sys/wait.h>

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using ::testing::HasSubstr;
namespace fs = std::filesystem;

constexpr const char* usage = "usage: wendlow-connect [--home DIR] [--bundle DIR] "
                              "[--applications DIR] VERB [TOOL]... [--json]\n";

class Connect : public ::testing::Test {
protected:
    struct Run {
        int status = -1;
        std::string output;
        std::string complaint;
    };

    Connect() {
        fs::create_directories(bundle() / "Contents/MacOS");
        write(bundle() / "Contents/MacOS/wendlow-hook", "");
        write(bundle() / "Contents/MacOS/wendlow-mcp", "");
    }

    /// The program at `program`, in the home's own folder, with no home of its own in sight.
    Run start(const fs::path& program, const std::string& arguments) const {
        const fs::path errors = m_home / "errors";
        const std::string line = "cd '" + m_home.path().string() + "' && HOME=/nonexistent '" +
                                 program.string() + "' " + arguments + " 2>'" + errors.string() +
                                 "'";
        Run run;
        std::FILE* pipe = ::popen(line.c_str(), "r");
        for (int byte = std::fgetc(pipe); byte != EOF; byte = std::fgetc(pipe))
            run.output += static_cast<char>(byte);
        run.status = WEXITSTATUS(::pclose(pipe));
        run.complaint = read(errors);
        fs::remove(errors);
        return run;
    }
    /// With this test's home and application, whose path is written as HOME in what comes back.
    Run connect(const std::string& arguments) const {
        Run run = start(WENDLOW_CONNECT_PROGRAM, "--home . --bundle Wendlow.app " + arguments);
        run.output = std::regex_replace(run.output, std::regex(m_home.path().string()), "HOME");
        run.output =
            std::regex_replace(run.output, std::regex("backup-[0-9]{8}-[0-9]{6}"), "backup");
        return run;
    }

    fs::path bundle() const { return m_home / "Wendlow.app"; }
    fs::path file(const std::string& name) const { return m_home / name; }
    static void write(const fs::path& path, const std::string& bytes) {
        std::ofstream(path, std::ios::binary) << bytes;
    }
    static std::string read(const fs::path& path) {
        std::ifstream stream(path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(stream), {});
    }

    testing::TemporaryHome m_home;
};

TEST_F(Connect, tellsPeopleInLines) {
    EXPECT_EQ(connect("scan").output, "Claude Code: notFound\n"
                                      "  HOME/.claude: there is no directory here\n"
                                      "  HOME/.claude.json: there is no file here\n");
    const Run refused = connect("install claude-code");
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.output, "Claude Code: refused\n  HOME/.claude: there is no Claude Code "
                              "configuration here, so nothing was written\n");
    EXPECT_EQ(connect("converge").output, "nothing needed repair\n");
    EXPECT_EQ(connect("stale").output,
              "Claude Code\n  there is no stale wiring of this installation\n");
    EXPECT_EQ(connect("memory").output, "Claude Code\n  no memory files found\n");
    EXPECT_EQ(connect("projects").output,
              "Claude Code\n  HOME/.claude/projects: no session store found\n");
}

TEST_F(Connect, connectsAndDisconnects) {
    const std::string settings = "{\r\n  \"model\": \"opus\"\r\n}";
    const std::string servers = R"({"numStartups":7,"mcpServers":{"files":{}}})";
    fs::create_directory(file(".claude"));
    write(file(".claude/settings.json"), settings);
    write(file(".claude.json"), servers);

    const Run installed = connect("install --json");
    EXPECT_EQ(installed.status, 0);
    EXPECT_EQ(installed.output, R"([
  {
    "id": "claude-code",
    "name": "Claude Code",
    "result": "changed",
    "observations": [
      {
        "subject": "HOME/.claude/settings.json.wendlow-backup",
        "text": "a copy of the file was made here first"
      },
      {
        "subject": "HOME/.claude.json.wendlow-backup",
        "text": "a copy of the file was made here first"
      },
      {
        "subject": "HOME/.claude/settings.json",
        "text": "the Wendlow entry was written to this file"
      },
      {
        "subject": "HOME/.claude.json",
        "text": "the Wendlow entry was written to this file"
      }
    ],
    "backups": [
      "HOME/.claude/settings.json.wendlow-backup",
      "HOME/.claude.json.wendlow-backup"
    ]
  }
]
)");
    EXPECT_EQ(connect("scan --json").output, R"([
  {
    "id": "claude-code",
    "name": "Claude Code",
    "detail": "The Claude Code CLI and Claude Code in the desktop app.",
    "symbol": "terminal",
    "state": "connected",
    "observations": [
      {
        "subject": "HOME/.claude/settings.json",
        "text": "the Wendlow hook entry here runs HOME/Wendlow.app/Contents/MacOS/wendlow-hook --harness claude-code"
      },
      {
        "subject": "HOME/.claude.json",
        "text": "the Wendlow MCP server entry here runs HOME/Wendlow.app/Contents/MacOS/wendlow-mcp"
      }
    ]
  }
]
)");
    EXPECT_THAT(connect("install").output, HasSubstr("Claude Code: unchanged\n"));

    std::string spelled = read(file(".claude/settings.json"));
    spelled.replace(spelled.find("--slot rules"), 12, "--slot=rules");
    write(file(".claude/settings.json"), spelled);
    EXPECT_EQ(connect("stale --json").output,
              "[\n  {\n    \"id\": \"claude-code\",\n    \"stale\": true\n  }\n]\n");
    EXPECT_THAT(
        connect("converge --profile dev --claude-running yes --json").output,
        HasSubstr("[\n  {\n    \"name\": \"Claude Code\",\n    \"result\": \"changed\",\n"));

    EXPECT_EQ(connect("remove").status, 0);
    EXPECT_EQ(read(file(".claude/settings.json")), settings);
    EXPECT_EQ(read(file(".claude.json")), servers);
}

TEST_F(Connect, listsProjectsAndMemoryFiles) {
    fs::create_directories(file(".claude/projects/-nowhere-\xFF/memory"));
    write(file(".claude/projects/-nowhere-\xFF/memory/MEMORY.md"), "12345");
    write(file(".claude/CLAUDE.md"), "123");
    std::string projects = connect("projects --json").output;
    projects = std::regex_replace(projects, std::regex("[0-9]{10,}"), "DATE");
    EXPECT_EQ(projects, R"([
  {
    "id": "claude-code",
    "source": "HOME/.claude/projects",
    "projects": [
      {
        "path": "/nowhere/�)"
                        " (decoded path not verified on disk)"
                        R"(",
        "lastActivity": DATE,
        "memory": {
          "path": "HOME/.claude/projects/-nowhere-�/memory/MEMORY.md",
          "bytes": 5,
          "modified": DATE
        }
      }
    ]
  }
]
)");
    EXPECT_THAT(connect("memory --json").output, HasSubstr(R"(    "files": [
      {
        "path": "HOME/.claude/CLAUDE.md",
        "bytes": 3,
        "modified": )"));
}

TEST_F(Connect, refusesWrongUsage) {
    const std::pair<const char*, const char*> cases[] = {
        {"", "no verb was given; the verbs are scan, install, remove, projects, memory, stale, "
             "converge"},
        {"scn", "there is no verb scn; the verbs are scan, install, remove, projects, memory, "
                "stale, converge"},
        {"install claude-code nothing", "there is no tool nothing"},
        {"scan --jsn", "there is no option --jsn"},
        {"scan --applications", "--applications needs a value"},
        {"--applications --json scan", "--applications needs a value"},
        {"converge --profile test", "--profile cannot be test"},
        {"converge --claude-running maybe", "--claude-running cannot be maybe"},
        {"scan --profile dev", "--profile goes with converge alone"},
    };
    for (const auto& [arguments, complaint] : cases) {
        const Run run = connect(arguments);
        EXPECT_EQ(run.status, 2) << arguments;
        EXPECT_EQ(run.output, "") << arguments;
        EXPECT_EQ(run.complaint, "wendlow-connect: " + std::string(complaint) + "\n" + usage);
    }
    const Run help = connect("scan --help");
    EXPECT_EQ(help.status, 0);
    EXPECT_THAT(help.output, ::testing::StartsWith(usage));
}

TEST_F(Connect, findsTheApplicationThatItLiesIn) {
    const fs::path inside = bundle() / "Contents/MacOS/wendlow-connect";
    fs::copy_file(WENDLOW_CONNECT_PROGRAM, inside);
    write(file(".claude.json"), "{}");
    EXPECT_EQ(start(inside, "--home . install").status, 0);
    EXPECT_THAT(read(file(".claude.json")),
                HasSubstr(bundle().string() + "/Contents/MacOS/wendlow-mcp\""));
    fs::copy_file(WENDLOW_CONNECT_PROGRAM, file("wendlow-connect"));
    const Run outside = start(file("wendlow-connect"), "scan --home .");
    EXPECT_EQ(outside.status, 2);
    EXPECT_EQ(outside.complaint, "wendlow-connect: this program does not lie in an application, so "
                                 "--bundle is needed\n" +
                                     std::string(usage));
    // A pipe that nobody reads, a full disk: said, and nothing is thrown.
    EXPECT_EQ(start(inside, "--help >/dev/full").status, 1);
}

} // namespace
} // namespace wendlow
