#include "ConfigFile/JSONLiteral.h"

#include "ConfigFile/JSONText.h"

#include <gtest/gtest.h>
#include <limits>

namespace wendlow {
namespace {

TEST(JSONLiteral, quotesText) {
    using namespace std::string_literals;
    const std::pair<std::string, std::string> cases[] = {
        {"", R"("")"},
        {"a/\u00e9\U0001F600\x7F", "\"a/\u00e9\U0001F600\x7F\""},
        {"\"\\", R"("\"\\")"},
        {"\b\t\n\f\r\0\x1F"s, R"("\b\t\n\f\r\u0000\u001f")"},
    };
    for (const auto& [text, quoted] : cases) {
        EXPECT_EQ(JSONLiteral::quote(text), quoted);
    }
}

TEST(JSONLiteral, rendersInBothStyles) {
    const auto literal = JSONLiteral::object(
        {{"b", JSONLiteral::array({JSONLiteral::boolean(true), JSONLiteral::string("t")})},
         {"a\"", JSONLiteral::number(std::numeric_limits<std::int64_t>::min())},
         {"o", JSONLiteral::object({})},
         {"l", JSONLiteral::array({})},
         {"b", JSONLiteral::boolean(false)}});
    EXPECT_EQ(literal.render("ignored", "ignored", {}),
              R"({"b":[true,"t"],"a\"":-9223372036854775808,"o":{},"l":[],"b":false})");
    EXPECT_EQ(literal.render("\t", "  ", {.multiline = true, .newline = "\r\n"}),
              "{\r\n\t  \"b\": [\r\n\t    true,\r\n\t    \"t\"\r\n\t  ],\r\n"
              "\t  \"a\\\"\": -9223372036854775808,\r\n\t  \"o\": {},\r\n\t  \"l\": [],\r\n"
              "\t  \"b\": false\r\n\t}");
    using V = JSONValue;
    EXPECT_EQ(literal.value(), (V{V::Object{{"a\"", {V::Number{"-9223372036854775808"}}},
                                            {"b", {false}},
                                            {"l", {V::Array()}},
                                            {"o", {V::Object()}}}}));
}

TEST(JSONLiteral, isStatedByWhatHasItsValue) {
    const auto literal = JSONLiteral::object(
        {{"b", JSONLiteral::array({JSONLiteral::boolean(true), JSONLiteral::string("t")})},
         {"n", JSONLiteral::number(-30)},
         {"o", JSONLiteral::object({})}});
    const std::pair<std::string, bool> cases[] = {
        {R"({"b":[true,"t"],"n":-30,"o":{}})", true},
        {R"({ "o": {}, "n": -30, "b": [ true, "\u0074" ] })", true},
        {R"({"n":3,"b":[true,"t"],"o":7,"n":-30,"o":{}})", true}, // the last of a name counts
        {R"({"b":[true,"t"],"n":-30,"o":{},"n":3})", false},
        {R"({"b":[true,"t"],"n":-30,"o":{},"p":1})", false},
        {R"({"b":[true,"t"],"n":-30})", false},
        {R"({"b":[true,"t"],"n":-30.0,"o":{}})", false},
        {R"({"b":[true,"t"],"n":"-30","o":{}})", false},
        {R"({"b":[true,"t"],"n":-30,"o":[]})", false},
        {R"({"b":["t",true],"n":-30,"o":{}})", false},
        {R"({"b":[true,"t",1],"n":-30,"o":{}})", false},
        {R"({"b":[true],"n":-30,"o":{}})", false},
        {R"({"b":[null,"t"],"n":-30,"o":{}})", false},
        {R"([{"b":[true,"t"],"n":-30,"o":{}}])", false},
    };
    for (const auto& [bytes, isStated] : cases) {
        const auto root = JSONText::scanWithTrivia(bytes, JSONDialect::json);
        ASSERT_TRUE(root) << bytes;
        EXPECT_EQ(literal.isStatedBy(root->root(), bytes), isStated) << bytes;
        EXPECT_EQ(root->root().value(bytes) == literal.value(), isStated) << bytes;
    }
}

} // namespace
} // namespace wendlow
