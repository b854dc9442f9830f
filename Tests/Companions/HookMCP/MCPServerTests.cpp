#include "LineReader.h"
#include "MCPServer.h"
#include "RunProgram.h"
#include "WireCodec.h"

#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace wendlow {
namespace {

/// Gives each request the same answer, and keeps it as JSON.
class SameAnswer final : public WendlowClient {
public:
    QCoro::Task<GatewayResponse> send(GatewayRequest request) override {
        sent.push_back(WireCodec::encode(request).value());
        co_return answer;
    }
    GatewayResponse answer = AnswerCase::NoteID{"m29"};
    std::vector<std::string> sent;
};

std::string answerTo(std::string_view line, WendlowClient* gateway = nullptr) {
    const MCPServer server("1.2", [&]() -> WendlowClient& {
        if (gateway == nullptr)
            throw std::logic_error("the gateway was asked");
        return *gateway;
    });
    return QCoro::waitFor(server.handle(std::string(line))).value_or("nothing");
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
        {R"({"jsonrpc":"2.0","id":1,"method":"tools/call","params":{"name":"recall \"x\"","arguments":{"name":"y"}}})",
         failure("1", -32602, R"(Unknown tool: recall \"x\")")},
        {R"({"jsonrpc":"2.0","id":1,"method":"tools/call","params":["recall"]})",
         failure("1", -32602, "tools/call names a tool")},
        {R"({"jsonrpc":"2.0","id":1,"method":"initialize","params":{}})",
         failure("1", -32602, "initialize names a protocolVersion")},
        {R"({"jsonrpc":"2.0","id":1.50e1,"method":"tools/call","params":{"name":["memory_edit"]}})",
         failure("1.50e1", -32602, "tools/call names a tool")},
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
         R"({"jsonrpc":"2.0","id":2,"method":"ping"}])",
         "[" + result("1", "{}") + "," + failure("null", -32600, "a request is an object") + "," +
             result("2", "{}") + "]"},
        {R"([{"jsonrpc":"2.0","method":"notifications/initialized"}])", "nothing"},
        // Members come in any order, the last of a name counts, and parameters are those of their
        // own request alone.
        {R"({"params":{"name":"a"},"params":{"name":"c","x":[{"y":null}]},"method":"tools/call",)"
         R"("id":1,"id":2,"jsonrpc":"2.0"})",
         failure("2", -32602, "Unknown tool: c")},
        {R"([{"jsonrpc":"2.0","id":1,"method":"tools/call","params":{"name":"a"}},)"
         R"([{"params":{"name":"b"}},[1]]])",
         "[" + failure("1", -32602, "Unknown tool: a") + "," +
             failure("null", -32600, "a request is an object") + "]"},
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

/// A call as a client sends it.
std::string call(std::string_view tool, std::string_view arguments) {
    return R"({"jsonrpc":"2.0","id":"c","method":"tools/call","params":{"name":")" +
           std::string(tool) + R"(","arguments":)" + std::string(arguments) + "}}";
}

