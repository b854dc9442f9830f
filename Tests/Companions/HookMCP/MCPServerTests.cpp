#include "Catalogue.h"
#include "LineReader.h"
#include "MCPServer.h"
#include "RunProgram.h"
#include "WireCodec.h"

#include <algorithm>
#include <coroutine>
#include <deque>

#include <QCoreApplication>
#include <QCoroTimer>
#include <boost/json/serialize.hpp>
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace wendlow {
namespace {

using ::testing::Not;

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
    MCPServer server("1.2", [&]() -> WendlowClient& {
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

std::string initialize(std::string_view revision, std::string_view client = "x") {
    return fmt::format(
        R"({{"jsonrpc":"2.0","id":1,"method":"initialize","params":{{"capabilities":{{"protocolVersion":"1"}},"protocolVersion":"{}","clientInfo":{{"name":"{}","version":"2"}}}}}})",
        revision, client);
}

TEST(MCPServer, AgreesOnARevisionThatItKnows) {
    for (const std::string asked :
         {"2024-11-05", "2025-03-26", "2025-06-18", "2025-11-25", "2031-01-01", ""})
        EXPECT_THAT(
            answerTo(initialize(asked)),
            ::testing::StartsWith(fmt::format(
                R"({{"jsonrpc":"2.0","id":1,"result":{{"protocolVersion":"{}","capabilities":{{"tools":{{}},"resources":{{}},"prompts":{{}}}},"serverInfo":{{"name":"wendlow","version":"1.2"}},"instructions":")",
                asked.starts_with("202") ? asked : "2025-11-25")));
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
        {R"({"jsonrpc":"2.0","id":1,"method":"tools/call","params":{"name":"delete_all \"x\"","arguments":{"name":"y"}}})",
         failure("1", -32602, R"(Unknown tool: delete_all \"x\")")},
        {R"({"jsonrpc":"2.0","id":1,"method":"tools/call","params":["recall"]})",
         failure("1", -32602, "tools/call names a tool")},
        {R"({"jsonrpc":"2.0","id":1,"method":"initialize","params":{}})",
         failure("1", -32602, "initialize names a protocolVersion")},
        {R"({"jsonrpc":"2.0","id":1.50e1,"method":"tools/call","params":{"name":["memory_edit"]}})",
         failure("1.50e1", -32602, "tools/call names a tool")},
        {R"({"jsonrpc":"2.0","id":1,"method":"logging/setLevel"})",
         failure("1", -32601, "Method not found: logging/setLevel")},
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

/// That each is valid and can be called is held by the protocol's own client, in
/// Scripts/mcp-client.sh; here, that nothing is offered which is a person's alone.
TEST(MCPServer, OffersItsTools) {
    std::vector<std::string> names, destructive;
    for (const Tool& tool : Catalogue::tools()) {
        names.emplace_back(tool.name);
        const std::string listed = boost::json::serialize(tool.listed());
        if (listed.contains(R"("destructiveHint":true)"))
            destructive.emplace_back(tool.name);
        EXPECT_EQ(listed.contains(R"("readOnlyHint":true)"), tool.effect == Tool::Effect::reads);
        EXPECT_TRUE(tool.family == "read" || tool.family == "notes") << tool.name;
    }
    EXPECT_THAT(names, ::testing::ElementsAre(
                           "recall", "search", "grep", "grab", "memory_get_by_type",
                           "memory_list_types", "scope_list_all", "rules_get", "day_get",
                           "span_get_hours_by_app", "chapter_get", "moment_get", "session_list",
                           "meeting_list", "meeting_get", "meeting_search", "memory_add",
                           "rule_add", "memory_edit", "memory_patch", "memory_edit_filters",
                           "memory_delete", "scope_map_folder", "scope_set_for_session"));
    EXPECT_THAT(destructive, ::testing::ElementsAre("memory_edit", "memory_patch",
                                                    "memory_edit_filters", "memory_delete",
                                                    "scope_map_folder", "scope_set_for_session"));
}

/// What a call asks of the gateway, or the sentence that refuses it.
TEST(MCPServer, AsksTheGatewayWhatACallMeans) {
    const struct {
        std::string_view tool;
        std::string_view arguments;
        std::string_view asked; ///< a request, or a sentence
    } rows[] = {
        {"memory_edit", R"({"id":"m:29","scope":"/a"})",
         R"({"notes":{"_0":{"edit":{"id":"m:29","path":"/a"}}}})"},
        {"memory_edit",
         R"({"title":"T","filters":{"n":7,"x":0.5,"on":true,"w":"z"},"type":"t","why":"w","text":"x","id":"m1","scope":"/"})",
         R"({"notes":{"_0":{"edit":{"id":"m1","text":"x","why":"w","type":"t","path":"/","filters":{"n":7,"on":true,"w":"z","x":0.5},"title":"T"}}}})"},
        // Any text goes through as it is; null is nothing, and what our hooks add is taken off.
        {"memory_edit",
         R"({"id":"","scope":"/\"q\"\\b/\ud83d\ude80/שלום","why":null,"_wendlow_session":"s","_wendlow_subagent":"t"})",
         R"({"notes":{"_0":{"edit":{"id":"","path":"/\"q\"\\b/🚀/שלום"}}}})"},
        {"scope_map_folder", R"({"folder":"/p \"q\" \\ é","scope":"/s"})",
         R"({"notes":{"_0":{"mapPath":{"folder":"/p \"q\" \\ é","path":"/s"}}}})"},
        // Who asks is told where the contract has a place for it.
        {"memory_add", R"({"text":"x","why":"w","type":"fact","scope":"/","_wendlow_session":"s"})",
         R"({"notes":{"_0":{"write":{"text":"x","why":"w","writer":"mcp","type":"fact","path":"/","session":"s"}}}})"},
        {"rule_add", R"({"text":"x","why":"w","scope":"/a","_wendlow_session":7})",
         R"({"notes":{"_0":{"write":{"text":"x","why":"w","writer":"mcp","type":"rule","path":"/a"}}}})"},
        {"grab", R"({"id":"m1","full":true,"_wendlow_session":"s","_wendlow_subagent":"t"})",
         R"({"read":{"_0":{"grab":{"id":"m1","session":"s","full":true,"subagent":"t"}}}})"},
        {"search", R"({"query":"x","limit":7.0,"_wendlow_session":"s"})",
         R"({"read":{"_0":{"search":{"query":"x","limit":7}}}})"},
        {"recall", R"({"from":"2026-11-20"})",
         R"({"read":{"_0":{"recall":{"query":"","from":"2026-11-20"}}}})"},
        {"memory_edit_filters", R"({"id":"m1","unset":["a","b"]})",
         R"({"notes":{"_0":{"editFilters":{"id":"m1","unset":["a","b"]}}}})"},
        {"memory_patch", R"({"id":"m1","field":"text","find":"a","replace":""})",
         R"({"notes":{"_0":{"patch":{"id":"m1","field":"text","find":"a","replace":"","replaceAll":false}}}})"},
        {"scope_list_all", "null", R"({"notes":{"_0":{"listPaths":{}}}})"},
        {"scope_list_all", R"({"x":1})", "scope_list_all has no argument “x”; it has none"},
        {"search", R"({"query":"x","limit":201})",
         "“limit” of search is a whole number from 1 to 200"},
        {"search", R"({"query":"x","limit":1.5})",
         "“limit” of search is a whole number from 1 to 200"},
        {"recall", R"({"query":"x","to":"yesterday"})",
         "“to” of recall is a day such as 2026-11-21"},
        {"recall", "{}", "recall needs at least one of query, from and to"},
        {"grab", R"({"id":"m1","full":1})", "“full” of grab is true or false"},
        {"memory_edit_filters", R"({"id":"m1","unset":"a"})",
         "“unset” of memory_edit_filters is a list of texts"},
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
            EXPECT_THAT(gateway.sent, ::testing::ElementsAre(asked));
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
        {AnswerCase::Cards{}, "Nothing was found.", false},
        {AnswerCase::Cards{{{.kind = "moment", .id = "41", .snippet = "a", .why = "", .title = "A"},
                            {.kind = "memory",
                             .id = "m1",
                             .snippet = "B",
                             .why = "",
                             .filed = "/a",
                             .memoryKind = "fact",
                             .title = "B"}}},
         R"(- [41] moment: A\n  a\n- [m1] fact: B (/a)\n)", false},
        {AnswerCase::KindCards{"/a", {}}, "There is none of this type in /a.", false},
        {AnswerCase::KindTypes{"/a", {{"fact", 2, std::vector<FilterKeyCount>{{"area", 1}}}}},
         R"(In /a:\n- fact: 2 (filters: area on 1)\n)", false},
        {AnswerCase::Thing{}, "There is nothing of this id.", false},
        {AnswerCase::Thing{Card{.kind = "memory",
                                .id = "m1",
                                .snippet = "whole\ntext",
                                .why = "because",
                                .filters = std::vector<FilterPair>{{"n", 7.0}}}},
         R"([m1] memory\nwhy: because\nfilters: n=7\n\nwhole\ntext)", false},
        {AnswerCase::RulesCard{.scope = "/", .card = "- r\n", .note = "n"}, R"(- r\nNote: n\n)",
         false},
        {AnswerCase::StandingWalk{}, "No rule is delivered there.", false},
        {AnswerCase::SpanHours{{.from = "a",
                                .to = "b",
                                .active = 3720,
                                .apps = {{.app = "X", .active = 60}},
                                .days = {}}},
         R"(a to b: 1h 02m at work\n- X: 0h 01m\n)", false},
        {AnswerCase::Sessions{}, "There are no earlier sessions.", false},
    };
    for (const auto& row : rows) {
        SameAnswer gateway;
        gateway.answer = row.answer;
        EXPECT_EQ(answerTo(call("memory_edit", R"({"id":"m1","text":"x"})"), &gateway),
                  result("\"c\"", R"({"content":[{"type":"text","text":")" + std::string(row.text) +
                                      R"("}],"isError":)" + (row.isError ? "true}" : "false}")));
    }
}

