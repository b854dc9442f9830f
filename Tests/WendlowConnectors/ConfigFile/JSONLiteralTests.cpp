#include "ConfigFile/JSONLiteral.h"

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

} // namespace
} // namespace wendlow
