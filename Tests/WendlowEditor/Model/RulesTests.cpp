#include "Model/EditorRulesPicture.h"
#include "Seeded/SeededRulesPicture.h"

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::string spoken(const std::vector<EditorRuleLine>& lines) {
    std::string all;
    for (const EditorRuleLine& line : lines)
        all += line.id + "|" + line.text + "|" + line.scope.value_or("none") + "\n";
    return all;
}

TEST(EditorRulesCard, isReadLineByLine) {
    const auto card = EditorRulesCard::parse("/x", "- before any heading  ·m:0·\n"
                                                   "⚠ Wendlow — first\n"
                                                   "\tGlobal rules: \n"
                                                   "- Say it ·m:7· twice  ·m:1·\n"
                                                   "- never closed  ·m:2\n"
                                                   "- no id  ·m:·\n"
                                                   "  \n"
                                                   "- after a gap  ·m:3·\n"
                                                   "⚠ Wendlow — last \n"
                                                   "/x y rules:\n"
                                                   "  - Quietly,\tبهدوء  ·m:m:4·\n"
                                                   "something else\n"
                                                   "- behind the run  ·m:5·\n"
                                                   "/ rules:\n"
                                                   "- at the root  ·m:6·");
    EXPECT_EQ(spoken(card.inlineRules), "1|Say it ·m:7· twice|/\n"
                                        "3|after a gap|/\n"
                                        "m:4|Quietly,\tبهدوء|/x y\n"
                                        "6|at the root|/\n");
    EXPECT_EQ(card.warning, "⚠ Wendlow — last");
    EXPECT_EQ(EditorRulesCard::parse("/x", ""), EditorRulesCard{.scope = "/x"});
}

TEST(EditorRulesCard, readsTheTagsOfItsModules) {
    const auto card = EditorRulesCard::parse(
        "/a/b", "<rules root=\"~/r\">\n"
                "<one trigger=\"&amp;lt; &lt;&quot;&gt;&amp;\" file=\"a//b/one.md\" rev=\"-1\"/>\n"
                "<two file=\"two.md\" trigger=\"t\" rev=\"+12\" />\n"
                "<no trigger=\"t\" file=\"f\" rev=\"x\"/>\n"
                "<no trigger=\"t\" file=\"f\" rev=\"9223372036854775808\"/>\n"
                "<no trigger=\"t\" file=\"f\"/>\n"
                "<no trigger=\"t\" rev=\"1\"/>\n"
                "<no file=\"f\" rev=\"1\" trigger=\"never closed/>\n"
                "</rules>\n");
    EXPECT_EQ(card.root, "~/r");
    EXPECT_THAT(card.files,
                ElementsAre(EditorRulesFileEntry{"/a/b", "one", "&lt; <\">&", "a//b/one.md", -1},
                            EditorRulesFileEntry{"/", "two", "t", "two.md", 12}));
    EXPECT_EQ(EditorRulesCard::parse("/", "<rules root=>").root, "");
}

TEST(EditorRulesCard, tellsAnOlderDaemonsShape) {
    using Case = std::tuple<const char*, const char*, const char*, bool>;
    for (const auto& [scope, root, file, isNew] :
         {Case{"/a/b", "~/r/a/b", "one.md", false}, Case{"/a/b", "~/r", "one.md", true},
          Case{"/a/b", "~/r/xa/b", "one.md", true}, Case{"/a/b", "~/r/a/b", "a/one.md", true},
          Case{"/", "~/r", "one.md", false}}) {
        EditorRulesCard card{.scope = scope, .root = root};
        card.files = {{.scope = {}, .name = {}, .trigger = {}, .file = file}};
        EXPECT_EQ(card.isNewShape(), isNew) << scope << " " << root << " " << file;
    }
}

EditorAnswer filed(const std::vector<std::map<std::string, std::string>>& tags) {
    EditorAnswer answer;
    answer.state = EditorAnswerStateCase::Settled{};
    answer.total = std::ssize(tags);
    for (const auto& filters : tags) {
        const std::string id = "m" + std::to_string(answer.rows.size());
        answer.rows.push_back(
            {.memory = {.id = id, .type = "rule", .title = id, .filters = filters},
             .scopeID = answer.rows.size() % 2 == 0 ? "/a" : "/a/b"});
    }
    return answer;
}

TEST(EditorRulesPicture, groupsWhatIsFiledByHowItIsDelivered) {
    const EditorAnswer answer = filed({{{"rules-file", "zeta"}},
                                       {},
                                       {{"topic", "Old Habits"}},
                                       {{"rules-file", "two words"}, {"topic", "style"}},
                                       {{"topic", " Style"}},
                                       {{"rules-file", "Alpha "}},
                                       {{"rules-file", "alpha"}}});
    const auto groups = [&](bool newShape) {
        EditorRulesPicture picture;
        picture.card = EditorRulesCard{.scope = "/a"};
        picture.card->root = newShape ? "~/r" : "~/r/a";
        for (const char* const scope : {"/", "/a"})
            for (const char* const name : {"alpha", "zeta", "none"})
                picture.card->files.push_back(
                    {.scope = scope, .name = name, .trigger = {}, .file = "f"});
        picture.takeFiled(answer);
        std::string all;
        for (const auto& group : picture.filed) {
            all += std::to_string(static_cast<int>(group.tier)) + group.name + ":";
            for (const auto& rule : group.rules)
                all += " " + rule.id;
            all += "; ";
        }
        for (const auto& entry : picture.card->files)
            all += entry.ruleCount ? std::to_string(*entry.ruleCount) : "-";
        return all;
    };
    // Of the two in "alpha" one lies deeper, and what lies elsewhere is not counted.
    EXPECT_EQ(groups(true),
              "0inline rules: m1; 1unreadable rules-file tag — delivering nothing: m2 m3 m4; "
              "3alpha: m5 m6; 3zeta: m0; ---11-");
    EXPECT_EQ(groups(false),
              "0inline rules: m1; 1unreadable rules-file tag — delivering nothing: m3; "
              "2Old Habits: m2; 2style: m4; 3alpha: m5 m6; 3zeta: m0; ---11-");
}

TEST(SeededRulesPictures, showAllThreeViewsOfAWorld) {
    const auto picture = [](SeedWorld world, const char* scope) {
        const SeededContents contents = SeedWorlds::contents(world);
        return SeededRulesPictures::picture(contents, SeededQuery(contents), scope);
    };
    const auto full = picture(SeedWorld::powerUser, "/work/harbour");
    ASSERT_TRUE(full.card && full.stack && !full.gap);
    EXPECT_EQ(full.stack->levels.front().path, "/");
    EXPECT_EQ(full.stack->levels.back().path, "/work/harbour");
    EXPECT_EQ(full.stack->levels.back().rules.back(), full.card->inlineRules.back());
    EXPECT_EQ(full.filedTotal, 6);
    EXPECT_EQ(full.filed[1].tier, EditorRuleTier::undelivered);
    std::int64_t counted = 0;
    for (const auto& entry : full.card->files)
        counted += entry.ruleCount.value_or(0);
    EXPECT_EQ(counted, 3) << "of six, two ride every prompt and one reaches nobody";
    const auto none = picture(SeedWorld::dayZero, "/");
    EXPECT_EQ(none.gap, EditorRulesGap(EditorRulesGapCase::NothingCompiled{"/"}));
    EXPECT_THAT(none.filed, IsEmpty());
    EXPECT_EQ(picture(SeedWorld::someData, "/nowhere").gap,
              EditorRulesGap(EditorRulesGapCase::UnaddressableScope{"/nowhere"}));
}

} // namespace
} // namespace wendlow
