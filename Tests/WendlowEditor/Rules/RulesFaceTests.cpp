#include "Floor/Characters.h"
#include "Rules/EditorRulesCost.h"
#include "Rules/RulesFaceModel.h"
#include "Support/ScriptedStore.h"

#include <QAbstractItemModelTester>

#include <gmock/gmock.h>

namespace wendlow::testing {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

EditorRuleLine line(const char* id, const char* text, const char* scope = "/a") {
    return {.id = id, .text = text, .scope = scope};
}

/// A picture with a rule on the card and filed, and one that is filed alone.
EditorRulesPicture picture() {
    EditorRulesPicture made;
    made.card = EditorRulesCard{.scope = "/a", .root = "~/r"};
    made.card->inlineRules = {line("m1", "Ask first")};
    made.card->files = {{"/", "style", "Read before drawing.", "style.md", 3},
                        {"/a", "import", "Read before reading.", "a/import.md", 7, 1}};
    made.stack = EditorRulesStack{.path = "/a"};
    made.stack->levels = {{"/", {line("", "Ask first", "/")}}, {"/a", {line("", "Quietly")}}};
    made.filedState = EditorAnswerStateCase::Settled{};
    made.filed = {{"inline rules", EditorRuleTier::everyPrompt, {line("m1", "Ask first")}},
                  {"import", EditorRuleTier::file, {line("m2", "Count rows", "/a/b")}}};
    made.filedTotal = 2;
    return made;
}

/// The face over a store whose rules the test gives.
struct Face {
    ScriptedRules rules;
    ScriptedScopes scopes;
    ScriptedPages pages;
    EditorAsk ask{.term = {}};
    std::int64_t generation = 0;
    std::int64_t looks = 0;
    EditorAnswer answer;
    MemoryDetails details;
    RulesFaceModel model{rules,
                         scopes,
                         pages,
                         {.ask = [this](EditorAsk next) { ask = std::move(next); },
                          .requestDetails = {},
                          .today = {}}};
    QAbstractItemModelTester tester{model.rows()};