/// Speaks to a server that has been initialized by this client.
class Speaking {
public:
    Speaking(std::string_view revision, std::string_view client) {
        say(initialize(revision, client));
    }
    std::string say(std::string_view line) {
        return QCoro::waitFor(server.handle(std::string(line))).value_or("nothing");
    }

    SameAnswer gateway;
    MCPServer server{"1", [this]() -> WendlowClient& { return gateway; }};
};

TEST(MCPServer, WritesInTheNameOfItsClient) {
    const std::pair<const char*, const char*> rows[] = {
        {"claude-code", "claude-code"},
        {"codex-mcp-client", "codex"},
        {"cursor-vscode", "cursor"},
        {" a\\nb ", "a b"},
        {"", "mcp"},
        {"0123456789012345678901234567890123456789012345678901234567890123456",
         "0123456789012345678901234567890123456789012345678901234567890123"},
        {"012345678901234567890123456789012345678901234567890123456789012é",
         "012345678901234567890123456789012345678901234567890123456789012"}};
    for (const auto& [client, writer] : rows) {
        Speaking speaking("2025-06-18", client);
        speaking.say(call("memory_add", R"({"text":"x","why":"","type":"t","scope":"/"})"));
        EXPECT_THAT(speaking.gateway.sent, ::testing::ElementsAre(::testing::HasSubstr(
                                               fmt::format(R"("writer":"{}")", writer))));
    }
}

