#include "ClaudeChat/ClaudeChatRetirement.h"
#include "Files.h"
#include "TemporaryHome.h"

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using Connectors::Profile;
using testing::get;
using testing::put;
using Result = ConnectorOutcome::Result;

/// "@prod", "@dev" and "@tree" are servers of the two profiles, "@theirs" is a person's.
std::string filled(const std::string& text) {
    const auto entry = [](const std::string& command) {
        return R"({"command":")" + command + R"(","args":[]})";
    };
    const std::string program = "Wendlow.app/Contents/MacOS/wendlow-mcp";
    return testing::replaced(text, {{"@prod", entry("/Applications/" + program)},
                                    {"@dev", entry("/me/dist-dev/" + program)},
                                    {"@tree", entry("/me/fenmoor/wendlow/build/" + program)},
                                    {"@theirs", entry("/usr/bin/wendlow-mcp")}});
}

class ClaudeChat : public ::testing::Test {
protected:
    /// With a clock that stands still.
    ConnectorOutcome retire(Profile profile = Profile::production) const {
        return ClaudeChatRetirement{
            .paths = paths,
            .profile = profile,
            .now = [] { return Transaction::Date(std::chrono::seconds(1)); }}
            .retire();
    }
    ConnectorOutcome outcome(Result result, const std::string& text) const {
        return {result, {{file, text}}, {}};
    }

    const testing::TemporaryHome home;
    const ClaudeChatPaths paths = ClaudeChatPaths::under(home.path(), "/Applications/Wendlow.app");
    const std::string file = paths.configFile.string();
};

TEST_F(ClaudeChat, takesOutTheEntriesOfItsProfileAlone) {
    const std::string all = R"({"a":30.0,"mcpServers":{"x":@theirs,"wendlow":@prod,"dev":@dev,)"
                            R"("tree":@tree,"y":{"command":7},"renamed é":@prod}})";
    struct Case {
        std::string before;
        Profile profile;
        std::string after;
        std::vector<std::string> names;
    };
    const Case cases[] = {
        {all,
         Profile::production,
         R"({"a":30.0,"mcpServers":{"x":@theirs,"dev":@dev,"tree":@tree,"y":{"command":7}}})",
         {"wendlow", "renamed é"}},
        {all,
         Profile::dev,
         R"({"a":30.0,"mcpServers":{"x":@theirs,"wendlow":@prod,"y":{"command":7},)"
         R"("renamed é":@prod}})",
         {"dev", "tree"}},
        // Nobody says any more who made the object, so that it stays.
        {"{\r\n\t\"mcpServers\": {\r\n\t\t\"wendlow\": @prod\r\n\t}\r\n}",
         Profile::production,
         "{\r\n\t\"mcpServers\": {}\r\n}",
         {"wendlow"}},
        // What the person repeats elsewhere is no concern of ours.
        {R"({"b":{"c":1,"c":2},"mcpServers":{"x":{"a":1,"a":2},"wendlow":@prod,"dev":{"a":1,)"
         R"("a":2,"command":"/dist-dev/Wendlow.app/Contents/MacOS/wendlow-mcp"}}})",
         Profile::production,
         R"({"b":{"c":1,"c":2},"mcpServers":{"x":{"a":1,"a":2},"dev":{"a":1,)"
         R"("a":2,"command":"/dist-dev/Wendlow.app/Contents/MacOS/wendlow-mcp"}}})",
         {"wendlow"}},
    };
    for (const auto& [before, profile, after, names] : cases) {
        SCOPED_TRACE(before);
        put(file, filled(before));
        const auto said = retire(profile);
        EXPECT_EQ(said.result, Result::changed);
        EXPECT_EQ(get(file), filled(after));
        ASSERT_EQ(said.backups.size(), 1U);
        EXPECT_EQ(get(said.backups[0]), filled(before));
        Observations expected{{said.backups[0].string(), "a copy of the file was made here first"}};
        for (const auto& name : names)
            expected.push_back(
                {file, "the Wendlow entry \"" + name + "\" was removed from this file"});
        EXPECT_EQ(said.observations, expected);
        EXPECT_EQ(retire(profile),
                  outcome(Result::unchanged, "this file holds no Wendlow entry of this profile"));
    }
}

TEST_F(ClaudeChat, leavesAloneWhatItCannotJudge) {
    const std::pair<std::string, std::string> cases[] = {
        {"", "the document ended where a value was expected (at byte 0)"},
        {"\xEF\xBB\xBF{}", "a value was expected (at byte 0)"},
        {R"({"mcpServers":{"wendlow":@prod},})", "a member name was expected"},
        {R"({"mcpServers":{},"mcpServers":{"wendlow":@prod}})",
         "the name \"mcpServers\" appears twice in one object (at byte 17)"},
        {R"({"mcpServers":{"wendlow":@prod,"wendlow":@dev}})",
         "the name \"wendlow\" appears twice in one object"},
        {R"({"mcpServers":{"w":{"args":1,"args":2,"command":)"
         R"("/Wendlow.app/Contents/MacOS/wendlow-mcp"}}})",
         "the name \"args\" appears twice in one object (at byte 29)"},
    };
    for (const auto& [before, reason] : cases) {
        put(file, filled(before));
        const auto said = retire();
        EXPECT_EQ(said.result, Result::refused) << before;
        ASSERT_EQ(said.observations.size(), 1U);
        EXPECT_EQ(said.observations[0].subject, file);
        EXPECT_THAT(said.observations[0].text,
                    ::testing::StartsWith("this file did not read as JSON — " + reason));
        EXPECT_EQ(get(file), filled(before));
    }
    for (const auto* before : {"[]", "{}", R"({"mcpServers":[@prod]})", R"({"wendlow":@prod})"}) {
        put(file, filled(before));
        EXPECT_EQ(retire(),
                  outcome(Result::unchanged, "this file holds no Wendlow entry of this profile"));
    }
    EXPECT_EQ(testing::namesIn(paths.configDirectory).size(), 1U);
}

TEST_F(ClaudeChat, makesNothingWhereNothingIs) {
    EXPECT_EQ(retire(), outcome(Result::unchanged, "there is no file here"));
    EXPECT_TRUE(testing::namesIn(home.path()).empty());
    std::filesystem::create_directories(paths.configFile);
    EXPECT_EQ(retire(), outcome(Result::unchanged, "there is no file here"));
}

} // namespace
} // namespace wendlow