    Face() {
        ask.scopes = {"/a"};
        model.setOpen(true);
        show();
    }
    void show() {
        model.show({.ask = ask,
                    .answer = std::make_shared<const EditorAnswer>(answer),
                    .counted = false,
                    .generation = generation,
                    .details = details,
                    .looks = looks});
    }
    /// Each row in a line: its kind, its text, and what else it tells.
    std::vector<std::string> lines() {
        std::vector<std::string> all;
        for (int row = 0; row < model.rows()->rowCount(); ++row) {
            const auto told = [&](int role) {
                return model.rows()->data(model.rows()->index(row), role).toString();
            };
            all.push_back(u"%1 %2 [%3]"_s.arg("!#-=>:*"[told(RulesRows::KindRole).toInt()])
                              .arg(told(RulesRows::TextRole), told(RulesRows::DescriptionRole))
                              .toStdString());
        }
        return all;
    }
    std::string all() {
        std::string text;
        for (const std::string& each : lines())
            text += each + "\n";
        return text;
    }
    int at(const char* id) { return model.rows()->indexOf(id); }
    bool isEditing(const char* id) { return model.rows()->row(at(id)).editing; }
    std::string outcome() { return model.outcome().toStdString(); }
};
struct RulesFace : ::testing::Test, Face {};

TEST(Characters, areWhatAPersonCounts) {
    const std::pair<const char*, int> cases[] = {{"", 0},
                                                 {"a\r\nb\n\r", 5},
                                                 {"·m:·", 4},
                                                 {"e\u0301e\u0301 x\u0304\u0308", 4},
                                                 {"👩🏽‍💻👨‍👩‍👧x", 3},
                                                 {"🇫🇷🇩🇪🇫", 3},
                                                 {"©\u200d©", 1},
                                                 {"한국어 ไทย", 7},
                                                 {"\xff\xfe", 2}};
    for (const auto& [text, count] : cases)
        EXPECT_EQ(Characters::count(text), count) << text;
}

TEST(EditorRulesCost, isEstimatedAsTheCompilerDoes) {
    EditorRulesCard card{.scope = "/"};
    EXPECT_EQ(EditorRulesCost::inlineTier(card), EditorRulesCost{});
    for (const auto& [raw, tokens] :
         {std::pair("", 0), {"a", 1}, {"👩🏽‍💻bcd", 1}, {"abcde", 2}}) {
        card.raw = raw;
        EXPECT_EQ(EditorRulesCost::wholeCard(card).tokens, tokens) << raw;
    }
    // What the card says is what the lines are written anew to, but for what else is on it.
    const std::string text = "Global rules:\n- Ask  ·m:1·\n- Tell  ·m:2·\n/x rules:\n- é  ·m:3·\n";
    card = EditorRulesCard::parse("/", text + "<no tag>\n");
    card.inlineRules[1].scope.reset();
    const std::int64_t characters = std::ssize(text) - 7; // of "é" and "·" the second byte
    EXPECT_EQ(EditorRulesCost::inlineTier(card), (EditorRulesCost{3, (characters + 3) / 4}));
}

TEST_F(RulesFace, showsWhatIsDeliveredReceivedAndFiled) {
    EXPECT_EQ(model.emptyWords(), u"Reading your rules…");
    rules.answer(picture());
    EXPECT_THAT(rules.asked, ElementsAre("/a"));
    EXPECT_EQ(model.emptyWords(), u"");
    EXPECT_THAT(
        lines(),
        ElementsAre(
            "# Rules riding every prompt [1 rule · ~8 tokens riding every prompt]",
            "= Ask first [/a]",
            HasSubstr("- The whole card — these lines plus the fetch index below — is ~0 tokens."),
            "# The stack a session receives at /a []", "> Ask first [/, injected first]",
            "> Quietly [/a, nearest the prompt]", "# Rules modules on this scope chain []",
            HasSubstr("- Compiled under ~/r. A rules module is read when"),
            ": style [/, Read before drawing., rev 3]",
            ": import [1 rule, /a, Read before reading., rev 7]", "# Rules filed here []",
            "* inline rules [1, no rules module — these ride every prompt, verbatim]",
            "= Ask first []", "* import [1]", "= Count rows [/a/b]"));
    // Stops are what can be looked at or used; a step beyond the last stays.
    const RulesRows& rows = *model.rows();
    EXPECT_EQ(rows.stop(-1, 1), 1);
    EXPECT_EQ(rows.stop(1, 1), 4);
    EXPECT_EQ(rows.stop(9, 1), 10) << "a rule can be filed from there";
    EXPECT_EQ(rows.stop(rows.rowCount(), -1), 14);
    EXPECT_EQ(rows.stop(14, 3), 14);
    EXPECT_EQ(rows.stop(4, -7), 1);
}

TEST_F(RulesFace, saysWhatIsWrongAndWhatThereIsNot) {
    namespace Gap = EditorRulesGapCase;
    using namespace EditorAnswerStateCase;
    struct Case {
        std::function<void(EditorRulesPicture&)> change;
        const char* says;
        const char* saysNot = "Nothing matches";
    };
    const auto none = [](EditorRulesPicture& of) { of.filed.clear(); };
    const Case cases[] = {
        {[](auto& of) { of.gap = Gap::NothingCompiled{"/a"}; }, "! Nothing is compiled at /a"},
        {[](auto& of) { of.gap = Gap::Failed{"read only"}; }, "! read only []\n# Rules riding"},
        {[](auto& of) { of.card->warning = "⚠ Wendlow — late"; }, "! ⚠ Wendlow — late []\n#"},
        {[](auto& of) { of.stack->levels.clear(); }, "- No rules are in force here. []"},
        {[](auto& of) { of.stack->levels.pop_back(); }, "> Ask first [/, injected first]"},
        {[](auto& of) { of.stack->overflow = 1; }, "- 1 deeper rule were dropped by the daemon’s"},
        {[](auto& of) { of.stack->overflow = 2; }, "- 2 deeper rules were dropped"},
        {none, "- No rules are filed at this scope."},
        {[&](auto& of) {
             none(of);
             of.filedState = Warming{};
         },
         "[]\n! Searching your memories will be ready", "No rules are filed"},
        {[&](auto& of) {
             none(of);
             of.filedState = Failed{"gone"};
         },
         "[]\n! gone", "No rules are filed"},
        {[](auto& of) { of.filedTotal = 501; }, "- Showing the first 500 of 501 rules filed here."},
        {[](auto& of) { of.filed[0].tier = EditorRuleTier::legacy; },
         "* inline rules [1, pre-rebuild tag — the migration sweeps this]"},
        {[](auto& of) { of.filed[0].tier = EditorRuleTier::undelivered; },
         "[1, the tag says nothing Wendlow can read — these reach no session]"},
    };
    for (const auto& [change, says, saysNot] : cases) {
        Face face;
        auto made = picture();
        change(made);
        face.rules.answer(std::move(made));
        EXPECT_THAT(face.all(), HasSubstr(says));
        EXPECT_THAT(face.all(), ::testing::Not(HasSubstr(saysNot)));
    }
    Face face;
    face.ask.scopes = {"/x", "/y"};
    face.show();
    face.rules.answer({});
    auto nothing = picture();
    nothing.card.reset();
    none(nothing);
    face.rules.answer(nothing);
    EXPECT_THAT(face.all(), HasSubstr("# Rules filed at every scope []\n- No rules are filed "
                                      "anywhere yet."));
}

TEST_F(RulesFace, narrowsWhatIsFiledByATerm) {
    rules.answer(picture());
    ask.term = "ROWS";
    show();
    EXPECT_THAT(rules.asked, ElementsAre("/a")) << "it is no other question";
    EXPECT_THAT(all(), HasSubstr("# Rules filed here []\n* import [1]\n= Count rows [/a/b]\n"));
    ask.term = "zeppelin";
    show();
    EXPECT_THAT(all(), HasSubstr("- Nothing matches “zeppelin” in the rules filed here. []"));
    EXPECT_EQ(at("group/3/import"), -1);
}

TEST_F(RulesFace, readsAgainWhenItsKeyChangesAndKeepsThePictureMeanwhile) {
    show();
    ++generation;
    show();
    EXPECT_EQ(rules.asked.size(), 2U);
    rules.answer({});
    EXPECT_EQ(model.rows()->rowCount(), 0) << "an answer to another key is dropped";
    rules.answer(picture());
    const std::string before = all();
    ask.scopes = {"/b"};
    show();
    EXPECT_EQ(all(), before);
    EXPECT_TRUE(model.refreshing());
    rules.answer(picture());
    EXPECT_FALSE(model.refreshing());
    EXPECT_EQ(model.listName(), u"Rules at /b");
    // Behind another face nothing is read, and then only what has changed.
    model.setOpen(false);
    ++generation;
    show();
    EXPECT_EQ(rules.asked.size(), 3U);
    model.setOpen(true);
    show();
    show();
    EXPECT_EQ(rules.asked.size(), 4U);
    EXPECT_EQ(model.railCount(), std::nullopt);
}

TEST_F(RulesFace, waitsForABoardUnlessNoneComes) {
    rules.answer({});
    scopes.read = false;
    ask.scopes.clear();
    show();
    EXPECT_EQ(rules.asked.size(), 1U);
    answer.state = EditorAnswerStateCase::Failed{"gone"};
    show();
    EXPECT_THAT(rules.asked, ElementsAre("/a", "/"));
}

TEST_F(RulesFace, editsARuleInPlace) {
    rules.answer(picture());
    model.activate(at("stack///Ask first"));
    model.activate(at("card/m1"));
    model.setDraft(at("card/m1"), u"Ask first"_s);
    model.commit(at("card/m1"));
    EXPECT_THAT(rules.written, IsEmpty()) << "it has not changed";
    model.setDraft(at("card/m1"), u"Ask twice"_s);
    model.commit(at("card/m1"));
    model.commit(at("card/m1"));
    EXPECT_THAT(rules.written, ElementsAre("m1: Ask first → Ask twice"));
    EXPECT_TRUE(model.rows()->row(at("card/m1")).busy);
    rules.answerWrite(EditorWriteOutcome::wrote("Saved m1."));
    EXPECT_FALSE(isEditing("card/m1"));
    EXPECT_EQ(outcome(), "Saved m1.");
    EXPECT_FALSE(model.refused());
    // Until the picture has been read again nobody sees the old words come back.
    EXPECT_EQ(model.rows()->row(at("card/m1")).text, "Ask twice");
    EXPECT_EQ(model.rows()->row(at("filed/m1")).text, "Ask twice");
    ask.scopes = {"/b"};
    show();
    EXPECT_EQ(outcome(), "") << "the rule goes from sight";
}

TEST_F(RulesFace, losesNoWordsToWhatHappensMeanwhile) {
    rules.answer(picture());
    const int row = at("filed/m2");
    model.activate(row);
    model.setDraft(row, u"Count rows twice"_s);
    // Somebody else changes the rule, which is seen at the next look, and what is typed stays.
    ++looks;
    show();
    auto other = picture();
    other.filed[1].rules[0].text = "Count columns";
    rules.answer(other);
    EXPECT_EQ(model.draft(row), u"Count rows twice");
    model.commit(row);
    EXPECT_THAT(rules.written, ElementsAre("m2: Count rows → Count rows twice"))
        << "what the other has written is not overwritten unseen";
    rules.answerWrite(EditorWriteOutcome::refused("“Count rows” does not stand there"));
    EXPECT_TRUE(model.refused());
    EXPECT_FALSE(isEditing("filed/m2"));
    EXPECT_EQ(model.rows()->row(row).text, "Count columns");
    // What was refused is not lost: editing goes on with it, now from what the rule says.
    model.activate(row);
    EXPECT_EQ(model.draft(row), u"Count rows twice");
    model.commit(row);
    EXPECT_EQ(rules.written.back(), "m2: Count columns → Count rows twice");
    // A daemon that never answers does not hold the field, and its late answer ends no other edit.
    EXPECT_TRUE(model.back());
    EXPECT_FALSE(isEditing("filed/m2"));
    model.activate(row);
    rules.answerWrite(EditorWriteOutcome::refused("gone"));
    EXPECT_TRUE(isEditing("filed/m2"));
    EXPECT_EQ(outcome(), "gone");
    model.leaveEdit(row);
    EXPECT_FALSE(model.back());
    EXPECT_EQ(rules.written.size(), 2U);
}

TEST_F(RulesFace, maySurviveNeitherItsReadNorItsWrite) {
    rules.answer(picture());
    {
        RulesFaceModel gone(rules, scopes, pages, {});
        gone.setOpen(true);
        gone.show({.ask = ask,
                   .answer = std::make_shared<const EditorAnswer>(),
                   .counted = false,
                   .generation = 1,
                   .details = details});
        rules.answer(picture());
        gone.activate(gone.rows()->indexOf("card/m1"));
        gone.setDraft(gone.rows()->indexOf("card/m1"), u"x"_s);
        gone.commit(gone.rows()->indexOf("card/m1"));
        gone.newRule();
    }
    rules.answerWrite(EditorWriteOutcome::wrote("late"));
    EXPECT_EQ(outcome(), "");
}

TEST_F(RulesFace, bringsAFoundRuleIntoSight) {
    rules.answer(picture());
    std::vector<int> revealed;
    QObject::connect(&model, &RulesFaceModel::revealed, [&](int row) { revealed.push_back(row); });
    FoundHit found;
    found.hit.destination = SearchDestination::Rule{"/b"};
    found.memory = memory("m2", "rule");
    model.reveal(found, ask);
    EXPECT_THAT(ask.scopes, ElementsAre("/b"));
    show();
    EXPECT_THAT(revealed, IsEmpty());
    rules.answer(picture());
    EXPECT_THAT(revealed, ElementsAre(at("filed/m2")));
}

TEST(RuleComposer, canSaveWhatIsWholeAndLegal) {
    const std::optional<EditorRulePlacement> everywhere = EditorRulePlacement{};
    EXPECT_TRUE(RuleComposerModel::canSave("a", "b", everywhere));
    EXPECT_FALSE(RuleComposerModel::canSave(" \t", "b", everywhere));
    EXPECT_FALSE(RuleComposerModel::canSave("a", " ", everywhere));
    // An older card's modules may all be picked, a newer one's only where they are compiled.
    auto card = picture().card;
    EXPECT_THAT(RulesPage::pickable(card, "/a"), ElementsAre("import"));
    card->root = "~/r/a";
    card->files[1].file = "import.md";
    EXPECT_THAT(RulesPage::pickable(card, "/a"), ElementsAre("style", "import"));
    EXPECT_THAT(RulesPage::pickable({}, "/a"), IsEmpty());
}

TEST_F(RulesFace, staysWithItsWordsWhereItIsRefused) {
    model.newRule();
    EXPECT_FALSE(model.isModal()) << "there is no picture yet";
    rules.answer(picture());
    RuleComposerModel& composer = *model.composer();
    model.activate(at("section/filed"));
    EXPECT_TRUE(model.isModal());
    EXPECT_EQ(composer.title(), u"New rule at /a");
    EXPECT_EQ(composer.choices(), QStringList({u"inline (no rules module — rides every prompt)"_s,
                                               u"import"_s, u"a new rules module:"_s}));
    composer.setText(u" Ask \t"_s);
    composer.setWhy(u" Why not"_s);
    EXPECT_FALSE(composer.canSave()) << "nothing is picked";
    composer.setNewName(u"two words"_s);
    EXPECT_EQ(composer.picked(), 2);
    EXPECT_THAT(composer.nameFault().toStdString(), HasSubstr("“two words” isn’t a legal"));
    composer.save();
    composer.setNewName(u" Words "_s);
    EXPECT_EQ(composer.nameFault(), u"");
    composer.save();
    composer.save();
    EXPECT_THAT(rules.written, ElementsAre("/a: Ask (Why not) in words"));
    EXPECT_TRUE(composer.isBusy());
    rules.answerWrite(EditorWriteOutcome::refused("read only"));
    EXPECT_TRUE(composer.isOpen() && !composer.isBusy());
    EXPECT_EQ(composer.refusal(), u"read only");
    EXPECT_EQ(composer.text(), u" Ask \t");
    composer.pick(1);
    composer.save();
    EXPECT_EQ(composer.refusal(), u"");
    EXPECT_EQ(rules.written.back(), "/a: Ask (Why not) in import");
    rules.answerWrite(EditorWriteOutcome::wrote("Saved m3."));
    EXPECT_FALSE(model.isModal());
    EXPECT_EQ(outcome(), "Saved m3.");
    // One that is left while it is being written is written all the same, and told.
    model.newRule();
    EXPECT_EQ(composer.text(), u"");
    composer.setText(u"a"_s);
    composer.setWhy(u"b"_s);
    composer.pick(0);
    composer.save();
    EXPECT_TRUE(model.back());
    model.newRule();
    composer.setText(u"Another"_s);
    rules.answerWrite(EditorWriteOutcome::refused("gone"));
    EXPECT_TRUE(composer.isOpen() && composer.refusal().isEmpty());
    EXPECT_EQ(outcome(), "gone");
}

} // namespace
} // namespace wendlow::testing