TEST(MCPServer, GivesEachRevisionWhatItHas) {
    const std::pair<std::string_view, std::string_view> rows[] = {
        {"2025-03-26", R"({"content":[{"type":"text","text":"Saved m29."}],"isError":false})"},
        {"2025-06-18",
         R"({"content":[{"type":"text","text":"Saved m29."}],"structuredContent":{"noteID":"m29"},"isError":false})"}};
    const std::string edit = call("memory_edit", R"({"id":"m1","text":"x"})");
    for (const auto& [revision, content] : rows) {
        Speaking speaking(revision, "x");
        EXPECT_EQ(speaking.say(edit), result("\"c\"", content));
        EXPECT_EQ(speaking.say(call("grab", "{}")), failure("\"c\"", -32602, "grab needs id"));
        speaking.gateway.answer = AnswerCase::Text{"words"};
        EXPECT_THAT(speaking.say(edit), Not(::testing::HasSubstr("structuredContent")));
    }
    EXPECT_EQ(
        Speaking("2025-11-25", "x").say(call("grab", "{}")),
        result("\"c\"", R"({"content":[{"type":"text","text":"grab needs id"}],"isError":true})"));
}

/// Answers when it is told to.
class SlowGateway final : public WendlowClient {
public:
    QCoro::Task<GatewayResponse> send(GatewayRequest /*request*/) override {
        co_await QCoro::sleepFor(std::chrono::milliseconds(1300));
        co_return AnswerCase::NoteID{"m29"};
    }
};

TEST(MCPServer, LetsGoOfWhatIsGivenUpAndTellsOfWhatTakesLong) {
    SlowGateway gateway;
    std::vector<std::string> told;
    MCPServer server(
        "1", [&]() -> WendlowClient& { return gateway; },
        [&](std::string line) { told.push_back(std::move(line)); });
    const auto edit = [](std::string_view id, std::string_view meta) {
        return fmt::format(
            R"({{"jsonrpc":"2.0","id":{},"method":"tools/call","params":{{{}"name":"memory_edit","arguments":{{"id":"m1","text":"x"}}}}}})",
            id, meta);
    };
    auto givenUp = server.handle(edit("7", ""));
    auto waited = server.handle(edit("\"7\"", R"("_meta":{"progressToken":"t"},)"));
    QCoro::waitFor(server.handle(
        R"({"jsonrpc":"2.0","method":"notifications/cancelled","params":{"requestId":7}})"));
    EXPECT_TRUE(givenUp.isReady());
    EXPECT_EQ(QCoro::waitFor(std::move(givenUp)), std::nullopt);
    EXPECT_THAT(QCoro::waitFor(std::move(waited)).value(), ::testing::HasSubstr("Saved m29."));
    EXPECT_THAT(
        told,
        ::testing::ElementsAre(
            R"({"jsonrpc":"2.0","method":"notifications/progress","params":{"progressToken":"t","progress":1,"message":"Wendlow is still looking"}})"));
    // Nobody is under way any more, and what is given up twice or never was is no matter.
    for (const char* const id : {"7", "\"7\"", "null", "{}"})
        EXPECT_EQ(
            QCoro::waitFor(server.handle(fmt::format(
                R"({{"jsonrpc":"2.0","method":"notifications/cancelled","params":{{"requestId":{}}}}})",
                id))),
            std::nullopt);
}

