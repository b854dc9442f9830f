#include "Model/EditorDate.h"
#include "Model/EditorMoment.h"
#include "Model/EditorRail.h"
#include "Model/EditorRules.h"
#include "Model/EditorScope.h"

#include <limits>

#include <gtest/gtest.h>

namespace wendlow {
namespace {

TEST(EditorDate, holdsWhatTheClockCannot) {
    EXPECT_EQ(editorDate(1.5).time_since_epoch(), std::chrono::milliseconds(1500));
    EXPECT_GT(editorDate(std::numeric_limits<double>::infinity()), editorDate(9e9));
    EXPECT_LT(editorDate(-1e300), editorDate(-9e9));
    EXPECT_EQ(editorDate(std::numeric_limits<double>::quiet_NaN()), EditorDate{});
}

TEST(EditorMoment, knowsWhichToolItComesFromAndHowItIsDrawn) {
    const std::string mark = "one.tarnbeck.wendlow.transcript.";
    using Text = std::optional<std::string>;
    using Case = std::tuple<Text, bool, Text, Text, bool, bool>;
    for (const auto& [bundle, framed, sessionTool, agentTool, isTranscript, drawsTextCard] :
         {Case{mark + "codex", true, "claude", "codex", true, true},
          Case{mark, true, {}, {}, false, false},
          Case{mark, false, "claude", "claude", false, true},
          Case{{}, true, "claude", "claude", false, false},
          Case{"x" + mark + "codex", false, {}, {}, false, false}}) {
        EditorMoment moment{.id = "1"};
        moment.bundle = bundle;
        moment.framed = framed;
        moment.sessionTool = sessionTool;
        EXPECT_EQ(moment.agentTool(), agentTool) << bundle.value_or("none");
        EXPECT_EQ(moment.isTranscript(), isTranscript) << bundle.value_or("none");
        EXPECT_EQ(moment.drawsTextCard(), drawsTextCard) << bundle.value_or("none");
    }
    for (const char* const id : {"", "+", "+-7", "7a", " 7", "9223372036854775808"})
        EXPECT_EQ(EditorMoment{.id = id}.thumbnailKey(), std::nullopt) << id;
    EXPECT_EQ(EditorMoment{.id = "+7"}.thumbnailKey(), 7);
    EXPECT_EQ(EditorMoment{.id = "-7"}.thumbnailKey(), -7);
}

TEST(EditorScope, isCopiedDepthFirst) {
    EditorScope root = EditorScope::root();
    root.children = {{.id = "/a", .title = "a", .children = {{.id = "/a/b", .title = "first"}}},
                     {.id = "/a/b", .title = "second"}};
    const auto renamed = root.updating("/a/b", [](EditorScope& scope) { scope.title = "new"; });
    EXPECT_EQ(renamed.find("/a/b")->title + renamed.children[1].title, "newsecond");
    EXPECT_EQ(root.removing("/a/b").find("/a/b"), nullptr);
    EXPECT_EQ((EditorScopeRow{.path = "//a/b/"}.depth()), 2U);
}

TEST(EditorRulesFiles, takesOnlyNamesThatAreFilesAndAttributes) {
    EXPECT_EQ(EditorRulesFiles::normalizedName(" Style-2 \n"), "style-2");
    EXPECT_EQ(EditorRulesFiles::normalizedName("rules2"), "rules2");
    for (const char* const text : {"", "-a", "a-", "a b", "é", "a_b", " RULES ", "wendlow-memory"})
        EXPECT_EQ(EditorRulesFiles::normalizedName(text), std::nullopt) << text;
}

TEST(TypeWords, makesManyOfOne) {
    const std::pair<const char*, const char*> cases[] = {
        {"decided", "decided"}, {"notes", "notes"}, {"day", "days"},      {"y", "ys"},
        {"éy", "éies"},         {"focus", "focus"}, {"ticket", "tickets"}};
    for (const auto& [one, many] : cases)
        EXPECT_EQ(TypeWords::pluralized(one), many);
}

} // namespace
} // namespace wendlow
