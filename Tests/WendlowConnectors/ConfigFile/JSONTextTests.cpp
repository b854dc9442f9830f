#include "ConfigFile/JSONText.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace wendlow {
namespace {

using namespace std::string_literals;

constexpr auto strict = JSONDialect::json;
constexpr auto comments = JSONDialect::jsonWithComments;

std::string repeated(std::string_view text, int times) {
    std::string result;
    while (times-- > 0) {
        result += text;
    }
    return result;
}

/// Every node with its range, as "O0-9{key@1=N5-6}".
std::string shape(const JSONNode& node) {
    auto text =
        fmt::format("{}{}-{}", "OASBN0"[static_cast<int>(node.kind())], node.start(), node.end());
    for (const auto& [key, keyStart, value] : node.members()) {
        text += fmt::format("{{{}@{}={}}}", key, keyStart, shape(value));
    }
    for (const auto element : node.elements()) {
        text += fmt::format("[{}]", shape(element));
    }
    return text;
}

/// The shape and the comments of what was scanned, or the sentence of the failure.
std::string scanned(const std::string& bytes, JSONDialect dialect) {
    // Of exactly its size, so that the sanitizers see a read outside.
    const auto exact = std::make_unique_for_overwrite<char[]>(bytes.size());
    bytes.copy(exact.get(), bytes.size());
    const auto document = JSONText::scanWithTrivia({exact.get(), bytes.size()}, dialect);
    if (!document) {
        return document.error().description();
    }
    auto text = shape(document->root());
    for (const auto& [lower, upper] : document->comments()) {
        text += fmt::format(" {}-{}", lower, upper);
    }
    return text;
}

TEST(JSONText, tellsTheFirstFailureAndWhere) {
    const auto inString = [](const std::string& body) { return "[ \"" + body; };
    const struct {
        std::string bytes;
        std::string told;
        JSONDialect dialect = strict;
    } cases[] = {
        {"", "the document ended where a value was expected (at byte 0)"},
        {" \t\r\n", "the document ended where a value was expected (at byte 4)"},
        {"{\"a\":", "the document ended where a value was expected (at byte 5)"},
        {"\xEF\xBB\xBF{}", "a value was expected (at byte 0)"},
        {"[1,]", "a value was expected (at byte 3)"},
        {"[fals]", "a value was expected (at byte 1)"},
        {"[tRue]", "a value was expected (at byte 1)"},
        {"-", "a value was expected (at byte 0)"},
        {"1.", "a value was expected (at byte 0)"},
        {"1e+", "a value was expected (at byte 0)"},
        {" .5", "a value was expected (at byte 1)"},
        {"\v1", "a value was expected (at byte 0)"},
        {"{", "a member name was expected (at byte 1)"},
        {"{\"a\":1,}", "a member name was expected (at byte 7)"},
        {"{\"a\" 1}", "a colon was expected after a member name (at byte 5)"},
        {"{\"a\":1 ", "the document ended inside an object (at byte 7)"},
        {"{\"a\":1]", "a comma or a closing brace was expected (at byte 6)"},
        {"[1 ", "the document ended inside an array (at byte 3)"},
        {"[01]", "a comma or a closing bracket was expected (at byte 2)"},
        {"{} {}", "there are bytes after the top-level value (at byte 3)"},
        {"1\0"s, "there are bytes after the top-level value (at byte 1)"},
        // Strings: always the opening quote.
        {inString("a"), "the document ended inside a string (at byte 2)"},
        {inString("12345678901234567"), "the document ended inside a string (at byte 2)"},
        {inString("\\"), "the document ended inside an escape (at byte 2)"},
        {inString("a\\x\""), "a string holds an escape that is not JSON's (at byte 2)"},
        {inString("\\\0\""s), "a string holds an escape that is not JSON's (at byte 2)"},
        {inString("1234567\t\""), "a string holds an unescaped control character (at byte 2)"},
        {inString("1234567890\x1F\""), "a string holds an unescaped control character (at byte 2)"},
        {inString("\\ud83dx\""), "a string holds an unpaired surrogate (at byte 2)"},
        {inString("\\ud83d\\u0041\""), "a string holds an unpaired surrogate (at byte 2)"},
        {inString("\\ude00\""), "a string holds an unpaired surrogate (at byte 2)"},
        {inString("\\ud83d\\u00\""),
         "a string holds a \\u escape that is not four hex digits (at byte 2)"},
        {inString("\\u12g4\""),
         "a string holds a \\u escape that is not four hex digits (at byte 2)"},
        {inString("\\u123"), "a string holds a \\u escape that is not four hex digits (at byte 2)"},
        {inString("\xC0\x80\""), "a string holds bytes that are not UTF-8 (at byte 2)"},
        {inString("\xE0\x9F\xBF\""), "a string holds bytes that are not UTF-8 (at byte 2)"},
        {inString("\xED\xA0\x80\""), "a string holds bytes that are not UTF-8 (at byte 2)"},
        {inString("\xF0\x8F\xBF\xBF\""), "a string holds bytes that are not UTF-8 (at byte 2)"},
        {inString("\xF4\x90\x80\x80\""), "a string holds bytes that are not UTF-8 (at byte 2)"},
        // A run is judged where it ends: what ends it has the first word.
        {inString("\xFFxy\n\""), "a string holds an unescaped control character (at byte 2)"},
        {inString("\xFF\\x\""), "a string holds bytes that are not UTF-8 (at byte 2)"},
        // Comments.
        {"// x\n1", "a value was expected (at byte 0)"},
        {"1 // x", "there are bytes after the top-level value (at byte 2)"},
        {"/", "a value was expected (at byte 0)", comments},
        {"/* x", "the document ended inside a comment (at byte 0)", comments},
        {"[1 /*/", "the document ended inside a comment (at byte 3)", comments},
        // One comma behind the last, behind something, of whatever list is open.
        {"{\"a\":1,/**/,}", "a member name was expected (at byte 11)", comments},
        {"{,}", "a member name was expected (at byte 1)", comments},
        {"[1,,]", "a value was expected (at byte 3)", comments},
        {"[,]", "a value was expected (at byte 1)", comments},
        {"[1,}", "a value was expected (at byte 3)", comments},
        {"{\"a\":1,]", "a member name was expected (at byte 7)", comments},
        {"[1,/*", "the document ended inside a comment (at byte 3)", comments},
        {"1,", "there are bytes after the top-level value (at byte 1)", comments},
    };
    for (const auto& [bytes, told, dialect] : cases) {
        EXPECT_EQ(scanned(bytes, dialect), told) << bytes;
    }
}

// Strings are read by blocks of bytes: each byte is judged alike wherever in a block it stands.
TEST(JSONText, judgesEveryByteAtEveryPlace) {
    constexpr std::size_t length = 44;
    for (std::size_t place = 0; place < length; ++place) {
        for (int byte = 0; byte < 256; ++byte) {
            std::string bytes = "\"" + std::string(length, 'a') + "\"";
            bytes[1 + place] = static_cast<char>(byte);
            const std::string told =
                byte < 0x20    ? "a string holds an unescaped control character (at byte 0)"
                : byte == '\\' ? (place < length - 1
                                      ? "a string holds an escape that is not JSON's (at byte 0)"
                                      : "the document ended inside a string (at byte 0)")
                : byte == '"'
                    ? fmt::format("there are bytes after the top-level value (at byte {})",
                                  2 + place)
                : byte >= 0x80 ? "a string holds bytes that are not UTF-8 (at byte 0)"
                               : "S0-46";
            EXPECT_EQ(scanned(bytes, strict), told) << place << ' ' << byte;
        }
        for (const char blank : {' ', '\t', '\n', '\r', '\v', '\f', '\0'}) {
            auto bytes = std::string(length, ' ') + "1";
            bytes[place] = blank;
            EXPECT_EQ(scanned(bytes, strict),
                      JSONText::isWhitespace(blank)
                          ? "N44-45"
                          : fmt::format("a value was expected (at byte {})", place));
        }
    }
}

TEST(JSONText, givesTheRangesOfWhatIsTooLongToBeCounted) {
    for (const std::size_t length : {(1U << 20U) - 2, (1U << 20U) - 1, 1U << 20U}) {
        const std::string digits(length, '1'),
            text = "\"" + std::string(length - 4, 'a') + "\\\"\"";
        const std::string bytes = fmt::format("[{},{}]", digits, text);
        EXPECT_EQ(scanned(bytes, strict), fmt::format("A0-{}[N1-{}][S{}-{}]", bytes.size(),
                                                      1 + length, 2 + length, 2 + 2 * length));
    }
}

TEST(JSONText, givesEveryRange) {
    const struct {
        std::string bytes;
        std::string shape;
        JSONDialect dialect = strict;
    } cases[] = {
        {" -0", "N1-3"},
        {"0.5e+3", "N0-6"},
        {"1E5 ", "N0-3"},
        {"\r\n\"\"\t", "S2-4"},
        {"[ ]", "A0-3"},
        {"{\n}", "O0-3"},
        {"[true,false , null,-12]", "A0-23[B1-5][B6-11][014-18][N19-22]"},
        {R"({"a":1,"a":{"b\"":[ ]}})", "O0-23{a@1=N5-6}{a@7=O11-22{b\"@12=A18-21}}"},
        {R"(["ü\\","\"x"])", "A0-14[S1-7][S8-13]"},
        {"[/*", "the document ended inside a comment (at byte 1)", comments},
        {"/**/[1/* x */,//\r\n2]//", "A4-20[N5-6][N18-19] 0-4 6-13 14-16 20-22", comments},
        {"{\"a\"/*b*/:/*c*/1// d\r}\r\n}\r", "O0-25{a@1=N15-16} 4-9 10-15 16-22", comments},
        {"1 // x\r", "N0-1 2-6", comments},
        {"{\"a\":[1 , ],/*x*/}", "O0-18{a@1=A5-11[N6-7]} 12-17", comments},
    };
    for (const auto& [bytes, expected, dialect] : cases) {
        EXPECT_EQ(scanned(bytes, dialect), expected) << bytes;
    }
}

