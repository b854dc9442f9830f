#include "LineReader.h"
#include "MCPServer.h"
#include "RunProgram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace wendlow {
namespace {

std::string answerTo(std::string_view line) {
    return MCPServer("1.2").handle(line).value_or("nothing");
}

/// The answer to a request of this identifier, as it stands in the line.
std::string result(std::string_view id, std::string_view json) {
    return R"({"jsonrpc":"2.0","id":)" + std::string(id) + R"(,"result":)" + std::string(json) +
           "}";
}

std::string failure(std::string_view id, int code, std::string_view sentence) {
    return R"({"jsonrpc":"2.0","id":)" + std::string(id) + R"(,"error":{"code":)" +
           std::to_string(code) + R"(,"message":")" + std::string(sentence) + "\"}}";
}

TEST(MCPServer, AgreesOnARevisionThatItKnows) {
    for (const std::string asked : {"2024-11-05", "2025-03-26", "2025-06-18", "2031-01-01", ""})
        EXPECT_EQ(
            answerTo(R"({"jsonrpc":"2.0","id":1,"method":"initialize","params":{"capabilities":)"
                     R"({"protocolVersion":"1"},"protocolVersion":")" +
                     asked + R"(","clientInfo":{"name":"x","version":"2"}}})"),
            result("1", R"({"protocolVersion":")" +
                            (asked.starts_with("202") ? asked : "2025-06-18") +
                            R"(","capabilities":{"tools":{}},"serverInfo":)"
                            R"({"name":"wendlow","version":"1.2"}})"));
}

TEST(MCPServer, AnswersEachLineAsTheProtocolSays) {
    const auto notJSON = [](std::string_view why) {
        return failure("null", -32700, "this is not JSON: " + std::string(why));
    };
    const struct {
        std::string line;
        std::string answer;
    } rows[] = {
        {R"({"jsonrpc":"2.0","id":7,"method":"ping"})", result("7", "{}")},
        {R"( {"params":{},"id":"a\"\u00fc","method":"ping","jsonrpc":"2.0"} )",
         result(R"("a\"ü")", "{}")},
        {R"({"jsonrpc":"2.0","id":-123456789012345678901234567890,"method":"ping"})",
         result("-123456789012345678901234567890", "{}")},
        {R"({"jsonrpc":"2.0","id":0,"method":"tools/list","params":{"cursor":"x"}})",
         result("0", R"({"tools":[]})")},
        {R"({"jsonrpc":"2.0","id":1,"method":"tools/call","params":{"name":"recall \"x\"","arguments":{"name":"y"}}})",
         failure("1", -32602, R"(Unknown tool: recall \"x\")")},
        {R"({"jsonrpc":"2.0","id":1,"method":"tools/call","params":["recall"]})",
         failure("1", -32602, "tools/call names a tool")},
        {R"({"jsonrpc":"2.0","id":1,"method":"initialize","params":{}})",
         failure("1", -32602, "initialize names a protocolVersion")},
        {R"({"jsonrpc":"2.0","id":1,"method":"resources/list"})",
         failure("1", -32601, "Method not found: resources/list")},
        {R"({"jsonrpc":"2.0","method":"notifications/initialized"})", "nothing"},
        {R"({"jsonrpc":"2.0","id":1,"result":{"id":2,"method":"ping"}})", "nothing"},
        {" \r", "nothing"},
        {R"({"id":1,"method":"ping"})",
         failure("1", -32600, R"(a request has \"jsonrpc\":\"2.0\")")},
        {R"({"jsonrpc":2.0,"id":1,"method":"ping"})",
         failure("1", -32600, R"(a request has \"jsonrpc\":\"2.0\")")},
        {R"({"jsonrpc":"2.0","id":1})", failure("1", -32600, "a request has a method")},
        {R"({"jsonrpc":"2.0","id":1,"method":3})", failure("1", -32600, "a request has a method")},
        {R"({"jsonrpc":"2.0","id":null,"method":"ping"})",
         failure("null", -32600, "an id is a string or a number")},
        {R"({"jsonrpc":"2.0","id":{"id":1},"method":"ping"})",
         failure("null", -32600, "an id is a string or a number")},
        {"7", failure("null", -32600, "a request is an object")},
        {"{\"jsonrpc\":", notJSON("incomplete JSON at byte 11")},
        {"{} {}", notJSON("extra data at byte 3")},
        {"\"\xff\"", notJSON("syntax error at byte 1")},
        {"[]", failure("null", -32600, "a batch holds at least one request")},
        {R"([{"jsonrpc":"2.0","id":1,"method":"ping"},{"jsonrpc":"2.0","method":"x"},[{"id":4}],)"
         R"({"jsonrpc":"2.0","id":2,"method":"tools/list"}])",
         "[" + result("1", "{}") + "," + failure("null", -32600, "a request is an object") + "," +
             result("2", R"({"tools":[]})") + "]"},
        {R"([{"jsonrpc":"2.0","method":"notifications/initialized"}])", "nothing"},
        // Members come in any order, and parameters are those of their own request alone.
        {R"({"params":{"name":"a"},"method":"tools/call","id":1,"jsonrpc":"2.0","x":{"name":"b"}})",
         failure("1", -32602, "Unknown tool: a")},
        {R"([{"params":{"name":"a"},"id":1,"method":"ping","jsonrpc":"2.0"},)"
         R"({"id":2,"method":"tools/call","params":[],"jsonrpc":"2.0"}])",
         "[" + result("1", "{}") + "," + failure("2", -32602, "tools/call names a tool") + "]"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(answerTo(row.line), row.answer) << row.line;
    EXPECT_THAT(answerTo(std::string(1'000'000, '[')), ::testing::HasSubstr("\"code\":-32700"));
}

/// What a reader of this limit makes of the bytes: its lines, and "too long" for one that is.
std::vector<std::string> linesOf(std::string_view bytes, std::size_t limit) {
    const testing::StandardFile file{std::string(bytes)};
    std::vector<std::string> lines;
    LineReader reader(file.descriptor(), limit);
    for (auto outcome = reader.next(); outcome != LineReader::Outcome::end; outcome = reader.next())
        lines.emplace_back(outcome == LineReader::Outcome::line ? reader.line() : "too long");
    return lines;
}

TEST(LineReader, SplitsAtLineFeedsAndBoundsALine) {
    using Lines = std::vector<std::string>;
    EXPECT_EQ(linesOf("", 8), Lines{});
    EXPECT_EQ(linesOf("a\r\n\nb\rc\nlast", 8), (Lines{"a", "", "b\rc", "last"}));
    EXPECT_EQ(linesOf("12345678\n123456789\n1\n", 8), (Lines{"12345678", "too long", "1"}));
    const std::string wide(200'000, 'x'); // over several chunks
    EXPECT_EQ(linesOf(wide + "\n" + wide + "y\nz", 200'000), (Lines{wide, "too long", "z"}));
}

} // namespace
} // namespace wendlow
