// wendlow-connect on a disk that fails, fills up, or dies under it, at every call that it makes.

#include "FaultSweep.h"
#include "TemporaryHome.h"

#include "ConfigFile/JSONText.h"

namespace wendlow {
namespace {

using namespace testing;
namespace fs = std::filesystem;

const std::string& textOf(const JSONValue::Object& object, const char* key) {
    return std::get<std::string>(object.at(key).value);
}

/// The one tool of an answer in JSON.
Verdict verdictOf(const ProgramRun& run) {
    Verdict verdict;
    const auto document = JSONText::scanWithTrivia(run.out, JSONDialect::json);
    if (!document) {
        ADD_FAILURE() << run.status << " " << run.out << run.err;
        return verdict;
    }
    const auto answer = document->root().value(run.out);
    const auto& tool =
        std::get<JSONValue::Object>(std::get<JSONValue::Array>(answer.value).at(0).value);
    const auto& result = textOf(tool, "result");
    verdict.kind = result == "changed"   ? Verdict::Kind::committed
                   : result == "refused" ? Verdict::Kind::refused
                                         : Verdict::Kind::nothingDone;
    EXPECT_EQ(run.status, result == "refused" ? 1 : 0);
    for (const auto& one : std::get<JSONValue::Array>(tool.at("observations").value)) {
        const auto& pair = std::get<JSONValue::Object>(one.value);
        verdict.observations.push_back({textOf(pair, "subject"), textOf(pair, "text")});
    }
    return verdict;
}

/// A person's two files, the settings linked into a dotfiles folder; and what each verb makes of
/// them when nothing goes wrong.
class ConnectFaults : public ::testing::TestWithParam<const char*> {
protected:
    ConnectFaults() {
        for (const auto* name : {"wendlow-hook", "wendlow-mcp"})
            put(home / "Wendlow.app/Contents/MacOS" / name, "", 0755);
        prepare();
        runProgram(WENDLOW_CONNECT_PROGRAM, arguments("install"));
        installedSettings = get(settings);
        installedServers = get(servers);
        record = get(receipt);
        fs::remove(receipt);
        runProgram(WENDLOW_CONNECT_PROGRAM, arguments("remove"));
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
    void prepareInstalled() const {
        prepare();
        put(settings, *installedSettings, 0600);
        put(servers, *installedServers, 0640);
        put(receipt, *record, 0600);
    }
    std::vector<std::string> arguments(const char* verb) const {
        return {"--home", root, "--bundle", home / "Wendlow.app", verb, "claude-code", "--json"};
    }
    FaultSweep install() const {
        return {.program = WENDLOW_CONNECT_PROGRAM,
                .arguments = arguments("install"),
                .root = root,
                .prepare = [this] { prepare(); },
                .files = {{settings, oldSettings, installedSettings, link},
                          {servers, oldServers, installedServers}},
                .verdict = verdictOf};
    }
    FaultSweep remove() const {
        return {.program = WENDLOW_CONNECT_PROGRAM,
                .arguments = arguments("remove"),
                .root = root,
                .prepare = [this] { prepareInstalled(); },
                // Without its record the verb leaves the containers: they may be the person's.
                .files = {{settings, installedSettings, oldSettings, link, forgetfulSettings},
                          {servers, installedServers, oldServers, servers, forgetfulServers}},
                .verdict = verdictOf};
    }
    /// What holds after every run, whatever befell it.
    void expectNothingElseLost() const {
        EXPECT_TRUE(fs::is_symlink(link));
        EXPECT_EQ(modeOf(settings) & ~0600U, 0U);
        EXPECT_EQ(modeOf(servers) & ~0640U, 0U);
        const auto recorded = get(receipt);
        EXPECT_TRUE(!recorded || recorded == record) << *recorded;
    }
    void expectInstallRecord(const Verdict& verdict) const {
        expectNothingElseLost();
        const bool saysNot =
            std::ranges::any_of(verdict.observations, [&](const Observation& observation) {
                return observation.subject == receipt &&
                       observation.text.starts_with(
                           "the record of what was created was not written here — ");
            });
        if (verdict.kind != Verdict::Kind::committed) {
            EXPECT_EQ(get(receipt), std::nullopt);
        } else if (!saysNot) {
            EXPECT_EQ(get(receipt), record);
        }
    }
    void expectRemoveRecord(const Verdict& verdict) const {
        expectNothingElseLost();
        if (verdict.kind != Verdict::Kind::committed) {
            EXPECT_EQ(get(receipt), record);
        }
    }

    const TemporaryHome home;
    const fs::path root = home / "person";
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
    install().failEachCall(GetParam(), [this](const auto& said) { expectInstallRecord(said); });
}

TEST_P(ConnectFaults, RemoveTellsTheTruthWhicheverCallFails) {
    ASSERT_NE(forgetfulSettings, oldSettings);
    remove().failEachCall(GetParam(), [this](const auto& said) { expectRemoveRecord(said); });
}

TEST_P(ConnectFaults, BothTellTheTruthOnADiskThatStaysBroken) {
    install().failFromEachCall(GetParam(), [this](const auto&) { expectNothingElseLost(); });
    remove().failFromEachCall(GetParam(), [this](const auto&) { expectNothingElseLost(); });
}

INSTANTIATE_TEST_SUITE_P(With, ConnectFaults, ::testing::Values("ENOSPC", "EIO", "EACCES"));

class ConnectKills : public ConnectFaults {};

TEST_P(ConnectKills, LeaveAWayBack) {
    install().killAtEachCall(GetParam(), [this] { expectNothingElseLost(); });
    remove().killAtEachCall(GetParam(), [this] { expectNothingElseLost(); });
}

INSTANTIATE_TEST_SUITE_P(Happening, ConnectKills, ::testing::Values("before", "after"));

} // namespace
} // namespace wendlow
