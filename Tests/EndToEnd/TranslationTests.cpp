#include "Files.h"
#include "RunProgram.h"
#include "TemporaryHome.h"

#include <gmock/gmock.h>

#include <ranges>
#include <regex>
#include <set>

namespace wendlow::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
namespace fs = std::filesystem;

/// A made-up language. Its rule of numbers is the other way round than that of English, holes stand
/// in another order, and the last sentence has one hole too many.
constexpr const char* catalogue = R"(
msgid ""
msgstr ""
"Content-Type: text/plain; charset=UTF-8\n"
"Plural-Forms: nplurals=2; plural=n==1;\n"

msgctxt "WendlowConnectors"
msgid "a Wendlow entry here is under the {} event, which Codex does not read as {}"
msgstr "⟦{1} ≠ {0}⟧"

msgctxt "WendlowConnectors"
msgid "{} session file records no project cwd"
msgid_plural "{} session files record no project cwd"
msgstr[0] "⟦many {}⟧"
msgstr[1] "⟦one {}⟧"

msgctxt "WendlowConnectors"
msgid "{} workspace entry names no project folder and was not decoded"
msgid_plural "{} workspace entries name no project folder and were not decoded"
msgstr[0] "⟦many {}⟧"
msgstr[1] "⟦one {}⟧"

msgctxt "WendlowConnectors"
msgid "the mcp.wendlow entry here carries a key this build does not write: {}"
msgid_plural "the mcp.wendlow entry here carries keys this build does not write: {}"
msgstr[0] "⟦keys {}⟧"
msgstr[1] "⟦key {}⟧"

msgctxt "WendlowConnectors"
msgid "the entry carries a key this build does not write: {}"
msgid_plural "the entry carries keys this build does not write: {}"
msgstr[0] "⟦keys {}⟧"
msgstr[1] "⟦key {}⟧"

msgctxt "WendlowConnect"
msgid "no memory files found"
msgstr "⟦none⟧"

msgctxt "WendlowConnect"
msgid "there is no option {}"
msgstr "⟦{}?⟧"

msgctxt "WendlowAsk"
msgid "usage: wendlow-ask 'REQUEST JSON'"
msgstr "⟦'REQUEST JSON'⟧"

msgctxt "WendlowConnectors"
msgid "the table [{}] is here with no Wendlow MCP table above it"
msgstr "⟦{} {}⟧"
)";

/// The programs in an application of a test's own, and tools' files with something to say of each.
class Translation : public ::testing::Test {
protected:
    Translation() {
        fs::create_directories(programs());
        for (const char* name : {"wendlow-connect", "wendlow-ask", "wendlow-hook", "wendlow-mcp"})
            fs::copy_file(fs::path(WENDLOW_BUNDLE "/Contents/MacOS") / name, programs() / name);
        put(m_home / ".codex/hooks.json",
            R"({"hooks":{"Stop":[{"hooks":[{"type":"command","command":")" +
                (programs() / "wendlow-hook").string() + R"( --harness codex"}]}]}})");
        put(m_home / ".codex/config.toml", "[mcp_servers.wendlow.env]\n");
        put(m_home / ".codex/sessions/one.jsonl", "{}\n");
        put(m_home / ".codex/sessions/two.jsonl", "{}\n");
        put(m_home / "Library/Application Support/Cursor/User/workspaceStorage/one/state", "");
        put(m_home / ".config/opencode/opencode.jsonc",
            R"({"mcp":{"wendlow":{"type":"local","command":[")" +
                (programs() / "wendlow-mcp").string() + R"("],"s3cret":1}}})");
    }

    fs::path programs() const { return m_home / "Wendlow.app/Contents/MacOS"; }
    fs::path file() const {
        return m_home / "Wendlow.app/Contents/Resources/locale/qps/LC_MESSAGES/wendlow.mo";
    }
    void speak(const std::string& sentences) const {
        fs::create_directories(file().parent_path());
        const auto made =
            runProgram("/usr/bin/env", {"msgfmt", "--output-file", file(), "-"}, {}, sentences);
        ASSERT_EQ(made.status, 0) << made.err;
    }
    /// Whatever the program says to arguments without blanks.
    std::string said(const std::string& program, const std::string& arguments) const {
        std::vector<std::string> words;
        for (const auto word : std::views::split(std::string_view(arguments), ' '))
            words.emplace_back(word.begin(), word.end());
        const ProgramRun run = runProgram(programs() / program, words,
                                          {{"HOME", m_home.path()},
                                           {"LC_ALL", "C.UTF-8"},
                                           {"LANGUAGE", "qps"},
                                           {"DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere"}});
        return run.out + run.err;
    }
    std::string connect(const std::string& arguments) const {
        return said("wendlow-connect", arguments);
    }

    const TemporaryHome m_home;
};

TEST_F(Translation, isSpokenToPeopleAndToNoProgram) {
    const struct {
        const char* arguments;
        const char* english;
        const char* spoken;
    } cases[] = {
        {"scan codex",
         "a Wendlow entry here is under the Stop event, which Codex does not read as "
         "UserPromptSubmit",
         "⟦UserPromptSubmit ≠ Stop⟧"},
        {"projects codex", "2 session files record no project cwd", "⟦many 2⟧"},
        {"projects cursor", "1 workspace entry names no project folder and was not decoded",
         "⟦one 1⟧"},
        {"install opencode",
         "the mcp.wendlow entry here carries a key this build does not write: s3cret",
         "nothing was written — ⟦key s3cret⟧"},
        {"memory cursor", "no memory files found", "⟦none⟧"},
        {"scan --loud", "there is no option --loud", "wendlow-connect: ⟦--loud?⟧"},
        {"scan codex",
         "the table [mcp_servers.wendlow.env] is here with no Wendlow MCP table above it",
         "the table [mcp_servers.wendlow.env] is here with no Wendlow MCP table above it"},
    };
    speak(catalogue);
    for (const auto& [arguments, english, spoken] : cases) {
        EXPECT_THAT(connect(arguments), HasSubstr(spoken));
        EXPECT_THAT(connect(std::string(arguments) + " --json"), Not(HasSubstr("⟦")));
    }
    EXPECT_EQ(said("wendlow-ask", "--loud"), "⟦'REQUEST JSON'⟧\n");
    fs::remove(file());
    for (const auto& [arguments, english, spoken] : cases)
        EXPECT_THAT(connect(arguments), HasSubstr(english));
}

TEST_F(Translation, leavesDoctorNothingToQuote) {
    // Every label that the report has in English, and nothing else than these, is translated.
    std::string sentences = catalogue;
    std::set<std::string> labels;
    const std::string english = connect("doctor");
    const std::regex label("\n *([a-z][a-z ]*):");
    for (std::sregex_iterator found(english.begin(), english.end(), label), end; found != end;
         ++found)
        if (labels.insert((*found)[1]).second)
            sentences += "\nmsgctxt \"WendlowConnect\"\nmsgid \"" + (*found)[1].str() +
                         "\"\nmsgstr \"⟦" + (*found)[1].str() + "⟧\"\n";
    EXPECT_THAT(labels, ::testing::IsSupersetOf({"is stale", "bundle version", "tools"}));
    speak(sentences);
    const std::string told = connect("doctor");
    EXPECT_FALSE(std::regex_search(told, label)) << told;
    EXPECT_THAT(told, HasSubstr("the entry carries a key this build does not write: …"));
    EXPECT_THAT(told, Not(HasSubstr("s3cret")));
}

} // namespace
} // namespace wendlow::testing
