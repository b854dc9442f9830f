// What goes wrong in people's files, each caused for real.

#include "ClaudeCodeHome.h"

#include "ConfigFile/Backup.h"

#include <sys/stat.h>
#include <unistd.h>

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using testing::ClaudeCodeHome;
using testing::get;
using testing::modeOf;
using testing::put;
using Result = ConnectorOutcome::Result;
namespace fs = std::filesystem;

const std::string plain = "{\n  \"a\": 1\n}\n";

/// Installing and removing leaves both files as they were.
void expectRoundTrip(const ClaudeCodeHome& home, const std::string& name) {
    const auto settings = get(home.settings());
    const auto servers = get(home.servers());
    const auto connector = home.connector();
    EXPECT_EQ(connector.install().result, Result::changed) << name;
    EXPECT_EQ(connector.scan().state, ConnectorState::connected) << name;
    EXPECT_EQ(connector.remove().result, Result::changed) << name;
    EXPECT_TRUE(get(home.settings()) == settings) << name;
    EXPECT_TRUE(get(home.servers()) == servers) << name;
}

/// Neither verb does anything, and both say this alone.
void expectRefusal(const ClaudeCodeHome& home, const Observations& observations) {
    const auto settings = get(home.settings());
    const auto servers = get(home.servers());
    const ConnectorOutcome refused{Result::refused, observations, {}};
    EXPECT_EQ(home.connector().install(), refused);
    EXPECT_EQ(home.connector().remove(), refused);
    EXPECT_EQ(get(home.settings()), settings);
    EXPECT_EQ(get(home.servers()), servers);
    EXPECT_TRUE(Backup::all(home.servers()).empty());
}

TEST(ClaudeCodeFaults, comeBackByteForByte) {
    const std::string list = R"({"a":1,"a":2})";
    const std::pair<const char*, std::string> cases[] = {
        {"CRLF", "{\r\n    \"a\": 1,\r\n    \"hooks\": {\"Stop\":[]}\r\n}\r\n"},
        {"mixed line ends", "{\r\n  \"a\": 1,\n  \"b\": 2\n}\n"},
        {"tabs", "{\n\t\"a\": {\n\t\t\"b\": []\n\t}\n}\n"},
        {"no final line feed", "{\n  \"a\": 1\n}"},
        {"blank lines and wild spacing", "\n\n{ \"a\" :\t1 ,\n\n\n \"b\":[ ] }  \n\n"},
        {"a duplicate key elsewhere",
         R"({"permissions":)" + list + R"(,"mcpServers":{"x":)" + list + "}}\n"},
        {"numbers, escapes and non-ASCII", R"({"n":[30.0,1e3,-0],"s":"\/ \u00e9 é \ud83d\ude00"})"},
        {"our names in other places", R"({"wendlow":{"hooks":[]},"matcher":"mcp__wendlow__.*"})"},
    };
    for (const auto& [name, bytes] : cases) {
        const ClaudeCodeHome home;
        home.fill(bytes, bytes);
        expectRoundTrip(home, name);
    }
}

TEST(ClaudeCodeFaults, areRefusedInWordsAndLeftAlone) {
    const std::pair<std::string, const char*> cases[] = {
        {"", "the document ended where a value was expected (at byte 0)"},
        {" \n", "the document ended where a value was expected (at byte 2)"},
        {"\xEF\xBB\xBF{}\n", "a value was expected (at byte 0)"},
        {"\xFF\xFE{\0}\0", "a value was expected (at byte 0)"},
        {"// mine\n{}\n", "a value was expected (at byte 0)"},
        {"{\n  \"a\": 1, // mine\n  \"b\": 2\n}\n", "a member name was expected (at byte 12)"},
        {"{\"a\":1,}", "a member name was expected (at byte 7)"},
        {R"({"projects":{"/x":{"history":["tru)",
         "the document ended inside a string (at byte 30)"},
        {R"({"a":1,"a":2})", "the name \"a\" appears twice in one object (at byte 7)"},
        {std::string(65, '['), "the document nests deeper than 64 levels (at byte 64)"},
    };
    for (const auto& [bytes, reason] : cases) {
        const std::string text =
            std::string("this file did not read as JSON, so nothing was written — ") + reason;
        const ClaudeCodeHome home;
        home.fill(bytes, plain);
        expectRefusal(home, {{home.settings(), text}});
        home.fill(bytes, bytes);
        expectRefusal(home, {{home.settings(), text}, {home.servers(), text}});
    }
}

TEST(ClaudeCodeFaults, aDirectoryAtTheFilesPath) {
    const ClaudeCodeHome home;
    home.fill({}, plain);
    fs::create_directory(home.settings());
    expectRefusal(home, {{home.settings(), "this file could not be read, so nothing was written — "
                                           "Is a directory"}});
    EXPECT_EQ(home.connector().scan().observations.front(),
              (Observation{home.settings(), "there is no file here"}));
}

TEST(ClaudeCodeFaults, aLargeFile) {
    std::string history = "{\n  \"projects\": {";
    for (int project = 0; history.size() < 13'000'000; ++project)
        history += (project == 0 ? "\n" : ",\n") + ("    \"/home/me/" + std::to_string(project)) +
                   "\": { \"history\": [\"pasted \\\"text\\\" é " + std::string(4000, 'x') +
                   "\"] }";
    history += "\n  }\n}\n";
    const ClaudeCodeHome home;
    home.fill(history, history);
    expectRoundTrip(home, "13 MB");
}