TEST(JSONText, readsSixtyFourLevels) {
    const struct {
        std::string open;
        std::string close;
    } brackets[] = {{"[", "]"}, {"{\"a\":", "}"}};
    for (const auto& bracket : brackets) {
        const auto nested = [&bracket](int levels) {
            return repeated(bracket.open, levels) + "1" + repeated(bracket.close, levels);
        };
        EXPECT_EQ(scanned(nested(65), strict),
                  fmt::format("the document nests deeper than 64 levels (at byte {})",
                              64 * bracket.open.size()));
        EXPECT_TRUE(JSONText::scanWithTrivia(nested(64), strict));
        // What is closed again no longer counts.
        EXPECT_TRUE(JSONText::scanWithTrivia("[" + repeated(nested(63) + ",", 99) + "1]", strict));
    }
}

TEST(JSONNode, decodesTexts) {
    const struct {
        std::string body;
        std::string text;
    } cases[] = {
        {"plain, longer than one word", "plain, longer than one word"},
        {R"(\"\\\/\b\f\n\r\t)", "\"\\/\b\f\n\r\t"},
        {R"(a\u0041\u00e9\u20AC\ud83d\ude00\u0000z)", "aA\u00e9\u20ac\U0001F600\0z"s},
        {"\u00e9\\n\U0001F600 \u20ac", "\u00e9\n\U0001F600 \u20ac"},
    };
    for (const auto& [body, text] : cases) {
        const auto bytes = fmt::format("{{\"{0}\":\"{0}\"}}", body);
        auto document = JSONText::scanWithTrivia(bytes, strict);
        ASSERT_TRUE(document) << body;
        const auto root = document->root();
        const auto moved = std::move(*document); // nodes stay valid
        EXPECT_EQ((*root.members().begin()).key, text);
        ASSERT_TRUE(root.member(text));
        EXPECT_EQ(root.member(text)->string(), text);
        EXPECT_EQ(root.value(bytes), (JSONValue{JSONValue::Object{{text, {text}}}}));
    }
}

