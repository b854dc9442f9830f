// Every request that there is, asked once of the practice gateway on a working day.

#include "PracticeGateway.h"
#include "TemporaryHome.h"
#include "WireCodec.h"

#include <set>
#include <span>

#include <QCoroTask>
#include <fmt/format.h>
#include <gmock/gmock.h>

namespace wendlow {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;
using namespace std::chrono_literals;

struct Row {
    std::string_view request; ///< without the envelope
    std::string_view answers; ///< the cases with which it may be answered
};

constexpr Row reads[] = {
    {R"({"recall":{"query":"backup"}})", "cards"},
    {R"({"primed":{"prompt":"the index"}})", "primed"},
    {R"({"standingRules":{"card":true,"scope":"/studio"}})", "rulesCard"},
    {R"({"search":{"query":"backup"}})", "cards"},
    {R"({"grep":{"query":"the index"}})", "cards"},
    {R"({"getByType":{"type":"note"}})", "kindCards"},
    {R"({"listTypes":{}})", "kindTypes"},
    {R"({"grab":{"id":"41"}})", "thing"},
    {R"({"getDay":{"day":"2026-11-20"}})", "text"},
    {R"({"dayCard":{"day":"2026-11-20"}})", "thing"},
    {R"({"dayPresence":{"day":"2026-11-20"}})", "presence"},
    {R"({"spanHours":{"from":"2026-11-15","to":"2026-11-21"}})", "spanHours"},
    {R"({"allTime":{}})", "allTime"},
    {R"({"dayLongestChapter":{"day":"2026-11-20"}})", "longestChapter"},
    {R"({"dayStretches":{"day":"2026-11-20"}})", "stretches"},
    {R"({"dayTopSessions":{"day":"2026-11-20"}})", "topSessions"},
    {R"({"dayAttention":{"day":"2026-11-20"}})", "attention"},
    {R"({"dayWeb":{"day":"2026-11-20"}})", "web"},
    {R"({"getMoment":{"id":"41"}})", "thing"},
    {R"({"getChapter":{"id":"c1"}})", "thing"},
    {R"({"titleTrace":{"id":"41"}})", "text"},
    {R"({"meetingGet":{"id":"MEETING","times":true}})", "text"},
    {R"({"meetingTranscript":{"id":"MEETING"}})", "transcript"},
    {R"({"meetingSearch":{"query":"machine"}})", "cards"},
    {R"({"meetingList":{}})", "text"},
    {R"({"meetingStats":{"id":"MEETING"}})", "text"},
    {R"({"meetingAt":{"id":"MEETING","at":"09:00"}})", "text"},
    {R"({"getEntity":{"name":"Mara"}})", "thing"},
    {R"({"sessionList":{}})", "sessions"},
    {R"({"tally":{"span":"week"}})", "text"},
    {R"({"storageStats":{}})", "text"},
    {R"({"recallStats":{}})", "text"},
    {R"({"coverage":{}})", "text"},
    {R"({"browse":{"limit":5,"offset":0}})", "cards"},
    {R"({"textBrowse":{"kind":"moment"}})", "textBrowse"},
    {R"({"textIndexAudit":{}})", "textIndexAudit"},
    {R"({"getScreen":{"momentID":SCREEN,"window":""}})", "image"},
    {R"({"getThumbnail":{"momentID":SCREEN}})", "image"},
    {R"({"openScreens":{"_0":[{"moment":SCREEN}]}})", "images"},
    {R"({"favicons":{"hosts":["github.com"]}})", "icons"},
    {R"({"modBoard":{}})", "modBoard"},
    {R"({"health":{}})", "text"},
    {R"({"getRules":{}})", "rules"},
    {R"({"recoveryState":{}})", "text"},
    {R"({"classifierStatus":{}})", "text"},
    {R"({"connectedApps":{}})", "text"},
    {R"({"frontState":{}})", "frontState"},
    {R"({"meetingLive":{}})", "text"},
    {R"({"daemonBuild":{}})", "text"},
    {R"({"modsList":{}})", "text"},
    {R"({"diagnosticLoggingState":{}})", "flag"},
    {R"({"frameKeepState":{}})", "flag"},
    {R"({"frameStats":{}})", "frameStats"},
    {R"({"reelKeepState":{}})", "flag"},
    {R"({"reelStats":{}})", "reelStats"},
    {R"({"diskUsed":{}})", "diskUsed"},
    {R"({"grants":{}})", "grants"},
    {R"({"configScan":{}})", "text"},
};

constexpr Row notes[] = {
    {R"({"write":{"text":"x","why":"","writer":"w","type":"note","path":"/"}})", "noteID"},
    {R"({"delete":{"id":"m40"}})", "text"},
    {R"({"edit":{"id":"m41","why":"y"}})", "noteID"},
    {R"({"patch":{"id":"m41","field":"why","find":"y","replace":"z","replaceAll":false}})",
     "noteID"},
    {R"({"editFilters":{"id":"m41","set":{"a":1}}})", "noteID"},
    {R"({"mapPath":{"folder":"/tmp/x","path":"/studio"}})", "text"},
    {R"({"setPath":{"path":"/studio","writer":"w","session":"s"}})", "text"},
    {R"({"modInstall":{"name":"ticket-sweep","writer":"w"}})", "text"},
    {R"({"selfNames":{"names":["Mara"]}})", "noteID"},
    {R"({"listPaths":{}})", "text"},
    {R"({"scopeBoard":{}})", "scopeBoard"},
};

constexpr Row diagnostics[] = {{R"({"log":{"source":"editor","line":"x"}})", "ok"}};

// Two are refused, since there is no key to hand out and no file to write beside its own.
constexpr Row controls[] = {
    {R"({"addRule":{"value":"x","kind":"word","tier":"never"}})", "ok"},
    {R"({"toggleRule":{"id":"r1","enabled":false}})", "ok"},
    {R"({"removeRule":{"id":"r1"}})", "ok"},
    {R"({"addConcept":{"_0":"money"}})", "ok"},
    {R"({"removeConcept":{"_0":"money"}})", "ok"},
    {R"({"forget":{"thingID":"41"}})", "ok"},
    {R"({"deleteUtterance":{"meeting":"MEETING","rowid":1,"witness":""}})", "lineDelete"},
    {R"({"connectApp":{"_0":"codex"}})", "ok"},
    {R"({"disconnectApp":{"_0":"codex"}})", "ok"},
    {R"({"enterPhrase":{"words":[]}})", "failure"},
    {R"({"pauseFor":{"minutes":5}})", "ok"},
    {R"({"pause":{}})", "ok"},
    {R"({"resume":{}})", "ok"},
    {R"({"export":{"path":"/tmp/x"}})", "failure"},
    {R"({"setDiagnosticLogging":{"_0":true}})", "ok"},
    {R"({"setFrameKeep":{"_0":false}})", "ok"},
    {R"({"setReelKeep":{"_0":false}})", "ok"},
    {R"({"logUpdate":{"line":"x"}})", "ok"},
    {R"({"requestGrant":{"kind":"microphone"}})", "ok"},
    {R"({"storeKeyForMigration":{"legs":1}})", "failure"},
    {R"({"revealPhrase":{}})", "phrase"},
    {R"({"generatePhrase":{}})", "phrase"},
    {R"({"deleteAll":{}})", "ok"},
    {R"({"shutdown":{}})", "ok"},
};

class EveryRequest : public ::testing::Test {
protected:
    EveryRequest() {
        ::setenv("TZ", "UTC", 1);
        // 2026-11-21 12:00 UTC
        const auto now = [] { return std::chrono::system_clock::time_point(1'795'262'400s); };
        gateway = PracticeGateway::open(home / "practice.db", {.now = now}).value();
        EXPECT_TRUE(gateway->fill(FillSize::day).has_value());
    }

    GatewayResponse ask(std::string_view kind, std::string_view request) {
        const auto decoded =
            WireCodec::decodeRequest(fmt::format(R"({{"{}":{{"_0":{}}}}})", kind, request));
        if (!decoded)
            return AnswerCase::Failure{decoded.error().sentence};
        verbs.emplace(decoded->verb());
        return QCoro::waitFor(gateway->handle(*decoded));
    }
    std::string said(std::string_view kind, std::string_view request) {
        return WireCodec::encode(ask(kind, request)).value();
    }

    testing::TemporaryHome home;
    std::shared_ptr<PracticeGateway> gateway;
    std::set<std::string> verbs;
};

std::string replaced(std::string_view text, std::string_view slot, std::string_view value) {
    std::string whole(text);
    if (const auto at = whole.find(slot); at != std::string::npos)
        whole.replace(at, slot.size(), value);
    return whole;
}

TEST_F(EveryRequest, HasAnAnswerOfItsOwn) {
    const auto page = std::get<AnswerCase::TextBrowse>(
        ask("read", R"({"textBrowse":{"kind":"moment","limit":150}})"));
    std::string screen;
    for (const TextBrowseRow& row : page._0.rows)
        if (row.framed && row.id != "41")
            screen = row.id;
    const auto list = std::get<AnswerCase::Text>(ask("read", R"({"meetingList":{}})"))._0;
    const auto begin = list.find("- ") + 2;
    const std::string meeting = list.substr(begin, list.find(" · ") - begin);
    const struct {
        std::string_view kind;
        std::span<const Row> rows;
        std::size_t cases;
    } kinds[] = {{"read", reads, std::variant_size_v<ReadRequest::variant>},
                 {"notes", notes, std::variant_size_v<NotesRequest::variant>},
                 {"diagnostic", diagnostics, std::variant_size_v<DiagnosticRequest::variant>},
                 {"control", controls, std::variant_size_v<ControlRequest::variant>}};
    for (const auto& kind : kinds) {
        verbs.clear();
        for (const Row& row : kind.rows) {
            const std::string request =
                replaced(replaced(row.request, "MEETING", meeting), "SCREEN", screen);
            const std::string answer = said(kind.kind, request);
            EXPECT_EQ(answer.substr(0, answer.find(':')), fmt::format("{{\"{}\"", row.answers))
                << request << "\n"
                << answer.substr(0, 300);
            // Nothing of a working day is empty.
            if (row.answers == "ok")
                continue;
            for (const std::string_view nothing : {R"("_0":[]})", R"({"_0":""})", R"(":{}})"})
                EXPECT_THAT(answer, Not(HasSubstr(nothing))) << request;
        }
        EXPECT_EQ(verbs.size(), kind.cases) << kind.kind;
    }
}

} // namespace
} // namespace wendlow