/// Answers when it is told to.
class HeldGateway final : public WendlowClient {
public:
    QCoro::Task<GatewayResponse> send(GatewayRequest /*request*/) override {
        ++sent;
        co_await Gate{waiting};
        co_return AnswerCase::NoteID{"m29"};
    }
    void answer() {
        const auto first = waiting.front();
        waiting.pop_front();
        first.resume();
        QCoreApplication::processEvents();
    }

    struct Gate {
        std::deque<std::coroutine_handle<>>& waiting;
        bool await_ready() const noexcept { return false; }
        void await_suspend(std::coroutine_handle<> waiter) const { waiting.push_back(waiter); }
        void await_resume() const noexcept {}
    };
    int sent = 0;
    std::deque<std::coroutine_handle<>> waiting;
};

TEST(MCPServer, HonoursACancelWhateverElseWaits) {
    HeldGateway gateway;
    MCPServer server("1", [&]() -> WendlowClient& { return gateway; });
    const auto edit = [](std::string_view id) {
        return fmt::format(
            R"({{"jsonrpc":"2.0","id":{},"method":"tools/call","params":{{"name":"memory_edit","arguments":{{"id":"m1","text":"x"}}}}}})",
            id);
    };
    const auto cancelled = [](int id) {
        return fmt::format(
            R"({{"jsonrpc":"2.0","method":"notifications/cancelled","params":{{"requestId":{}}}}})",
            id);
    };
    std::vector<QCoro::Task<std::optional<std::string>>> calls;
    for (int id = 0; id < 99; ++id)
        calls.push_back(server.handle(edit(std::to_string(id))));
    calls.push_back(server.handle("[" + edit("99") + "," + edit("100") + "]"));
    EXPECT_EQ(gateway.sent, 64) << "the others wait for their turn";
    // One that has not been asked, one that has, one of a batch: of them nothing is heard.
    for (const int id : {80, 3, 99}) {
        QCoro::waitFor(server.handle(cancelled(id)));
        if (id < 99) {
            EXPECT_EQ(QCoro::waitFor(std::move(calls[static_cast<std::size_t>(id)])), std::nullopt);
        }
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(gateway.sent, 65) << "the turn of the one that was asked is the next one's";
    // What needs no gateway is answered meanwhile, and what finds no room is told so.
    EXPECT_EQ(QCoro::waitFor(server.handle(R"({"jsonrpc":"2.0","id":1,"method":"ping"})")),
              result("1", "{}"));
    using enum MCPServer::Room;
    EXPECT_THAT(QCoro::waitFor(server.handle(edit("7"), none)).value(),
                ::testing::HasSubstr(R"(this one was not made."}],"isError":true})"));
    EXPECT_THAT(
        QCoro::waitFor(server.handle(R"({"jsonrpc":"2.0","id":7,"method":"resources/list"})", none))
            .value(),
        ::testing::HasSubstr("\"code\":-32603"));
    while (!gateway.waiting.empty())
        gateway.answer();
    EXPECT_EQ(gateway.sent, 99) << "all but the two that were given up in time";
    for (int id = 0; id < 99; ++id)
        if (id != 80 && id != 3) {
            EXPECT_THAT(QCoro::waitFor(std::move(calls[static_cast<std::size_t>(id)])).value(),
                        ::testing::HasSubstr(fmt::format("\"id\":{},", id)));
        }
    EXPECT_THAT(QCoro::waitFor(std::move(calls.back())).value(),
                ::testing::StartsWith(R"([{"jsonrpc":"2.0","id":100,)"));
    // No turn is lost to who has left.
    for (int id = 0; id < 64; ++id)
        calls.push_back(server.handle(edit(std::to_string(id))));
    EXPECT_EQ(gateway.sent, 99 + 64);
    while (!gateway.waiting.empty())
        gateway.answer();
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