TEST(JSONNode, findsTheFirstAndReadsTheLast) {
    const std::string bytes = R"({"a":1,"b":[true,{"c":null},1.0],"a":2})";
    const auto document = JSONText::scanWithTrivia(bytes, strict);
    ASSERT_TRUE(document);
    const auto root = document->root();
    EXPECT_EQ(root.count(), 3U);
    EXPECT_EQ(root.member("a")->range(), (ByteRange{5, 6}));
    EXPECT_EQ(root.node({})->range(), (ByteRange{0, bytes.size()}));
    EXPECT_EQ(root.node({"b", 1, "c"})->kind(), JSONNode::Kind::null);
    EXPECT_EQ(root.node({"b", 0})->boolean(), true);
    EXPECT_EQ(root.node({"b"})->count(), 3U);
    for (const JSONPath& path : {JSONPath{"c"}, {"b", 3}, {"b", -1}, {"b", "c"}, {0}, {"a", 0}}) {
        EXPECT_FALSE(root.node(path));
    }
    EXPECT_FALSE(root.member("a")->string());
    EXPECT_FALSE(root.member("b")->member("c"));
    using V = JSONValue;
    const V list{V::Array{{true}, {V::Object{{"c", {V::Null()}}}}, {V::Number{"1.0"}}}};
    EXPECT_EQ(root.value(bytes), (V{V::Object{{"a", {V::Number{"2"}}}, {"b", list}}}));
    EXPECT_NE(list, (V{V::Array{{true}, {V::Object{{"c", {V::Null()}}}}, {V::Number{"1"}}}}));
}

} // namespace
} // namespace wendlow
