// Every request of the contract, asked of the practice gateway in the same process.

#include "Catalogue.h"
#include "Files.h"
#include "GatewayPage.h"
#include "PracticeGateway.h"
#include "Service/SteeredGateway.h"
#include "TemporaryHome.h"
#include "WireCodec.h"

#include <QCoroTask>

#include <map>
#include <ranges>

#include <fmt/format.h>
#include <gmock/gmock.h>

namespace wendlow {
namespace {

using namespace testing;
using ::testing::HasSubstr;
using ::testing::Not;
using namespace std::chrono_literals;

/// On 2026-11-21 at 12:00 UTC, after a working day.
class PracticeGatewayAnswers : public ::testing::Test {
protected:
    PracticeGatewayAnswers() {
        ::setenv("TZ", "UTC", 1);
        const auto now = [] { return std::chrono::system_clock::time_point(1'795'262'400s); };
        gateway = PracticeGateway::open(home / "practice.db", {.now = now}).value();
        EXPECT_TRUE(gateway->fill(FillSize::day).has_value());
    }

    GatewayResponse ask(std::string_view family, std::string_view request) {
        const std::string json = fmt::format(R"({{"{}":{{"_0":{}}}}})", family, request);
        return QCoro::waitFor(gateway->handle(WireCodec::decodeRequest(json).value()));
    }

    /// The page says by which case a request is answered.
    void expectTold(const std::string& heading, const std::string& name,
                    const GatewayResponse& response) const {
        const auto& rows = page.table(heading);
        const auto row =
            std::ranges::find(rows, "`" + name + "`", [](auto& each) { return each[0]; });
        ASSERT_NE(row, rows.end()) << name;
        EXPECT_THAT(row->at(3), HasSubstr(fmt::format("`{}`", response.caseName()))) << name;
    }

    const std::map<std::string, std::string> families = {{"read", "ReadRequest"},
                                                         {"control", "ControlRequest"},
                                                         {"notes", "NotesRequest"},
                                                         {"diagnostic", "DiagnosticRequest"}};
    TemporaryHome home;
    std::shared_ptr<PracticeGateway> gateway;
    const Catalogue catalogue;
    const GatewayPage page;
};

/// Arguments that name nothing are refused at most; there is nothing that no room serves.
TEST_F(PracticeGatewayAnswers, AreOfTheCaseThatThePageTellsOrRefusals) {
    for (const auto& [family, heading] : families)
        for (const auto& entry : catalogue.of(family))
            for (const auto shape : {Sample::Shape::full, Sample::Shape::bare}) {
                const std::string request = Sample(catalogue, shape, 0).ofCase(entry);
                SCOPED_TRACE(request);
                const GatewayResponse response = ask(family, request);
                if (response.caseName() != "failure")
                    expectTold(heading, entry.name, response);
                EXPECT_TRUE(WireCodec::encode(response));
            }
}

/// The questions that take no arguments, those that take a day, and the others.
constexpr std::string_view ofNothing = "listTypes allTime meetingList sessionList storageStats "
                                       "recallStats coverage textIndexAudit modBoard health "
                                       "getRules recoveryState classifierStatus connectedApps "
                                       "frontState meetingLive daemonBuild modsList "
                                       "diagnosticLoggingState frameKeepState frameStats "
                                       "reelKeepState reelStats diskUsed grants configScan";
constexpr std::string_view ofADay = "getDay dayCard dayPresence dayLongestChapter dayStretches "
                                    "dayTopSessions dayAttention dayWeb";
constexpr std::string_view others = R"(recall {"query":"backup"}
primed {"prompt":"the index"}
standingRules {"card":true,"scope":"/studio"}
search {"query":"backup"}
grep {"query":"the index"}
getByType {"type":"note"}
grab {"id":"41"}
spanHours {"from":"2026-11-15","to":"2026-11-21"}
getMoment {"id":"41"}
getChapter {"id":"c1"}
titleTrace {"id":"41"}
meetingGet {"id":"MEETING","times":true}
meetingTranscript {"id":"MEETING"}
meetingSearch {"query":"machine"}
meetingStats {"id":"MEETING"}
meetingAt {"id":"MEETING","at":"09:00"}
getEntity {"name":"Mara"}
tally {"span":"week"}
browse {"limit":5,"offset":0}
textBrowse {"kind":"moment"}
getScreen {"momentID":SCREEN,"window":""}
getThumbnail {"momentID":SCREEN}
openScreens {"_0":[{"moment":SCREEN}]}
favicons {"hosts":["github.com"]})";

/// Questions whose arguments name something; nothing of a working day is empty.
TEST_F(PracticeGatewayAnswers, AreNotEmptyOnAWorkingDay) {
    const auto moments = std::get<AnswerCase::TextBrowse>(
        ask("read", R"({"textBrowse":{"kind":"moment","limit":150}})"));
    std::string screen;
    for (const TextBrowseRow& row : moments._0.rows)
        if (row.framed && row.id != "41")
            screen = row.id;
    const auto list = std::get<AnswerCase::Text>(ask("read", R"({"meetingList":{}})"))._0;
    const auto begin = list.find("- ") + 2;
    const std::string meeting = list.substr(begin, list.find(" · ") - begin);
    std::map<std::string, std::string> requests; // by verb
    const auto take = [&](std::string_view some, char between, std::string_view pattern) {
        for (const auto item : std::views::split(some, between)) {
            const std::string_view words(item.begin(), item.end());
            const auto blank = std::min(words.find(' '), words.size() - 1);
            const std::string verb(words.substr(0, words.find(' ')));
            requests.emplace(verb,
                             fmt::format(fmt::runtime(pattern), verb, words.substr(blank + 1)));
        }
    };
    take(ofNothing, ' ', R"({{"{}":{{}}}})");
    take(ofADay, ' ', R"({{"{}":{{"day":"2026-11-20"}}}})");
    take(replaced(std::string(others), {{"MEETING", meeting}, {"SCREEN", screen}}), '\n',
         R"({{"{}":{}}})");
    for (const auto& [verb, request] : requests) {
        const GatewayResponse response = ask("read", request);
        expectTold("ReadRequest", verb, response);
        const std::string answer = WireCodec::encode(response).value();
        for (const std::string_view nothing :
             {R"("_0":[]})", R"("_0":{}})", R"({"_0":""})", R"(":{}})", R"({"failure")"})
            EXPECT_THAT(answer, Not(HasSubstr(nothing))) << request;
    }
    EXPECT_EQ(requests.size(), catalogue.of("read").size());
}

/// In an order in which each finds what it names. What is out of place here is always refused.
constexpr std::string_view commands =
    R"(notes write {"text":"a","why":"b","writer":"c","type":"rule","path":"/studio"}
notes edit {"id":"NOTE","text":"b"}
notes patch {"id":"NOTE","field":"text","find":"b","replace":"c","replaceAll":false}
notes editFilters {"id":"NOTE","set":{"d":1}}
notes delete {"id":"NOTE"}
notes mapPath {"folder":"/p","path":"/studio"}
notes setPath {"path":"/studio","writer":"c","session":"s"}
notes modInstall {"name":"decision-log","writer":"c"}
notes selfNames {}
notes listPaths {}
notes scopeBoard {}
diagnostic log {"source":"settings","line":"x"}
control addRule {"value":"works.a","kind":"app","tier":"never"}
control toggleRule {"id":"RULE","enabled":false}
control removeRule {"id":"RULE"}
control addConcept {"_0":"x"}
control removeConcept {"_0":"x"}
control forget {"thingID":"41"}
control deleteUtterance {"meeting":"m","rowid":1,"witness":"w"}
control connectApp {"_0":"codex"}
control disconnectApp {"_0":"codex"}
control pauseFor {"minutes":5}
control pause {}
control resume {}
control setDiagnosticLogging {"_0":true}
control setFrameKeep {"_0":true}
control setReelKeep {"_0":true}
control logUpdate {"line":"x"}
control requestGrant {"kind":"microphone"}
control generatePhrase {}
control revealPhrase {}
control deleteAll {}
control shutdown {})";
/// A phrase is entered where no key is, and here one is.
const std::set<std::string> alwaysRefused{"export", "storeKeyForMigration", "enterPhrase"};

TEST_F(PracticeGatewayAnswers, AreOfTheCaseThatThePageTellsForEachCommand) {
    std::string note, rule;
    std::set<std::string> asked(alwaysRefused);
    for (const auto item : std::views::split(commands, '\n')) {
        const std::string line(item.begin(), item.end());
        const auto family = line.substr(0, line.find(' '));
        const auto name = line.substr(family.size() + 1, line.find(" {") - family.size() - 1);
        const auto items = replaced(line.substr(line.find('{')), {{"NOTE", note}, {"RULE", rule}});
        const auto response = ask(family, fmt::format(R"({{"{}":{}}})", name, items));
        expectTold(families.at(family), name, response);
        if (const auto* const id = std::get_if<AnswerCase::NoteID>(&response); id && note.empty())
            note = id->_0;
        if (name == "addRule")
            rule = std::get<AnswerCase::Rules>(ask("read", R"({"getRules":{}})"))._0.back().id;
        asked.insert(name);
    }
    EXPECT_EQ(asked.size(), catalogue.of("control").size() + catalogue.of("notes").size() +
                                catalogue.of("diagnostic").size());
}

/// In place of the answer that it would get, and nothing is done.
TEST_F(PracticeGatewayAnswers, ComeOtherwiseForTheVerbsThatAreSteered) {
    SteeredGateway::Answers answers;
    EXPECT_TRUE(SteeredGateway::refuse("add_rule=the disk = full", answers));
    EXPECT_TRUE(SteeredGateway::unimplemented("get_rules", answers));
    EXPECT_TRUE(SteeredGateway::garble("self_names", answers));
    EXPECT_EQ(SteeredGateway::garble("addRule", answers), std::unexpected("addRule"));
    SteeredGateway steered(gateway, answers);
    const auto said = [&](const char* request) {
        return WireCodec::encode(
                   QCoro::waitFor(steered.handle(WireCodec::decodeRequest(request).value())))
            .value();
    };
    EXPECT_EQ(said(R"({"control":{"_0":{"addRule":{"value":"x","kind":"word","tier":"never"}}}})"),
              R"({"failure":{"message":"the disk = full"}})");
    EXPECT_EQ(said(R"({"read":{"_0":{"getRules":{}}}})"),
              R"({"unimplemented":{"verb":"get_rules"}})");
    EXPECT_EQ(said(R"({"notes":{"_0":{"selfNames":{}}}})"), R"({"lineDelete":{"_0":"notFound"}})");
    EXPECT_EQ(said(R"({"read":{"_0":{"frameKeepState":{}}}})"), R"({"flag":{"_0":true}})");
}

TEST(PracticeGatewayKey, IsGivenBackByItsWordsWhichStartsTheGatewayAgain) {
    const TemporaryHome home;
    int restarts = 0;
    const auto gateway =
        PracticeGateway::open(home / "x" / "practice.db", {.restart = [&] { ++restarts; }}).value();
    const auto ask = [&](ControlRequest request) {
        GatewayRequest whole = std::move(request);
        return QCoro::waitFor(gateway->handle(std::move(whole)));
    };
    gateway->protect(StoreProtection::armed);
    const auto words = std::get<AnswerCase::Phrase>(ask(ControlCase::RevealPhrase{}))._0;
    gateway->protect(StoreProtection::locked);
    EXPECT_EQ(ask(ControlCase::Pause{}).caseName(), "failure") << "a locked store says so";
    EXPECT_EQ(ask(ControlCase::EnterPhrase{{"one"}}).caseName(), "failure");
    EXPECT_EQ(restarts, 0);
    EXPECT_EQ(ask(ControlCase::EnterPhrase{words}).caseName(), "text");
    EXPECT_EQ(restarts, 1);
    EXPECT_EQ(ask(ControlCase::Pause{}).caseName(), "ok");
}

} // namespace
} // namespace wendlow
