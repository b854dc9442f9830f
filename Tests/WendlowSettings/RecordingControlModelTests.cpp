#include "PlayedDaemon.h"
#include "Recording/RecordingControlModel.h"

#include <QAbstractItemModelTester>
#include <QTest>

#include <gmock/gmock.h>

namespace wendlow {
namespace {

using namespace Qt::StringLiterals;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using testing::PlayedDaemon;
using Verbs = std::vector<std::string>;

Rule rule(const char* id, OpenCase<RuleKind> kind, const char* value, OpenCase<RuleTier> tier) {
    return {.id = id,
            .kind = std::move(kind),
            .value = value,
            .tier = std::move(tier),
            .origin = RuleOrigin::user,
            .enabled = true};
}

enum Group { usedApps, usedSites, usedWords, usedTopics, apps, sites, words, topics, others };

struct Recording : ::testing::Test {
    Recording() {
        daemon->answer("add_rule", {AnswerCase::Ok{}});
        daemon->answer("remove_rule", {AnswerCase::Ok{}});
        daemon->answer("favicons", {AnswerCase::Icons{}});
        tell({});
    }
    ~Recording() override { daemon->release(); }

    void tell(std::vector<Rule> rules) {
        daemon->answer("get_rules", {AnswerCase::Rules{std::move(rules)}});
    }
    RuleGroup& group(Group which) { return *model->groups()[which]; }
    Verbs in(Group which) {
        Verbs values;
        for (const RuleRow& row : group(which).rows())
            values.push_back(row.value.toStdString());
        return values;
    }
    /// As a person does.
    void type(Group which, const QString& text) {
        group(which).open();
        group(which).setTyped(text);
        group(which).commit();
    }

