#include "GatewayRequest.h"
#include "WireCodec.h"

#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace wendlow {
namespace {

struct Shape {
    std::string_view json;
    GatewayRequest request;
    std::string_view verb;
};

std::vector<Shape> shapes() {
    using Filters = std::map<std::string, FilterValue>;
    return {
        {R"({"read":{"_0":{"health":{}}}})", ReadRequest(ReadCase::Health{}), "health"},
        {R"({"read":{"_0":{"recall":{"query":"budget","from":"2026-03-01"}}}})",
         ReadRequest(ReadCase::Recall{.query = "budget", .from = "2026-03-01"}), "recall"},
        {R"({"read":{"_0":{"allTime":{"force":false}}}})", ReadRequest(ReadCase::AllTime{}),
         "all_time_get_totals"},
        {R"({"read":{"_0":{"textBrowse":{"scopes":["/work"],"filters":[],"offset":0}}}})",
         ReadRequest(ReadCase::TextBrowse{.scopes = {"/work"}, .filters = {}}), "text_browse"},
        {R"({"read":{"_0":{"openScreens":{"_0":[{"moment":41,"window":"Mail"}]}}}})",
         ReadRequest(ReadCase::OpenScreens{{{.moment = 41, .window = "Mail"}}}), "screen_open"},
        {R"({"read":{"_0":{"getThumbnail":{"momentID":-7}}}})",
         ReadRequest(ReadCase::GetThumbnail{-7}), "thumbnail_get"},
        {R"({"read":{"_0":{"getByType":{"type":"note"}}}})",
         ReadRequest(ReadCase::GetByType{.type = "note"}), "memory_get_by_type"},
        {R"({"read":{"_0":{"getByType":{"type":"n","filters":{"a":true,"b":1.5,"c":"x"}}}}})",
         ReadRequest(ReadCase::GetByType{.type = "n",
                                         .filters = Filters{{"a", true}, {"b", 1.5}, {"c", "x"}}}),
         "memory_get_by_type"},
        {R"({"read":{"_0":{"getByType":{"type":"note","filters":{}}}}})",
         ReadRequest(ReadCase::GetByType{.type = "note", .filters = Filters{}}),
         "memory_get_by_type"},
        {R"({"control":{"_0":{"pause":{}}}})", ControlRequest(ControlCase::Pause{}), "pause"},
        {R"({"control":{"_0":{"pauseFor":{"minutes":0}}}})",
         ControlRequest(ControlCase::PauseFor{}), "pause_for"},
        {R"({"control":{"_0":{"addConcept":{"_0":"a \"b\"\n\\ \u0001 ü€😀"}}}})",
         ControlRequest(ControlCase::AddConcept{"a \"b\"\n\\ \x01 ü€😀"}), "add_concept"},
        {R"({"control":{"_0":{"setFrameKeep":{"_0":true}}}})",
         ControlRequest(ControlCase::SetFrameKeep{true}), "set_frame_keep"},
        {R"({"control":{"_0":{"deleteUtterance":{"meeting":"m","rowid":9223372036854775807,"witness":"w"}}}})",
         ControlRequest(ControlCase::DeleteUtterance{"m", 9223372036854775807, "w"}),
         "delete_utterance"},
        {R"({"notes":{"_0":{"selfNames":{}}}})", NotesRequest(NotesCase::SelfNames{}),
         "self_names"},
        {R"({"notes":{"_0":{"editFilters":{"id":"i","unset":["k"]}}}})",
         NotesRequest(NotesCase::EditFilters{.id = "i", .unset = {{"k"}}}), "memory_edit_filters"},
        {R"({"diagnostic":{"_0":{"log":{"source":"settings","line":"x"}}}})",
         DiagnosticRequest(DiagnosticCase::Log{"settings", "x"}), "log"},
    };
}

TEST(RequestCodec, WritesAndReadsEveryShape) {
    for (const Shape& shape : shapes()) {
        EXPECT_EQ(WireCodec::encode(shape.request), std::string(shape.json));
        EXPECT_EQ(WireCodec::decodeRequest(shape.json), shape.request) << shape.json;
        EXPECT_EQ(shape.request.verb(), shape.verb);
    }
}

