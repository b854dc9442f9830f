// What the catalogue's own values do not try: the edges of scalars, spellings that a reader takes
// and a writer does not give, and messages that are no messages.

#include "GatewayEvent.h"
#include "GatewayRequest.h"
#include "GatewayResponse.h"
#include "WireCodec.h"

#include <bit>
#include <cmath>
#include <limits>
#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace wendlow {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

/// The error as a person would note it down.
template<class T, class Error> std::string told(const std::expected<T, Error>& outcome) {
    return outcome ? "well" : outcome.error().path + ": " + outcome.error().sentence;
}

/// What is written of what was read, or why it could not be read.
std::string again(const std::string& json) {
    const bool isRequest = json.starts_with(R"({"read)") || json.starts_with(R"({"control)");
    if (isRequest) {
        const auto request = WireCodec::decodeRequest(json);
        return request ? WireCodec::encode(*request).value_or("") : told(request);
    }
    const auto response = WireCodec::decodeResponse(json);
    return response ? WireCodec::encode(*response).value_or("") : told(response);
}

TEST(Codec, KeepsEveryScalarAsItIs) {
    for (const std::string json :
         {R"({"control":{"_0":{"addConcept":{"_0":"\"a\" \\ / \b\f\n\r\t\u0001\u001f ü€😀"}}}})",
          R"({"read":{"_0":{"getThumbnail":{"momentID":9223372036854775807}}}})",
          R"({"read":{"_0":{"getThumbnail":{"momentID":-9223372036854775808}}}})",
          R"({"read":{"_0":{"getByType":{"type":"n","filters":{"a":true,"b":1.5,"c":"x"}}}}})",
          R"({"read":{"_0":{"getByType":{"type":"","filters":{}}}}})",
          R"({"icons":{"_0":{"a":"","b":"TQ==","c":"+/8=","d":"TWFu"}}})",
          R"({"noteID":{"_0":"n1","echo":[]}})"})
        EXPECT_EQ(again(json), json);
    EXPECT_EQ(again(R"({"read":{"_0":{"textBrowse":{"limit":5.0,"offset":2e1}}}})"),
              R"({"read":{"_0":{"textBrowse":{"scopes":[],"limit":5,"filters":[],"offset":20}}}})");
    const auto icons = WireCodec::decodeResponse(R"({"icons":{"_0":{"a":"AP8Q"}}})").value();
    EXPECT_EQ(icons, GatewayResponse(AnswerCase::Icons{{{"a", {{"\0\xff\x10", 3}}}}}));
}

TEST(Codec, TellsWhereAndWhatItCouldNotRead) {
    const std::pair<std::string, std::string_view> rows[] = {
        {R"({"read":{"_0":{"health":{},"recall":{"query":"x"}}}})",
         "read._0: ReadRequest expects exactly one case key, got 2"},
        {R"({"control":{"_0":{"pause":{}},"x":1}})",
         "control: Invalid number of keys found, expected one."},
        {R"({"control":{"x":{}}})", "control._0: this key is missing"},
        {R"({"read":{"_0":{"allTime":{"force":1}}}})",
         "read._0.allTime.force: expected a boolean, found a number"},
        {R"({"read":{"_0":{"getThumbnail":{"momentID":1.5}}}})",
         "read._0.getThumbnail.momentID: this number is not whole"},
        {R"({"read":{"_0":{"getThumbnail":{"momentID":9223372036854775808}}}})",
         "read._0.getThumbnail.momentID: this number is out of range"},
        {R"({"read":{"_0":{"getByType":{"type":"n","filters":{"a":[1]}}}}})",
         "read._0.getByType.filters.a: "
         "a filter value must be a scalar — string, number, or bool (no nesting or arrays)"},
        {R"({"read":{"_0":{"getByType":{"type":"n","filters":{"a":1e999}}}}})",
         ": this is not JSON: exponent overflow at byte 59"},
        {R"({"read":{"_0":{"openScreens":{"_0":[{"moment":1},{"moment":"2"}]}}}})",
         "read._0.openScreens._0[1].moment: expected a whole number, found a text"},
        {R"({"read":1)", ": this is not JSON: incomplete JSON at byte 9"},
        {"{\"control\":{\"_0\":{\"addConcept\":{\"_0\":\"\xff\"}}}}",
         ": this is not JSON: syntax error at byte 38"},
        {"{} {}", ": this is not JSON: extra data at byte 3"},
        {"[]", ": expected an object, found a list"},
        {R"({"weather":{}})", ": Unknown GatewayResponse case: weather"},
        {R"({"frontState":{"_0":"half"}})", "frontState._0: \"half\" is none of the known words"},
        {R"({"primed":{"_0":[],"distilled":true,"shortcut":{"fired":{"name":"n"}}}})",
         "primed.shortcut.fired.body: this key is missing"},
    };
    for (const auto& [json, answer] : rows)
        EXPECT_EQ(again(json), answer) << json;
    for (const char* bytes :
         {"T!==", "TQ", R"(T\u0000==)", "TWFu!", "TWFu=", "TWFuTQ==TWFu", "-_8="})
        EXPECT_EQ(again(fmt::format(R"({{"icons":{{"_0":{{"a":"{}"}}}}}})", bytes)),
                  "icons._0.a: this text is not base64")
            << bytes;
}

TEST(Codec, RefusesToWriteWhatJSONCannotHold) {
    for (const std::string_view text :
         {"\xff", "\xc0\x80", "\xed\xa0\x80", "\xf4\x90\x80\x80", "a\xe2\x82"})
        EXPECT_EQ(told(WireCodec::encode(
                      ControlRequest(ControlCase::EnterPhrase{{"a", std::string(text)}}))),
                  "control._0.enterPhrase.words[1]: a text that is not UTF-8 has no JSON");
    EXPECT_EQ(told(WireCodec::encode(ReadRequest(ReadCase::GetByType{
                  .type = "n", .filters = {{{"a", std::numeric_limits<double>::infinity()}}}}))),
              "read._0.getByType.filters.a: a number that is not finite has no JSON");
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

TEST(Codec, SurvivesHostileMessages) {
    const std::string small = WireCodec::encode(largeAnswer(2)).value_or("");
    for (std::size_t length = 0; length < small.size(); ++length)
        EXPECT_THAT(told(WireCodec::decodeResponse(std::string_view(small).substr(0, length))),
                    StartsWith(": this is not JSON: "));
    for (const std::string open : {"[", "{\"x\":"}) {
        std::string deep = R"({"ok":{"x":)";
        for (int level = 0; level < 10'000; ++level)
            deep += open;
        EXPECT_THAT(told(WireCodec::decodeResponse(deep)), HasSubstr("too deep"));
        EXPECT_THAT(told(WireCodec::decodeRequest(deep)), HasSubstr("too deep"));
    }
}

TEST(Codec, TakesTwentyMegabytesOrWhatIsLeftOfThem) {
    const GatewayResponse answer = largeAnswer(20'000);
    const std::string large = WireCodec::encode(answer).value_or("");
    EXPECT_GE(large.size(), std::size_t{20} << 20U);
    EXPECT_TRUE(WireCodec::decodeResponse(large) == answer);
    EXPECT_THAT(
        told(WireCodec::decodeResponse(std::string_view(large).substr(0, large.size() / 2))),
        StartsWith(": this is not JSON: incomplete JSON"));
}

TEST(Codec, DoublesComeBackToTheLastBit) {
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
        ASSERT_EQ(WireCodec::decodeResponse(WireCodec::encode(answer).value()), answer) << at;
    }
}

} // namespace
} // namespace wendlow
