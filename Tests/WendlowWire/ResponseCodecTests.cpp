#include "GatewayEvent.h"
#include "GatewayResponse.h"
#include "WireCodec.h"

#include <bit>
#include <cmath>
#include <random>
#include <string>
#include <string_view>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace wendlow {
namespace {

std::string told(const std::expected<GatewayResponse, DecodeError>& decoded) {
    return decoded ? "decoded" : decoded.error().path + ": " + decoded.error().sentence;
}

TEST(ResponseCodec, WritesAndReadsEveryShape) {
    const TextBrowseRow row{.id = "m1",
                            .type = "note",
                            .scope = "/work",
                            .title = "t",
                            .at = 1794000000.125,
                            .filters = {{"a", true}, {"b", 2.0}},
                            .score = 0.1,
                            .files = {{"x"}},
                            .framed = true};
    TextBrowseAnswer browsed{};
    browsed.ready = true;
    browsed.total = 1;
    browsed.rows = {row};
    browsed.byKind = {{.kind = "k", .count = 3}};
    const std::pair<std::string_view, GatewayResponse> rows[] = {
        {R"({"ok":{}})", AnswerCase::Ok{}},
        {R"({"failure":{"message":"no — \"not\" now"}})", AnswerCase::Failure{"no — \"not\" now"}},
        {R"({"flag":{"_0":true}})", AnswerCase::Flag{true}},
        {R"({"standingWalk":{"_0":{"path":"/","levels":[{"path":"/","rules":["r"]}],"overflow":0,"announce":false}}})",
         AnswerCase::StandingWalk{
             RulesWalk{.path = "/", .levels = {{"/", {"r"}}}, .announce = false}}},
        {R"({"primed":{"_0":[],"distilled":true}})",
         AnswerCase::Primed{._0 = {}, .distilled = true}},
        {R"({"primed":{"_0":[{"when":"a","whenRelative":"b","chapter":"c","gist":"d","evidence":"e","grabId":"f"}],"distilled":false,"shortcut":{"list":{"_0":[{"name":"n","when":"w","duplicates":1}],"detail":{"name":"n","body":"b","duplicates":0}}}}})",
         AnswerCase::Primed{
             ._0 = {{"a", "b", "c", "d", "e", "f"}},
             .shortcut = ShortcutCase::List{._0 = {{"n", "w", 1}},
                                            .detail = ShortcutDetail{.name = "n", .body = "b"}}}},
        {R"({"images":{"_0":[{"moment":1,"window":"w","heic":"AP8Q"},{"moment":2,"window":"","note":"x"}]}})",
         AnswerCase::Images{{{.moment = 1, .window = "w", .heic = WireData{{"\0\xff\x10", 3}}},
                             {.moment = 2, .window = "", .note = "x"}}}},
        {R"({"icons":{"_0":{"a.example":"","b.example":"TQ=="}}})",
         AnswerCase::Icons{{{"a.example", {}}, {"b.example", {"M"}}}}},
        {R"({"frontState":{"_0":"titleOnly"}})", AnswerCase::FrontState{FrontRecording::titleOnly}},
        {R"({"standingWalk":{}})", AnswerCase::StandingWalk{}},
        {R"({"presence":{"_0":{"day":"2026-03-01","apps":[],"active":0}}})",
         AnswerCase::Presence{DayPresence{.day = "2026-03-01", .apps = {}}}},
        {R"({"frameStats":{"_0":{"screenshots":2}}})", AnswerCase::FrameStats{{.screenshots = 2}}},
        {R"({"noteID":{"_0":"n1","echo":[]}})", AnswerCase::NoteID{"n1", {{}}}},
        {R"({"textBrowse":{"_0":{"ready":true,"total":1,"rows":[{"id":"m1","type":"note","scope":"/work","title":"t","at":1794000000.125,"filters":[{"key":"a","value":true},{"key":"b","value":2}],"score":0.1,"files":["x"],"framed":true}],"byType":[],"byScope":[],"byKind":[{"kind":"k","count":3}],"byFilter":[],"narrowed":false}}})",
         AnswerCase::TextBrowse{browsed}},
    };
    for (const auto& [json, response] : rows) {
        EXPECT_EQ(WireCodec::encode(response), std::string(json));
        EXPECT_EQ(WireCodec::decodeResponse(json), response)
            << json << "\n"
            << told(WireCodec::decodeResponse(json));
    }
}

