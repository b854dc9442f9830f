#include "MCPServer.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <iterator>
#include <utility>
#include <vector>

#include <QTimer>
#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
#include <boost/json/serialize.hpp>
#include <fmt/format.h>

#include "AnswerText.h"
#include "Catalogue.h"
#include "LineReader.h"
#include "PlainText.h"
#include "RPCMessage.h"

namespace wendlow {

namespace {

namespace json = boost::json;

/// In order of age; the last is offered to a client that asks for none of them.
constexpr std::array<std::string_view, 4> revisions = {"2024-11-05", "2025-03-26", "2025-06-18",
                                                       "2025-11-25"};
/// From these on a result may have parts, and what is wrong with a call is told to the model.
constexpr std::string_view withParts = "2025-06-18";
constexpr std::string_view withModelsMistakes = "2025-11-25";

constexpr std::string_view instructions =
    "Wendlow is the person's own memory of their work, shared by all their AI tools. Look with "
    "recall before asking them what they have told before, read what matters whole with grab, and "
    "file with memory_add what later sessions will need.";

enum class ErrorCode {
    parseError = -32700,
    invalidRequest = -32600,
    methodNotFound = -32601,
    invalidParams = -32602,
    internalError = -32603,
    resourceNotFound = -32002,
};

std::string jsonText(std::string_view text) {
    return json::serialize(text);
}

std::string result(const RPCMessage& message, std::string_view value) {
    return fmt::format(R"({{"jsonrpc":"2.0","id":{},"result":{}}})", message.id, value);
}

std::string failure(std::string_view id, ErrorCode code, std::string_view sentence) {
    return fmt::format(R"({{"jsonrpc":"2.0","id":{},"error":{{"code":{},"message":{}}}}})", id,
                       std::to_underlying(code), jsonText(sentence));
}

/// Why this is no request that can be answered, if it is none.
std::optional<std::string_view> fault(const RPCMessage& message) {
    if (!message.isObject)
        return "a request is an object";
    if (!message.isVersion2)
        return "a request has \"jsonrpc\":\"2.0\"";
    if (message.identifier == RPCMessage::Identifier::malformed)
        return "an id is a string or a number";
    if (!message.method && !message.isAnswer)
        return "a request has a method";
    return std::nullopt;
}

std::string listed() {
    json::array tools;
    for (const Tool& tool : Catalogue::tools())
        tools.push_back(tool.listed());
    return json::serialize(json::object{{"tools", std::move(tools)}});
}

/// What a call came to: a failure of the gateway is a result too, which the model reads.
std::string content(const std::expected<std::string, std::string>& told,
                    const std::optional<std::string>& parts = std::nullopt) {
    return fmt::format(R"({{"content":[{{"type":"text","text":{}}}],{}"isError":{}}})",
                       jsonText(told ? *told : told.error()),
                       parts ? fmt::format(R"("structuredContent":{},)", *parts) : std::string(),
                       !told);
}

/// The name by which a tool's hooks are called, so that whatever a tool files has one writer.
std::string writerOf(std::string_view client) {
    static constexpr std::pair<std::string_view, std::string_view> known[] = {
        {"codex-mcp-client", "codex"}, {"cursor-vscode", "cursor"}, {"Cursor", "cursor"}};
    for (const auto& [itself, writer] : known)
        if (client == itself)
            return std::string(writer);
    constexpr std::size_t most = 64;
    std::string writer(client.substr(0, most));
    while (writer.size() == most && (static_cast<unsigned char>(writer.back()) & 0xC0U) == 0x80U)
        writer.pop_back();
    if (writer.size() < client.size() && !writer.empty() &&
        static_cast<unsigned char>(writer.back()) >= 0xC0U)
        writer.pop_back();
    std::ranges::replace_if(
        writer, [](char letter) { return static_cast<unsigned char>(letter) < ' '; }, ' ');
    const std::string_view trimmed = PlainText::trimmed(writer);
    return trimmed.empty() ? "mcp" : std::string(trimmed);
}

/// Tells a client that asked to be told how long its answer is in coming, each second.
class Progress {
public:
    Progress(const RPCMessage& message, const MCPServer::Say& say) {
        const json::value* const meta = message.parameter("_meta");
        if (meta == nullptr || !meta->is_object())
            return;
        const json::value* const token = meta->get_object().if_contains("progressToken");
        if (token == nullptr || !(token->is_string() || token->is_number()))
            return;
        QObject::connect(
            &m_timer, &QTimer::timeout, [this, &say, text = std::string(json::serialize(*token))] {
                say(fmt::format(R"({{"jsonrpc":"2.0","method":"notifications/progress",)"
                                R"("params":{{"progressToken":{},"progress":{},)"
                                R"("message":"Wendlow is still looking"}}}})",
                                text, ++m_seconds));
            });
        m_timer.start(std::chrono::seconds(1));
    }

private:
    QTimer m_timer;
    int m_seconds = 0;
};

std::string noRoom(const RPCMessage& message) {
    constexpr std::string_view sentence = "Wendlow has not answered for a while, and too many "
                                          "calls wait for it; this one was not made.";
    if (*message.method == "tools/call")
        return result(message, content(std::unexpected(std::string(sentence))));
    return failure(message.id, ErrorCode::internalError, sentence);
}

bool asksTheGateway(std::string_view method) {
    static constexpr std::string_view methods[] = {"tools/call", "resources/list", "resources/read",
                                                   "prompts/get"};
    return std::ranges::find(methods, method) != std::end(methods);
}

ErrorCode codeOf(Library::Fault::Kind kind) {
    switch (kind) {
    case Library::Fault::Kind::notFound:
        return ErrorCode::resourceNotFound;
    case Library::Fault::Kind::badArgument:
        return ErrorCode::invalidParams;
    case Library::Fault::Kind::refused:
        break;
    }
    return ErrorCode::internalError;
}

} // namespace

MCPServer::MCPServer(std::string version, Door door, Say say)
    : m_version(std::move(version)), m_door(std::move(door)), m_say(std::move(say)) {}

QCoro::Task<std::optional<std::string>> MCPServer::handle(std::string line, Room room) {
    if (line.find_first_not_of(" \t\r") == std::string::npos)
        co_return std::nullopt;
    auto input = RPCInput::parse(line);
    line = {}; // it may be large, and an answer long in coming
    if (!input)
        co_return failure("null", ErrorCode::parseError, "this is not JSON: " + input.error());
    if (!input->isBatch)
        co_return co_await answer(std::move(input->messages.front()), room);
    if (input->messages.empty())
        co_return failure("null", ErrorCode::invalidRequest, "a batch holds at least one request");
    std::vector<QCoro::Task<Answer>> underWay;
    for (RPCMessage& message : input->messages)
        underWay.push_back(answer(std::move(message), room));
    std::string answers;
    for (auto& task : underWay)
        if (const auto one = co_await task)
            answers += (answers.empty() ? "" : ",") + *one;
    if (answers.empty())
        co_return std::nullopt;
    co_return fmt::format("[{}]", answers);
}

std::string MCPServer::tooLong() {
    return failure("null", ErrorCode::parseError,
                   fmt::format("a message has at most {} bytes", LineReader::lineLimit));
}

QCoro::Task<MCPServer::Answer> MCPServer::answer(RPCMessage message, Room room) {
    if (const auto sentence = fault(message))
        co_return failure(message.id, ErrorCode::invalidRequest, *sentence);
    // This server asks nothing of its client, so an answer is a stray one.
    if (!message.method)
        co_return std::nullopt;
    if (message.identifier == RPCMessage::Identifier::absent) {
        if (*message.method == "notifications/cancelled")
            giveUp(message);
        co_return std::nullopt;
    }
    if (!asksTheGateway(*message.method))
        co_return answeredAtOnce(message);
    if (room == Room::none)
        co_return noRoom(message);
    const std::string id = message.id;
    const auto call = std::make_shared<GatewayCall>(m_door, m_turns);
    m_underWay.insert_or_assign(id, call);
    const Progress progress(message, m_say);
    Answer answer = co_await asked(std::move(message), call);
    // A client that gives an id twice at one time gives up the later of the two.
    if (const auto found = m_underWay.find(id); found != m_underWay.end() && found->second == call)
        m_underWay.erase(found);
    co_return answer;
}

std::optional<std::string> MCPServer::answeredAtOnce(const RPCMessage& message) {
    const std::string& method = *message.method;
    if (method == "initialize")
        return initialized(message);
    if (method == "ping")
        return result(message, "{}");
    if (method == "tools/list")
        return result(message, listed());
    if (method == "resources/templates/list")
        return result(message, Library::templates());
    if (method == "prompts/list")
        return result(message, Library::prompts());
    return failure(message.id, ErrorCode::methodNotFound, "Method not found: " + method);
}

void MCPServer::giveUp(const RPCMessage& notification) {
    const json::value* const id = notification.parameter("requestId");
    if (id == nullptr)
        return;
    const auto found = m_underWay.find(std::string(json::serialize(*id)));
    if (found != m_underWay.end()) {
        const auto call = found->second; // it takes itself off the list
        call->giveUp();
    }
}

QCoro::Task<MCPServer::Answer> MCPServer::asked(RPCMessage message,
                                                std::shared_ptr<GatewayCall> call) const {
    const std::string& method = *message.method;
    if (method == "tools/call")
        co_return co_await called(std::move(message), std::move(call));
    Library::Outcome outcome;
    if (method == "resources/list") {
        outcome = co_await Library::list(call, message.text("cursor"));
    } else if (method == "resources/read") {
        const auto uri = message.text("uri");
        if (!uri)
            co_return failure(message.id, ErrorCode::invalidParams, "resources/read names a uri");
        outcome = co_await Library::read(call, *uri);
    } else {
        const json::value* const arguments = message.parameter("arguments");
        std::optional<std::string> about;
        if (arguments != nullptr && arguments->is_object())
            if (const auto* const value = arguments->get_object().if_contains("about"))
                if (value->is_string())
                    about = std::string(value->get_string());
        const std::string name = message.text("name").value_or("");
        outcome = co_await Library::prompt(call, name, std::move(about));
    }
    if (!outcome)
        co_return std::nullopt;
    if (!*outcome)
        co_return failure(message.id, codeOf(outcome->error().kind), outcome->error().sentence);
    co_return result(message, **outcome);
}

QCoro::Task<MCPServer::Answer> MCPServer::called(RPCMessage message,
                                                 std::shared_ptr<GatewayCall> call) const {
    const auto invalid = [&](std::string_view sentence) {
        return failure(message.id, ErrorCode::invalidParams, sentence);
    };
    const auto name = message.text("name");
    if (!name)
        co_return invalid("tools/call names a tool");
    const Tool* const tool = Catalogue::find(*name);
    if (tool == nullptr)
        co_return invalid("Unknown tool: " + *name);
    const json::value* const arguments = message.parameter("arguments");
    const ToolCaller caller{.writer = m_writer};
    auto request = tool->read(arguments == nullptr ? json::value() : *arguments, caller);
    if (!request && speaks(withModelsMistakes))
        co_return result(message, content(std::unexpected(request.error())));
    if (!request)
        co_return invalid(request.error());
    message.params = nullptr; // it may be large, and an answer long in coming
    const auto response = co_await call->ask(std::move(*request));
    if (!response)
        co_return std::nullopt;
    const auto parts =
        speaks(withParts) ? AnswerText::structured(*response) : std::optional<std::string>();
    co_return result(message, content(AnswerText::told(*response, tool->name), parts));
}

std::string MCPServer::initialized(const RPCMessage& message) {
    const auto asked = message.text("protocolVersion");
    if (!asked)
        return failure(message.id, ErrorCode::invalidParams, "initialize names a protocolVersion");
    const bool isKnown = std::ranges::find(revisions, *asked) != revisions.end();
    m_revision = isKnown ? *asked : revisions.back();
    if (const json::value* const client = message.parameter("clientInfo"))
        if (client->is_object())
            if (const auto* const name = client->get_object().if_contains("name"))
                if (name->is_string())
                    m_writer = writerOf(name->get_string());
    return result(message,
                  fmt::format(R"({{"protocolVersion":{},)"
                              R"("capabilities":{{"tools":{{}},"resources":{{}},"prompts":{{}}}},)"
                              R"("serverInfo":{{"name":"wendlow","version":{}}},)"
                              R"("instructions":{}}})",
                              jsonText(m_revision), jsonText(m_version), jsonText(instructions)));
}

} // namespace wendlow