    std::shared_ptr<PlayedDaemon> daemon = std::make_shared<PlayedDaemon>();
    FileChooser::Answer chosen = QString();
    std::function<void()> meanwhile = [] {}; ///< while the platform's dialog is open
    std::unique_ptr<RecordingControlModel> model = std::make_unique<RecordingControlModel>(
        daemon, AppChooser::Surroundings{
                    .installed = [] { return Verbs{"Art Studio", "Mail", "Music"}; },
                    .choose = [this](FileChooser::Question) -> QCoro::Task<FileChooser::Answer> {
                        meanwhile();
                        co_return chosen;
                    }});
};

TEST_F(Recording, ShowsEachRuleInItsGroupAndDropsNone) {
    QAbstractItemModelTester tester(&group(sites),
                                    QAbstractItemModelTester::FailureReportingMode::Fatal);
    const auto unknownKind = OpenCase<RuleKind>::ofWord("window");
    const auto unknownTier = OpenCase<RuleTier>::ofWord("hushed");
    Rule off = rule("7", RuleKind::phrase, "two words", RuleTier::never);
    off.enabled = false;
    tell({rule("1", RuleKind::app, "Music", RuleTier::usageOnly),
          rule("2", RuleKind::site, "a.example", RuleTier::usageOnly),
          rule("3", RuleKind::word, "draft", RuleTier::usageOnly),
          rule("4", RuleKind::topic, "sport", RuleTier::usageOnly),
          rule("5", RuleKind::app, "Mail", RuleTier::never),
          rule("6", RuleKind::site, "\U0001F512.example", RuleTier::never), off,
          rule("8", RuleKind::topic, "health", RuleTier::never),
          rule("9", unknownKind, "Ledger", RuleTier::never),
          rule("10", RuleKind::app, "Later", unknownTier)});
    daemon->answer("favicons", {AnswerCase::Icons{{{"a.example", WireData{"no picture"}}}}});
    model->load();
    EXPECT_EQ(daemon->newlyAsked(), (Verbs{"get_rules", "favicons"}));
    EXPECT_THAT(daemon->sent.back(),
                HasSubstr("{\"hosts\":[\"a.example\",\"\U0001F512.example\"]}"));
    for (int which = usedApps; which < others; ++which)
        EXPECT_EQ(group(static_cast<Group>(which)).count(), 1) << which;
    EXPECT_THAT(in(others), ElementsAre("Ledger", "Later"));
    const auto read = [this](Group which, int role) {
        return group(which).index(0).data(role).toString().toStdString();
    };
    EXPECT_EQ(read(others, RuleGroup::TagRole), "window · never");
    EXPECT_EQ(read(apps, RuleGroup::TagRole), "Never recorded");
    EXPECT_EQ(read(usedApps, RuleGroup::TagRole), "");
    EXPECT_EQ(read(words, RuleGroup::TagRole), "Off");
    EXPECT_EQ(read(sites, RuleGroup::LetterRole), "\U0001F512") << "not half of it";
    EXPECT_EQ(group(usedSites).rows()[0].picture, "no picture");

    for (const GatewayResponse& fault :
         {GatewayResponse(AnswerCase::Failure{"away"}), GatewayResponse(AnswerCase::Flag{})}) {
        daemon->answer("get_rules", {fault});
        daemon->answer("favicons", {fault});
        model->load();
        EXPECT_THAT(in(others), ElementsAre("Ledger", "Later"));
        EXPECT_EQ(group(usedSites).rows()[0].picture, "no picture");
        EXPECT_EQ(model->error(), QString());
    }
}

TEST_F(Recording, AsksForNoIconsWithoutSites) {
    tell({rule("1", RuleKind::app, "Music", RuleTier::never)});
    model->load();
    EXPECT_EQ(daemon->newlyAsked(), Verbs{"get_rules"});
    daemon->answers.clear();
    const auto away = std::make_unique<RecordingControlModel>(daemon, AppChooser::Surroundings{});
    away->load();
    EXPECT_EQ(away->error(), u"the daemon is away"_s);
    EXPECT_FALSE(away->isKnown());
}

TEST_F(Recording, AddsWhatIsTypedInItsKindAndTier) {
    const std::tuple<Group, const char*, const char*> rows[] = {
        {usedSites, " https://www.A.example/b",
         R"({"value":"a.example","kind":"site","tier":"usageOnly"})"},
        {sites, "b.example:81", R"({"value":"b.example:81","kind":"site","tier":"never"})"},
        {words, " salary\n", R"({"value":"salary","kind":"word","tier":"never"})"},
        {words, " two words ", R"({"value":"two words","kind":"phrase","tier":"never"})"},
        {topics, "my health", R"({"value":"my health","kind":"topic","tier":"never"})"},
    };
    for (const auto& [which, typed, request] : rows) {
        daemon->sent.clear();
        daemon->newlyAsked();
        type(which, QString::fromUtf8(typed));
        EXPECT_THAT(daemon->sent.at(0), HasSubstr(request));
        EXPECT_EQ(daemon->newlyAsked(), (Verbs{"add_rule", "get_rules"})) << "and it reads again";
        EXPECT_EQ(group(which).typed(), QString::fromUtf8(typed)) << "it did not become a rule";
        EXPECT_TRUE(group(which).isAdding() && !group(which).isBusy());
        group(which).cancel();
    }
    tell({rule("1", RuleKind::word, "salary", RuleTier::never)});
    daemon->held = {"get_rules"};
    type(words, u"salary"_s);
    EXPECT_TRUE(group(words).isBusy());
    type(words, u"salary"_s);
    daemon->newlyAsked();
    daemon->release();
    EXPECT_FALSE(group(words).isAdding()) << "the reload has shown it";
    EXPECT_EQ(group(words).typed(), QString());

    daemon->newlyAsked();
    type(words, u" SALARY "_s);
    EXPECT_EQ(group(words).note(), u"“SALARY” is there already."_s);
    type(sites, u" https:// "_s);
    EXPECT_EQ(daemon->newlyAsked(), Verbs()) << "nothing is sent";
    group(words).setTyped(u"bonus"_s);
    EXPECT_EQ(group(words).note(), QString());
    group(words).remove(0);
    group(words).remove(5);
    EXPECT_EQ(daemon->newlyAsked(), (Verbs{"remove_rule", "get_rules"}));
}

TEST_F(Recording, PicksAnAppByItsName) {
    AppChooser& chooser = *model->chooser();
    tell({rule("1", RuleKind::app, "Mail", RuleTier::never)});
    model->load();
    chooser.openFor(&group(apps));
    ASSERT_TRUE(QTest::qWaitFor([&] { return chooser.names().size() == 3; }));
    chooser.setTerm(u" MU "_s);
    EXPECT_EQ(chooser.names(), QStringList{u"Music"_s});
    chooser.setTerm(u"zz"_s);
    EXPECT_EQ(chooser.emptyWords(), u"No app of that name."_s);
    daemon->newlyAsked();
    chooser.pick(u"Mail"_s);
    EXPECT_EQ(chooser.note(), u"“Mail” is there already."_s);
    EXPECT_EQ(daemon->newlyAsked(), Verbs());

    const std::pair<FileChooser::Answer, const char*> rows[] = {
        {QString(), ""},
        {std::unexpected("This desktop has no dialog."), "This desktop has no dialog."},
        {u"/Applications/notes.txt"_s, "An app ends in “.app”; this does not."},
        {u"/Applications/Mail.app"_s, "“Mail” is there already."},
    };
    for (const auto& [answer, note] : rows) {
        chosen = answer;
        chooser.other();
        EXPECT_EQ(chooser.note().toStdString(), note);
        EXPECT_TRUE(chooser.isOpen() && !chooser.isElsewhere());
    }
    tell({rule("1", RuleKind::app, "Mail", RuleTier::never),
          rule("2", RuleKind::app, "Xylo", RuleTier::never)});
    chosen = u"/Applications/Xylo.app"_s;
    chooser.other();
    EXPECT_THAT(in(apps), ElementsAre("Mail", "Xylo"));
    EXPECT_FALSE(chooser.isOpen());

    chooser.openFor(&group(apps));
    meanwhile = [&] { chooser.openFor(&group(usedApps)); };
    daemon->newlyAsked();
    chosen = u"/Applications/New.app"_s;
    chooser.other();
    EXPECT_EQ(daemon->newlyAsked(), Verbs()) << "it was chosen for the other tier";
    EXPECT_TRUE(chooser.isOpen() && !chooser.isElsewhere());
}

TEST_F(Recording, EachTierHearsOfItsOwnRule) {
    const Rule used = rule("1", RuleKind::site, "a", RuleTier::usageOnly);
    daemon->answer("get_rules",
                   {AnswerCase::Rules{{used}},
                    AnswerCase::Rules{{used, rule("2", RuleKind::site, "a", RuleTier::never)}}});
    daemon->held = {"add_rule"};
    type(usedSites, u"a"_s);
    type(sites, u"a"_s);
    daemon->release();
    EXPECT_FALSE(group(usedSites).isAdding() || group(sites).isAdding());
}

TEST_F(Recording, DropsWhatANewerLoadHasOvertaken) {
    tell({rule("1", RuleKind::topic, "old", RuleTier::never)});
    daemon->held = {"get_rules"};
    daemon->answer("get_rules",
                   {AnswerCase::Rules{{rule("2", RuleKind::topic, "a", RuleTier::never)}},
                    AnswerCase::Rules{{rule("3", RuleKind::topic, "b", RuleTier::never)}}});
    model->load();
    model->load();
    daemon->releaseBackwards();
    EXPECT_THAT(in(topics), ElementsAre("a")) << "what the older one is told is dropped";
    daemon->held = {"get_rules", "add_rule"};
    type(topics, u"c"_s);
    model->load();
    model.reset();
    daemon->release();
}

} // namespace
} // namespace wendlow