TEST(RequestCodec, ReadsQuestionsLeniently) {
    const std::pair<std::string, ReadRequest> rows[] = {
        {R"({"health":true})", ReadCase::Health{}},
        {R"({"allTime":{"force":null,"later":[{"x":1}]}})", ReadCase::AllTime{}},
        {R"({"textBrowse":{}})", ReadCase::TextBrowse{}},
        {R"({"textBrowse":{"limit":5.0,"offset":2e1}})",
         ReadCase::TextBrowse{.scopes = {}, .limit = 5, .filters = {}, .offset = 20}},
        {R"({"openScreens":{}})", ReadCase::OpenScreens{}},
        {R"({"recall":{"query":"x","to":null}})", ReadCase::Recall{.query = "x"}},
    };
    for (const auto& [json, request] : rows)
        EXPECT_EQ(WireCodec::decodeRequest(R"({"read":{"_0":)" + json + "}}"),
                  GatewayRequest(request))
            << json;
}

/// The error as a person would note it down.
template<class T, class Error> std::string told(const std::expected<T, Error>& outcome) {
    return outcome ? "well" : outcome.error().path + ": " + outcome.error().sentence;
}

TEST(RequestCodec, TellsWhereAndWhatItCouldNotRead) {
    const std::pair<std::string_view, std::string_view> rows[] = {
        {R"({"read":{"_0":{"health":{},"recall":{"query":"x"}}}})",
         "read._0: ReadRequest expects exactly one case key, got 2"},
        {R"({"read":{"_0":{"nonsense":{}}}})", "read._0: Unknown ReadRequest case: nonsense"},
        {R"({"control":{"_0":{"pause":{}},"x":1}})",
         "control: Invalid number of keys found, expected one."},
        {R"({"control":{"_0":{"addConcept":{"_0":"c","x":1}}}})",
         "control._0.addConcept: Invalid number of keys found, expected one."},
        {R"({"read":{"_0":{"openScreens":{"x":[]}}}})",
         "read._0.openScreens: Invalid number of keys found, expected one."},
        {R"({})", ": Invalid number of keys found, expected one."},
        {R"({"control":{"_0":{"pause":true}}})",
         "control._0.pause: expected an object, found a boolean"},
        {R"({"control":{"x":{}}})", "control._0: this key is missing"},
        {R"({"read":{"_0":{"recall":{"from":"x"}}}})", "read._0.recall.query: this key is missing"},
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
        {"[]", ": expected an object, found a list"},
        {"{\"read\":1", ": this is not JSON: incomplete JSON at byte 9"},
        {"{} {}", ": this is not JSON: extra data at byte 3"},
        {"{\"control\":{\"_0\":{\"addConcept\":{\"_0\":\"\xff\"}}}}",
         ": this is not JSON: syntax error at byte 38"},
    };
    for (const auto& [json, answer] : rows)
        EXPECT_EQ(told(WireCodec::decodeRequest(json)), answer) << json;
}

TEST(RequestCodec, SurvivesHostileMessages) {
    std::string deep = R"({"control":{"_0":{"pause":{"x":)";
    deep += std::string(1'000'000, '[');
    EXPECT_THAT(told(WireCodec::decodeRequest(deep)), ::testing::HasSubstr("too deep"));
    // Cut at every byte, a message is refused in words.
    for (const Shape& shape : shapes())
        for (std::size_t length = 0; length < shape.json.size(); ++length)
            EXPECT_THAT(told(WireCodec::decodeRequest(shape.json.substr(0, length))),
                        ::testing::StartsWith(": this is not JSON: "));
}

TEST(RequestCodec, RefusesToWriteWhatJSONCannotHold) {
    for (const std::string_view text :
         {"\xff", "\xc0\x80", "\xed\xa0\x80", "\xf4\x90\x80\x80", "a\xe2\x82"})
        EXPECT_EQ(told(WireCodec::encode(
                      ControlRequest(ControlCase::EnterPhrase{{"a", std::string(text)}}))),
                  "control._0.enterPhrase.words[1]: a text that is not UTF-8 has no JSON");
    EXPECT_EQ(told(WireCodec::encode(ReadRequest(ReadCase::GetByType{
                  .type = "n", .filters = {{{"a", std::numeric_limits<double>::infinity()}}}}))),
              "read._0.getByType.filters.a: a number that is not finite has no JSON");
}

} // namespace
} // namespace wendlow
