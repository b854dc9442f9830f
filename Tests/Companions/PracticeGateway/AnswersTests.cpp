// Every request of the contract, asked of the practice gateway in the same process.

#include "Catalogue.h"
#include "GatewayPage.h"
#include "PracticeGateway.h"
#include "TemporaryHome.h"
#include "WireCodec.h"

#include <QCoroTask>

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

constexpr std::string_view questions[] = {
    R"({"recall":{"query":"backup"}})",
    R"({"primed":{"prompt":"the index"}})",
    R"({"standingRules":{"card":true,"scope":"/studio"}})",
    R"({"search":{"query":"backup"}})",
    R"({"grep":{"query":"the index"}})",
    R"({"getByType":{"type":"note"}})",
    R"({"listTypes":{}})",
    R"({"grab":{"id":"41"}})",
    R"({"getDay":{"day":"2026-11-20"}})",
    R"({"dayCard":{"day":"2026-11-20"}})",
    R"({"dayPresence":{"day":"2026-11-20"}})",
    R"({"spanHours":{"from":"2026-11-15","to":"2026-11-21"}})",
    R"({"allTime":{}})",
    R"({"dayLongestChapter":{"day":"2026-11-20"}})",
    R"({"dayStretches":{"day":"2026-11-20"}})",
    R"({"dayTopSessions":{"day":"2026-11-20"}})",
    R"({"dayAttention":{"day":"2026-11-20"}})",
    R"({"dayWeb":{"day":"2026-11-20"}})",
    R"({"getMoment":{"id":"41"}})",
    R"({"getChapter":{"id":"c1"}})",
    R"({"titleTrace":{"id":"41"}})",
    R"({"meetingGet":{"id":"MEETING","times":true}})",
    R"({"meetingTranscript":{"id":"MEETING"}})",
    R"({"meetingSearch":{"query":"machine"}})",
    R"({"meetingList":{}})",
    R"({"meetingStats":{"id":"MEETING"}})",
    R"({"meetingAt":{"id":"MEETING","at":"09:00"}})",
    R"({"getEntity":{"name":"Mara"}})",
    R"({"sessionList":{}})",
    R"({"tally":{"span":"week"}})",
    R"({"storageStats":{}})",
    R"({"recallStats":{}})",
    R"({"coverage":{}})",
    R"({"browse":{"limit":5,"offset":0}})",
    R"({"textBrowse":{"kind":"moment"}})",
    R"({"textIndexAudit":{}})",
    R"({"getScreen":{"momentID":SCREEN,"window":""}})",
    R"({"getThumbnail":{"momentID":SCREEN}})",
    R"({"openScreens":{"_0":[{"moment":SCREEN}]}})",
    R"({"favicons":{"hosts":["github.com"]}})",
    R"({"modBoard":{}})",
    R"({"health":{}})",
    R"({"getRules":{}})",
    R"({"recoveryState":{}})",
    R"({"classifierStatus":{}})",
    R"({"connectedApps":{}})",
    R"({"frontState":{}})",
    R"({"meetingLive":{}})",
    R"({"daemonBuild":{}})",
    R"({"modsList":{}})",
    R"({"diagnosticLoggingState":{}})",
    R"({"frameKeepState":{}})",
    R"({"frameStats":{}})",
    R"({"reelKeepState":{}})",
    R"({"reelStats":{}})",
    R"({"diskUsed":{}})",
    R"({"grants":{}})",
    R"({"configScan":{}})"};

std::string replaced(std::string_view text, std::string_view slot, std::string_view value) {
    std::string whole(text);
    if (const auto at = whole.find(slot); at != std::string::npos)
        whole.replace(at, slot.size(), value);
    return whole;
}

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
    std::set<std::string_view> verbs;
    for (const std::string_view question : questions) {
        verbs.insert(question.substr(0, question.find(':')));
        const auto request = replaced(replaced(question, "MEETING", meeting), "SCREEN", screen);
        const std::string answer = WireCodec::encode(ask("read", request)).value();
        for (const std::string_view nothing :
             {R"("_0":[]})", R"("_0":{}})", R"({"_0":""})", R"(":{}})", R"({"failure")"})
            EXPECT_THAT(answer, Not(HasSubstr(nothing))) << request;
    }
    EXPECT_EQ(verbs.size(), catalogue.of("read").size());
}

} // namespace
} // namespace wendlow
