#include "ConfigFile/JSONEdit.h"

#include <gtest/gtest.h>

namespace wendlow {
namespace {

constexpr auto strict = JSONDialect::json;
constexpr auto comments = JSONDialect::jsonWithComments;

const JSONPath root;

JSONLiteral one() {
    return JSONLiteral::number(1);
}

JSONLiteral two() {
    return JSONLiteral::number(2);
}

JSONLiteral pair() {
    return JSONLiteral::object({{"x", one()}, {"y", two()}});
}

JSONLiteral nested() {
    return JSONLiteral::object({{"l", JSONLiteral::array({one(), JSONLiteral::object({})})}});
}

/// The bytes, or the sentence of the failure.
std::string told(const JSONEdit::Result& result) {
    return result ? *result : description(result.error());
}

TEST(JSONEdit, setsMembers) {
    const struct {
        std::string before;
        JSONPath path;
        std::string key;
        JSONLiteral literal;
        std::string after;
        JSONDialect dialect = strict;
    } cases[] = {
        // A new sibling is set off as the one before it.
        {"{\n  \"a\": 1\n}", root, "b", two(), "{\n  \"a\": 1,\n  \"b\": 2\n}"},
        {"{\n\t\"a\": 1\n}\n", root, "b", pair(),
         "{\n\t\"a\": 1,\n\t\"b\": {\n\t\t\"x\": 1,\n\t\t\"y\": 2\n\t}\n}\n"},
        {"{\n  \"a\": 1,\n\n  \"b\": 2}", root, "c", one(),
         "{\n  \"a\": 1,\n\n  \"b\": 2,\n\n  \"c\": 1}"},
        {R"({ "a": 1 })", root, "b", two(), R"({ "a": 1, "b":2 })"},
        {R"({"a":1})", root, "q\"\\", two(), R"({"a":1,"q\"\\":2})"},
        {"{\n\"a\":1}", root, "b", pair(), "{\n\"a\":1,\n\"b\": {\n  \"x\": 1,\n  \"y\": 2\n}}"},
        {"{\r\"a\":1}", root, "b", nested(), "{\r\"a\":1,\r\"b\":{\"l\":[1,{}]}}"},
        {"{\"a\":1 // one\n}", root, "b", two(), "{\"a\":1,\"b\":2 // one\n}", comments},
        // An empty object opens a line as soon as the document has one.
        {"{}", root, "a", pair(), R"({"a":{"x":1,"y":2}})"},
        {"{ \t }", root, "a", one(), R"({"a":1})"},
        {"{ }\r\n", root, "a", one(), "{\r\n  \"a\": 1\r\n}\r\n"},
        {"{\"x\": {}}\n", {"x"}, "a", one(), "{\"x\": {\n  \"a\": 1\n}}\n"},
        {"{\n    \"x\": [\n        {}\n    ]\n}",
         {"x", 0},
         "a",
         nested(),
         "{\n    \"x\": [\n        {\n            \"a\": {\n                \"l\": [\n"
         "                    1,\n                    {}\n                ]\n            }\n"
         "        }\n    ]\n}"},
        {"[\n\t{}]", {0}, "a", one(), "[\n\t{\n\t\t\"a\": 1\n\t}]"},
        // Comments in an empty object stay above.
        {"{/* c */}", root, "a", pair(), R"({/* c */"a":{"x":1,"y":2}})", comments},
        {"{\n  // c\n}", root, "a", one(), "{\n  // c\n  \"a\": 1\n}", comments},
        {"{\r\n    // c\r\n  }", root, "a", one(), "{\r\n    // c\r\n  \"a\": 1\r\n}", comments},
        {"{/* \n */}", root, "a", one(), "{/* \n */\n  \"a\": 1\n}", comments},
        // A present member gets a new value and nothing else.
        {R"({ "a" :  1 , "b":2})", root, "a", pair(), R"({ "a" :  {"x":1,"y":2} , "b":2})"},
        {"{\r\n\t\"a\":1}", root, "a", pair(),
         "{\r\n\t\"a\":{\r\n\t\t\"x\": 1,\r\n\t\t\"y\": 2\r\n\t}}"},
        {"{\n \"o\": {\"a\":1}}", {"o"}, "a", pair(), "{\n \"o\": {\"a\":{\"x\":1,\"y\":2}}}"},
        {R"({"a":1,"a":2})", root, "a", JSONLiteral::boolean(true), R"({"a":true,"a":2})"},
        {R"({"\u0061":1})", root, "a", two(), R"({"\u0061":2})"},
        {"{\"a\":[/* gone */] /* kept */}", root, "a", two(), "{\"a\":2 /* kept */}", comments},
        // Behind a comma a new one has its own, below the comments that stand there.
        {"{\"a\":1,}", root, "b", two(), "{\"a\":1,\"b\":2,}", comments},
        {"{ \"a\": 1 /* x */ , // y\n}", root, "b", two(), "{ \"a\": 1 /* x */ , \"b\":2, // y\n}",
         comments},
        {"{\n  \"a\": 1, // y\n}", root, "b", two(), "{\n  \"a\": 1, // y\n  \"b\": 2,\n}",
         comments},
        {"{ \r\n\t\"a\": 1, // y \r\n}", root, "b", two(),
         "{ \r\n\t\"a\": 1, // y \r\n\t\"b\": 2,\r\n}", comments},
        {"{\n \"a\": 1, // y\r\r\n}", root, "b", two(), "{\n \"a\": 1, // y\r\r\n \"b\": 2,\r\n}",
         comments},
        {"{\n \"a\": 1, /* y */ }", root, "a", two(), "{\n \"a\": 2, /* y */ }", comments},
        // Failures.
        {"[]", root, "a", one(), "the top-level value is not an object"},
        {R"({"a":[1]})", {"a", 0}, "b", one(), "a.[0] is not an object"},
        {R"({"a":[1]})", {"a", -1, "c"}, "b", one(), "a.[-1].c is not an object"},
        {"{} // c", root, "a", one(), "there are bytes after the top-level value (at byte 3)"},
    };
    for (const auto& [before, path, key, literal, after, dialect] : cases) {
        EXPECT_EQ(told(JSONEdit::setMember(before, path, key, literal, dialect)), after) << before;
    }
}

TEST(JSONEdit, removesMembers) {
    const struct {
        std::string before;
        std::string key;
        std::string after;
        JSONPath path = root;
    } cases[] = {
        {R"({"a":1,"b":2,"c":3})", "a", R"({"b":2,"c":3})"},
        {R"({"a":1,"b":2,"c":3})", "b", R"({"a":1,"c":3})"},
        {R"({ "a" : 1 , "b" : 2 })", "a", R"({ "b" : 2 })"},
        {R"({ "a" : 1 , "b" : 2 })", "b", R"({ "a" : 1 })"},
        {"{\r\n  \"a\": 1,\r\n  \"b\": 2\r\n}", "b", "{\r\n  \"a\": 1\r\n}"},
        {R"({"a":1,"a":2})", "a", R"({"a":2})"},
        {R"({"o":[{"a":1}]})", "a", R"({"o":[{}]})", {"o", 0}},
        // No comment is lost, and none swallows what follows it.
        {"{\"a\": 1, // keep\n \"b\": 2}", "a", "{ // keep\n\"b\": 2}"},
        {"{\"a\": [1, // x\r\n 2], /* y */\r\n \"b\": 2}", "a", "{ // x\r\n /* y */\"b\": 2}"},
        {"{\"a\": [ // x\n], /* y */ \"b\": 2}", "a", "{ // x\n /* y */\"b\": 2}"},
        {"{\"a\": 1, // keep\n \"b\": 2\n}", "b", "{\"a\": 1 // keep\n}"},
        {"{\"a\": 1, // keep\n \"b\": 2\r}", "b", "{\"a\": 1 // keep\n\r}"},
        {"{\"a\": 1, // x\n \"b\"\r/* y */: 2}", "b", "{\"a\": 1 // x\n\r/* y */}"},
        {"{\"a\":1,//x\n/*y*/\"b\":2}", "b", "{\"a\":1//x\n/*y*/}"},
        {"{\"a\":1,/*\xFF\xE2\x82*/\"b\":2}", "b", "{\"a\":1/*\uFFFD\uFFFD*/}"},
        {"{\n  // keep\n  \"a\": 1\n}", "a", "{\n  // keep\n}"},
        {"{\n  \"a\": 1 // keep\n}", "a", "{ // keep\n}"},
        {"{\n  // keep\n  \"a\": 1 /* y */}", "a", "{\n  // keep\n /* y */}"},
        {"{\n  /* keep */\n  \"a\": 1}", "a", "{\n  /* keep */}"},
        {"{ /* x */ \"a\" /* y */ : 1 /* z */ }", "a", "{ /* x */  /* y */ /* z */ }"},
        // The last one before a comma takes that along, the only one too.
        {"{\"a\":1,\"b\":2,}", "b", "{\"a\":1,}"},
        {"{\"a\":1,\"b\":2,}", "a", "{\"b\":2,}"},
        {"{\n  \"a\": 1, // y\n  \"b\": 2 /* x */, // z\n}", "b",
         "{\n  \"a\": 1, // y\n /* x */ // z\n}"},
        {"{\"a\":1,// y\n\"b\":2,}", "b", "{\"a\":1,// y\n}"},
        {"{ \"a\": 1, }", "a", "{}"},
        {"{\n  // x\n  \"a\": 1 /* y */, // z\n}", "a", "{\n  // x\n /* y */ // z\n}"},
        {"{ /* x */ \"a\": 1, }", "a", "{ /* x */  }"},
        // Failures.
        {"{}", "a", "a is not in the top-level value"},
        {R"({"o":[{"a":1}]})", "b", "b is not in o.[0]", {"o", 0}},
        {R"({"o":1})", "b", "o is not an object", {"o"}},
        {"{\"a\":1/*}", "a", "the document ended inside a comment (at byte 6)"},
    };
    for (const auto& [before, key, after, path] : cases) {
        EXPECT_EQ(told(JSONEdit::removeMember(before, path, key, comments)), after) << before;
    }
}

TEST(JSONEdit, appendsElements) {
    const struct {
        std::string before;
        JSONPath path;
        JSONLiteral literal;
        std::string after;
    } cases[] = {
        {"[1, 2]", root, pair(), R"([1, 2, {"x":1,"y":2}])"},
        {"[1]\n", root, one(), "[1,1]\n"},
        {"[\n  1\n]", root, pair(), "[\n  1,\n  {\n    \"x\": 1,\n    \"y\": 2\n  }\n]"},
        {"{\r\n\t\"a\": [\r\n\t\t1\r\n\t]\r\n}",
         {"a"},
         nested(),
         "{\r\n\t\"a\": [\r\n\t\t1,\r\n\t\t{\r\n\t\t\t\"l\": [\r\n\t\t\t\t1,\r\n\t\t\t\t{}\r\n"
         "\t\t\t]\r\n\t\t}\r\n\t]\r\n}"},
        {"[ ]", root, JSONLiteral::string("t"), "[\"t\"]"},
        {"{\n    \"a\": [ ]\n}",
         {"a"},
         JSONLiteral::boolean(false),
         "{\n    \"a\": [\n        false\n    ]\n}"},
        {"{}", root, one(), "the top-level value is not an array"},
        {R"({"hooks":{"PreToolUse":[{"hooks":1}]}})",
         {"hooks", "PreToolUse", 0, "hooks"},
         one(),
         "hooks.PreToolUse.[0].hooks is not an array"},
    };
    for (const auto& [before, path, literal, after] : cases) {
        EXPECT_EQ(told(JSONEdit::appendElement(before, path, literal)), after) << before;
    }
}

TEST(JSONEdit, removesElements) {
    const struct {
        std::string before;
        JSONPath path;
        std::ptrdiff_t index;
        std::string after;
    } cases[] = {
        {"[1, 2]", root, 0, "[2]"},
        {"[1 ,\n 2 ,\n 3 ]", root, 1, "[1 ,\n 3 ]"},
        {R"({"a": [ [1,2] ]})", {"a", 0}, 1, R"({"a": [ [1] ]})"},
        {"[1]", root, 1, "the top-level value has no element 1"},
        {R"({"a":[]})", {"a"}, 0, "a has no element 0"},
        {"[1]", root, -1, "the top-level value has no element -1"},
        {R"({"a":1})", {"a"}, 0, "a is not an array"},
    };
    for (const auto& [before, path, index, after] : cases) {
        EXPECT_EQ(told(JSONEdit::removeElement(before, path, index)), after) << before;
    }
}

} // namespace
} // namespace wendlow