TEST(ClaudeCodeFaults, aLinkStaysALink) {
    const ClaudeCodeHome home;
    fs::create_directories(home.path("dotfiles"));
    home.fill({}, plain);
    put(home.path("dotfiles/settings.json"), plain);
    fs::create_symlink("../dotfiles/second", home.settings());
    fs::create_symlink("settings.json", home.path("dotfiles/second"));
    expectRoundTrip(home, "a link to a link");
    EXPECT_EQ(fs::read_symlink(home.settings()), "../dotfiles/second");
    EXPECT_EQ(fs::read_symlink(home.path("dotfiles/second")), "settings.json");
    EXPECT_EQ(Backup::all(home.path("dotfiles/settings.json")).size(), 2);

    // A link that leads nowhere yet is as good as no file, and is what makes the file.
    fs::remove(home.path("dotfiles/settings.json"));
    EXPECT_EQ(home.connector().install().result, Result::changed);
    EXPECT_TRUE(fs::is_symlink(home.settings()));
    EXPECT_TRUE(fs::is_regular_file(home.path("dotfiles/settings.json")));
    home.connector().remove();
    EXPECT_TRUE(fs::is_symlink(home.settings()));
    EXPECT_FALSE(fs::exists(home.path("dotfiles/settings.json")));
}

TEST(ClaudeCodeFaults, theModeStays) {
    const ClaudeCodeHome home;
    home.fill(plain, plain);
    ::chmod(home.settings().c_str(), 0640);
    ::chmod(home.servers().c_str(), 0600);
    expectRoundTrip(home, "modes");
    EXPECT_EQ(modeOf(home.settings()), mode_t{0640});
    EXPECT_EQ(modeOf(home.servers()), mode_t{0600});
    for (const fs::path& copy : Backup::all(home.servers()))
        EXPECT_EQ(modeOf(copy), mode_t{0600});
}

/// Makes the home somebody else's and this process somebody else until it ends, so that modes
/// count even where the tests run as root.
class AsNobody {
public:
    explicit AsNobody(const ClaudeCodeHome& home) : m_root(::geteuid() == 0) {
        if (!m_root)
            return;
        for (const auto& entry : fs::recursive_directory_iterator(home.path("")))
            EXPECT_EQ(::chown(entry.path().c_str(), nobody, nobody), 0);
        EXPECT_EQ(::chown(home.path("").c_str(), nobody, nobody), 0);
        EXPECT_EQ(::seteuid(nobody), 0);
    }
    ~AsNobody() {
        if (m_root) {
            EXPECT_EQ(::seteuid(0), 0);
        }
    }
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;

private:
    static constexpr uid_t nobody = 65534;
    bool m_root;
};

TEST(ClaudeCodeFaults, whatThisUserMayNotReadOrWrite) {
    const ClaudeCodeHome home;
    home.fill(plain, plain);
    const AsNobody nobody(home);
    const auto installSays = [&](const fs::path& subject, const std::string& text) {
        const ConnectorOutcome refused{Result::refused, {{subject.string(), text}}, {}};
        EXPECT_EQ(home.connector().install(), refused);
    };
    ::chmod(home.settings().c_str(), 0);
    expectRefusal(home, {{home.settings(), "this file could not be read, so nothing was written — "
                                           "Permission denied"}});
    ::chmod(home.settings().c_str(), 0400);
    installSays(home.settings(),
                "this file cannot be written by this user, so nothing was written");
    ::chmod(home.settings().c_str(), 0600);
    ::chmod(home.path(".claude").c_str(), 0500);
    installSays(home.path(".claude"),
                "this folder cannot be written by this user, so nothing was written");
    ::chmod(home.path(".claude").c_str(), 0700);
    EXPECT_EQ(get(home.settings()), plain);
    EXPECT_EQ(get(home.servers()), plain);
    EXPECT_FALSE(fs::exists(home.paths().receiptFile));
}

/// Installs while something else happens, just before the first file is replaced.
ConnectorOutcome installWith(const ClaudeCodeHome& home, const std::function<void()>& meanwhile) {
    int renames = 0;
    const auto first = [&] {
        if (++renames == 1)
            meanwhile();
    };
    return home.connector(first).install();
}

TEST(ClaudeCodeFaults, aFolderThatVanishesUnderTheCommit) {
    const ClaudeCodeHome home;
    home.fill(plain, plain);
    const auto outcome =
        installWith(home, [&] { fs::rename(home.path(".claude"), home.path("away")); });
    EXPECT_EQ(outcome.result, Result::refused);
    EXPECT_EQ(
        outcome.observations.front(),
        (Observation{home.settings(), "this file was not written, so nothing was changed — " +
                                          home.settings() +
                                          " could not be written: No such file or directory"}));
    EXPECT_EQ(get(home.path("away/settings.json")), plain);
    EXPECT_EQ(get(home.servers()), plain);
    EXPECT_FALSE(fs::exists(home.paths().receiptFile));
}

TEST(ClaudeCodeFaults, theToolWritesItsFileBetweenPlanAndCommit) {
    const ClaudeCodeHome home;
    home.fill(plain, plain);
    const std::string meanwhile = R"({"written":"by the tool"})";
    const auto outcome = installWith(home, [&] { put(home.settings(), meanwhile); });
    // The rename wins, as it would for two editors, and the bytes from before are beside it.
    EXPECT_EQ(outcome.result, Result::changed);
    EXPECT_EQ(home.connector().scan().state, ConnectorState::connected);
    EXPECT_EQ(get(outcome.backups.front()), plain);
    // A write by the tool afterwards that drops our entry is only drift, and install mends it.
    put(home.settings(), meanwhile);
    EXPECT_EQ(home.connector().scan().state, ConnectorState::drifted);
    EXPECT_EQ(home.connector().install().result, Result::changed);
    EXPECT_EQ(home.connector().remove().result, Result::changed);
    EXPECT_EQ(get(home.settings()), meanwhile);
}

} // namespace
} // namespace wendlow
