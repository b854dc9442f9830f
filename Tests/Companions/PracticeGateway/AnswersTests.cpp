// Every request of the contract, asked of the practice gateway in the same process.

#include "Catalogue.h"
#include "Files.h"
#include "GatewayPage.h"
#include "PracticeGateway.h"
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

    TemporaryHome home;
    std::shared_ptr<PracticeGateway> gateway;
    const Catalogue catalogue;
    const GatewayPage page;
};

/// The page says by which case a request is answered. Arguments that name nothing are refused at
/// most; there is nothing that no room serves.
TEST_F(PracticeGatewayAnswers, AreOfTheCaseThatThePageTells) {
    const std::pair<const char*, const char*> families[] = {{"read", "ReadRequest"},
                                                            {"control", "ControlRequest"},
                                                            {"notes", "NotesRequest"},
                                                            {"diagnostic", "DiagnosticRequest"}};
    // What needs no more than its own shape is not refused either.
    const std::set<std::string> neverRefused = {"addConcept",    "connectApp",
                                                "disconnectApp", "pause",
                                                "resume",        "setDiagnosticLogging",
                                                "setFrameKeep",  "setReelKeep",
                                                "logUpdate",     "generatePhrase",
                                                "deleteAll",     "shutdown",
                                                "selfNames",     "listPaths",
                                                "scopeBoard",    "log"};
    for (const auto& [family, heading] : families)
        for (std::size_t index = 0; index < catalogue.of(family).size(); ++index) {
            const auto& entry = catalogue.of(family)[index];
            const std::string told = page.table(heading)[index].at(3);
            for (const auto shape : {Sample::Shape::full, Sample::Shape::bare}) {
                const std::string request = Sample(catalogue, shape, 0).ofCase(entry);
                SCOPED_TRACE(request);
                const GatewayResponse response = ask(family, request);
                const std::string which(response.caseName());
                const bool isRefused = which == "failure" && !neverRefused.contains(entry.name);
                EXPECT_TRUE(isRefused || told.find("`" + which + "`") != std::string::npos)
                    << which << " where the page tells " << told;
                EXPECT_TRUE(WireCodec::encode(response));
            }
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
        const std::string answer = WireCodec::encode(ask("read", request)).value();
        for (const std::string_view nothing :
             {R"("_0":[]})", R"("_0":{}})", R"({"_0":""})", R"(":{}})", R"({"failure")"})
            EXPECT_THAT(answer, Not(HasSubstr(nothing))) << request;
    }
    EXPECT_EQ(requests.size(), catalogue.of("read").size());
}

} // namespace
} // namespace wendlow