TEST(ResponseCodec, FillsInWhatOlderDaemonsLeaveOutAndDropsWhatNewerOnesAdd) {
    const auto answer = WireCodec::decodeResponse(
        R"({"textBrowse":{"_0":{"ready":false,"total":0,"byType":[],"byScope":[],"later":{"x":[1]},
            "rows":[{"id":"i","type":"t","scope":"s","title":"u","at":1,"filters":[],"new":7}]}}})");
    TextBrowseAnswer expected{};
    expected.rows = {{.id = "i", .type = "t", .scope = "s", .title = "u", .at = 1, .filters = {}}};
    EXPECT_EQ(answer, GatewayResponse(AnswerCase::TextBrowse{expected})) << told(answer);
}

TEST(ResponseCodec, RefusesWhatItCannotRead) {
    const std::pair<std::string_view, std::string_view> rows[] = {
        {R"({"weather":{}})", ": Unknown GatewayResponse case: weather"},
        {R"({"ok":true})", "ok: expected an object, found a boolean"},
        {R"({"failure":{}})", "failure.message: this key is missing"},
        {R"({"frontState":{"_0":"half"}})", "frontState._0: \"half\" is none of the known words"},
        {R"({"icons":{"_0":{"a":"TQ==","b":"T!=="}}})", "icons._0.b: this text is not base64"},
        {R"({"icons":{"_0":{"a":"TQ"}}})", "icons._0.a: this text is not base64"},
        {R"({"icons":{"_0":{"a":"T\u0000=="}}})", "icons._0.a: this text is not base64"},
        {R"({"primed":{"_0":[],"distilled":true,"shortcut":{"fired":{"name":"n"}}}})",
         "primed.shortcut.fired.body: this key is missing"},
        {R"({"textBrowse":{"_0":{"ready":true,"total":0,"rows":[],"byType":[]}}})",
         "textBrowse._0.byScope: this key is missing"},
    };
    for (const auto& [json, answer] : rows)
        EXPECT_EQ(told(WireCodec::decodeResponse(json)), answer) << json;
}

/// Many rows, texts with every kind of character that JSON writes in its own way, and numbers.
GatewayResponse largeAnswer(std::size_t rows) {
    TextBrowseAnswer answer{};
    answer.rows.resize(rows);
    for (TextBrowseRow& row : answer.rows) {
        row.title = "a \"b\" \\ \n\t\x01 ü€😀";
        row.filters = {{"k", true}, {"n", -1.5e-7}, {"s", "x"}};
        row.passage = std::string(900, 'p');
    }
    return AnswerCase::TextBrowse{answer};
}

TEST(ResponseCodec, SurvivesHostileReplies) {
    const std::string small = WireCodec::encode(largeAnswer(2)).value_or("");
    for (std::size_t length = 0; length < small.size(); ++length)
        EXPECT_THAT(told(WireCodec::decodeResponse(std::string_view(small).substr(0, length))),
                    ::testing::StartsWith(": this is not JSON: "));

    for (const std::string open : {"[", "{\"x\":"}) {
        std::string deep = R"({"ok":{"x":)";
        for (int level = 0; level < 10'000; ++level)
            deep += open;
        EXPECT_THAT(told(WireCodec::decodeResponse(deep)), ::testing::HasSubstr("too deep"));
    }
}

TEST(ResponseCodec, TakesTwentyMegabytesOrWhatIsLeftOfThem) {
    const GatewayResponse answer = largeAnswer(20'000);
    const std::string large = WireCodec::encode(answer).value_or("");
    EXPECT_GE(large.size(), std::size_t{20} << 20U);
    EXPECT_TRUE(WireCodec::decodeResponse(large) == answer);
    EXPECT_THAT(
        told(WireCodec::decodeResponse(std::string_view(large).substr(0, large.size() / 2))),
        ::testing::StartsWith(": this is not JSON: incomplete JSON"));
    const GatewayResponse text = AnswerCase::Text{large};
    EXPECT_TRUE(WireCodec::decodeResponse(WireCodec::encode(text).value_or("")) == text);
}

TEST(ResponseCodec, DoublesComeBackToTheLastBit) {
    std::mt19937_64 random(7); // a fixed seed: a failure repeats
    for (int count = 0; count < 20'000; ++count) {
        const double at = std::bit_cast<double>(random());
        if (!std::isfinite(at))
            continue;
        TextBrowseAnswer numbers{};
        numbers.rows.resize(1);
        numbers.rows[0].at = at;
        numbers.rows[0].score = at / 3;
        const GatewayResponse answer = AnswerCase::TextBrowse{numbers};
        const auto json = WireCodec::encode(answer);
        ASSERT_TRUE(json.has_value());
        ASSERT_EQ(WireCodec::decodeResponse(*json), answer) << *json;
    }
}

TEST(EventCodec, CarriesTheFrontState) {
    const GatewayEvent event = EventCase::FrontState{FrontRecording::blocked};
    EXPECT_EQ(WireCodec::decodeEvent(WireCodec::encode(event).value_or("")), event);
}

} // namespace
} // namespace wendlow
