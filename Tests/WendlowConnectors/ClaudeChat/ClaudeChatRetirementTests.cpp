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
    // What the person repeats elsewhere is no concern of ours.
    const std::string all = R"({"a":30.0,"mcpServers":{"x":@theirs,"wendlow":@prod,"dev":@dev,)"
                            R"("tree":@tree,"y":{"z":7,"z":8},"renamed é":@prod}})";
    struct Case {
        std::string before;
        Profile profile;
        std::string after;
        std::vector<std::string> names;
    };
    const Case cases[] = {
        {all,
         Profile::production,
         R"({"a":30.0,"mcpServers":{"x":@theirs,"dev":@dev,"tree":@tree,"y":{"z":7,"z":8}}})",
         {"wendlow", "renamed é"}},
        {all,
         Profile::dev,
         R"({"a":30.0,"mcpServers":{"x":@theirs,"wendlow":@prod,"y":{"z":7,"z":8},)"
         R"("renamed é":@prod}})",
         {"dev", "tree"}},
        // Nobody says any more who made the object, so that it stays.
        {"{\r\n\t\"mcpServers\": {\r\n\t\t\"w\": @prod\r\n\t}\r\n}",
         Profile::production,
         "{\r\n\t\"mcpServers\": {}\r\n}",
         {"w"}},
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
    }
}

TEST_F(ClaudeChat, leavesAloneWhatItCannotJudgeOrIsNotOurs) {
    const std::string unread = "this file did not read as JSON — ";
    const auto repeated = [&](const std::string& name, int byte) {
        return fmt::format("{}the name \"{}\" appears twice in one object (at byte {})", unread,
                           name, byte);
    };
    const std::string none = "this file holds no Wendlow entry of this profile";
    const std::pair<std::string, std::string> cases[] = {
        {"", unread + "the document ended where a value was expected (at byte 0)"},
        {"\xEF\xBB\xBF{}", unread + "a value was expected (at byte 0)"},
        {R"({"mcpServers":{},"mcpServers":{"wendlow":@prod}})", repeated("mcpServers", 17)},
        {R"({"mcpServers":{"w":1,"w":@prod}})", repeated("w", 21)},
        {R"({"mcpServers":{"w":{"args":1,"args":2,"command":)"
         R"("/Wendlow.app/Contents/MacOS/wendlow-mcp"}}})",
         repeated("args", 29)},
        {"[]", none},
        {R"({"mcpServers":[@prod]})", none},
        {R"({"wendlow":@prod,"mcpServers":{"w":{"command":7},"x":@dev}})", none},
    };
    for (const auto& [before, text] : cases) {
        put(file, filled(before));
        EXPECT_EQ(retire(), outcome(text == none ? Result::unchanged : Result::refused, text));
        EXPECT_EQ(get(file), filled(before));
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