TEST(MCPServer, OffersItsTools) {
    EXPECT_EQ(
        answerTo(R"({"jsonrpc":"2.0","id":0,"method":"tools/list","params":{"cursor":"x"}})"),
        result(
            "0",
            R"({"tools":[{"name":"memory_edit","description":"Changes a memory that is there already: what is given replaces what it had, the rest stays. Use it where something remembered is out of date, wrong, or filed at the wrong scope. Gives the memory's id.","inputSchema":{"type":"object","properties":{"id":{"type":"string","description":"The memory's id, such as m29 or m:29."},"text":{"type":"string","description":"The whole new text."},"why":{"type":"string","description":"Why it is worth remembering."},"type":{"type":"string","description":"Its type, such as decision or fact."},"scope":{"type":"string","description":"The scope at which it is filed from now on: a path from the root, such as /work."},"filters":{"type":"object","additionalProperties":{"type":["string","number","boolean"]},"description":"Its filters, all of them: those that are not named here go."},"title":{"type":"string","description":"Its title, on one line."}},"required":["id"],"additionalProperties":false}},)"
            R"({"name":"scope_map_folder","description":"Maps a folder to a scope: sessions that work in the folder, or below it, file and find their memories at that scope. A folder has one scope, and a new one replaces it. Says what maps where.","inputSchema":{"type":"object","properties":{"folder":{"type":"string","description":"The folder's whole path; it may begin with ~."},"scope":{"type":"string","description":"The scope: a path from the root, such as /work/atlas."}},"required":["folder","scope"],"additionalProperties":false}}]})"));
}

/// What a call asks of the gateway, or the sentence that refuses it.
TEST(MCPServer, AsksTheGatewayWhatACallMeans) {
    const struct {
        std::string_view tool;
        std::string_view arguments;
        std::string_view asked; ///< a request of the notes, or a sentence
    } rows[] = {
        {"memory_edit", R"({"id":"m:29","scope":"/a"})", R"({"edit":{"id":"m:29","path":"/a"}})"},
        {"memory_edit",
         R"({"title":"T","filters":{"n":7,"x":0.5,"on":true,"w":"z"},"type":"t","why":"w","text":"x","id":"m1","scope":"/"})",
         R"({"edit":{"id":"m1","text":"x","why":"w","type":"t","path":"/","filters":{"n":7,"on":true,"w":"z","x":0.5},"title":"T"}})"},
        // Any text goes through as it is; null is nothing, and what our hooks add is taken off.
        {"memory_edit",
         R"({"id":"","scope":"/\"q\"\\b/\ud83d\ude80/שלום","why":null,"_wendlow_session":"s","_wendlow_subagent":"t"})",
         R"({"edit":{"id":"","path":"/\"q\"\\b/🚀/שלום"}})"},
        {"scope_map_folder", R"({"folder":"/p \"q\" \\ é","scope":"/s"})",
         R"({"mapPath":{"folder":"/p \"q\" \\ é","path":"/s"}})"},
        {"memory_edit", R"({"id":"m:29","path":"/a"})",
         "memory_edit has no argument “path”; it has id, text, why, type, scope, filters and "
         "title"},
        {"scope_map_folder", R"({"folder":"/p","scope":"/s","_wendlow_other":"s"})",
         "scope_map_folder has no argument “_wendlow_other”; it has folder and scope"},
        {"memory_edit", R"({"scope":"/a"})", "memory_edit needs id"},
        {"memory_edit", R"({"id":null,"scope":"/a"})", "memory_edit needs id"},
        {"scope_map_folder", "null", "scope_map_folder needs folder"},
        {"memory_edit", R"({"id":"m1","_wendlow_session":"s"})",
         "memory_edit needs at least one of text, why, type, scope, filters and title"},
        {"memory_edit", R"({"id":29,"scope":"/a"})", "“id” of memory_edit is a text"},
        {"memory_edit", R"({"id":"m1","scope":["/a"]})", "“scope” of memory_edit is a text"},
        {"memory_edit", R"({"id":"m1","filters":{"a":[1]}})",
         "“filters” of memory_edit is an object whose values are texts, numbers, true or false"},
        {"memory_edit", R"({"id":"m1","filters":"a"})",
         "“filters” of memory_edit is an object whose values are texts, numbers, true or false"},
        {"memory_edit", R"(["m1"])", "the arguments of memory_edit are an object"},
        {"memory_edit", R"("m1")", "the arguments of memory_edit are an object"},
    };
    for (const auto& [tool, arguments, asked] : rows) {
        SCOPED_TRACE(std::string(tool) + " " + std::string(arguments));
        SameAnswer gateway;
        const std::string answer = answerTo(call(tool, arguments), &gateway);
        if (asked.starts_with('{')) {
            EXPECT_THAT(gateway.sent,
                        ::testing::ElementsAre(R"({"notes":{"_0":)" + std::string(asked) + "}}"));
            EXPECT_EQ(
                answer,
                result("\"c\"",
                       R"({"content":[{"type":"text","text":"Saved m29."}],"isError":false})"));
        } else {
            EXPECT_THAT(gateway.sent, ::testing::IsEmpty());
            EXPECT_EQ(answer, failure("\"c\"", -32602, asked));
        }
    }
    EXPECT_EQ(
        answerTo(
            R"({"jsonrpc":"2.0","id":1,"method":"tools/call","params":{"name":"memory_edit"}})"),
        failure("1", -32602, "memory_edit needs id"));
}

TEST(MCPServer, TellsWhatTheGatewayAnswers) {
    const struct {
        GatewayResponse answer;
        std::string_view text;
        bool isError = true;
    } rows[] = {
        {AnswerCase::NoteID{"m29", std::vector<std::string>{"type rule", "scope /a"}},
         "Saved m29: type rule, scope /a.", false},
        {AnswerCase::Text{"/p \"q\" maps to /a."}, R"(/p \"q\" maps to /a.)", false},
        {AnswerCase::Failure{"no memory has the id “m:9”; nothing was changed"},
         "no memory has the id “m:9”; nothing was changed"},
        {AnswerCase::Unimplemented{"memory_edit"},
         "This Wendlow does not know memory_edit yet; it is older than this tool."},
        {AnswerCase::Flag{true}, "Wendlow sent an answer we couldn't read"},
    };
    for (const auto& row : rows) {
        SameAnswer gateway;
        gateway.answer = row.answer;
        EXPECT_EQ(answerTo(call("memory_edit", R"({"id":"m1","text":"x"})"), &gateway),
                  result("\"c\"", R"({"content":[{"type":"text","text":")" + std::string(row.text) +
                                      R"("}],"isError":)" + (row.isError ? "true}" : "false}")));
    }
}

/// What a reader of this limit makes of the bytes: its lines, and "too long" for one that is.
std::vector<std::string> linesOf(std::string_view bytes, std::size_t limit) {
    const testing::StandardFile file{std::string(bytes)};
    std::vector<std::string> lines;
    LineReader reader(file.descriptor(), limit);
    for (auto outcome = reader.next(); outcome != LineReader::Outcome::end; outcome = reader.next())
        if (outcome == LineReader::Outcome::more)
            reader.fill();
        else
            lines.push_back(outcome == LineReader::Outcome::line ? reader.take() : "too long");
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
