#include "MCPServer.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include <boost/json/array.hpp>
#include <boost/json/object.hpp>
#include <boost/json/serialize.hpp>
#include <fmt/format.h>

#include "AnswerText.h"
#include "Catalogue.h"
#include "LineReader.h"
#include "RPCMessage.h"

namespace wendlow {

namespace {

namespace json = boost::json;

/// In order of age; the last is offered to a client that asks for none of them.
constexpr std::array<std::string_view, 3> revisions = {"2024-11-05", "2025-03-26", "2025-06-18"};

enum class ErrorCode {
    parseError = -32700,
    invalidRequest = -32600,
    methodNotFound = -32601,
    invalidParams = -32602,
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
std::string content(const std::expected<std::string, std::string>& told) {
    return fmt::format(R"({{"content":[{{"type":"text","text":{}}}],"isError":{}}})",
                       jsonText(told ? *told : told.error()), !told);
}

} // namespace

MCPServer::MCPServer(std::string version, Door door)
    : m_version(std::move(version)), m_door(std::move(door)) {}

QCoro::Task<std::optional<std::string>> MCPServer::handle(std::string line) const {
    if (line.find_first_not_of(" \t\r") == std::string::npos)
        co_return std::nullopt;
    auto input = RPCInput::parse(line);
    line = {}; // it may be large, and an answer long in coming
    if (!input)
        co_return failure("null", ErrorCode::parseError, "this is not JSON: " + input.error());
    if (!input->isBatch)
        co_return co_await answer(std::move(input->messages.front()));
    if (input->messages.empty())
        co_return failure("null", ErrorCode::invalidRequest, "a batch holds at least one request");
    std::vector<QCoro::Task<std::optional<std::string>>> underWay;
    for (RPCMessage& message : input->messages)
        underWay.push_back(answer(std::move(message)));
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

QCoro::Task<std::optional<std::string>> MCPServer::answer(RPCMessage message) const {
    if (const auto sentence = fault(message))
        co_return failure(message.id, ErrorCode::invalidRequest, *sentence);
    // This server asks nothing of its client, so an answer is a stray one.
    if (message.identifier == RPCMessage::Identifier::absent || !message.method)
        co_return std::nullopt;
    const std::string& method = *message.method;
    if (method == "initialize")
        co_return initialized(message);
    if (method == "ping")
        co_return result(message, "{}");
    if (method == "tools/list")
        co_return result(message, listed());
    if (method == "tools/call")
        co_return co_await called(std::move(message));
    co_return failure(message.id, ErrorCode::methodNotFound, "Method not found: " + method);
}

QCoro::Task<std::optional<std::string>> MCPServer::called(RPCMessage message) const {
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
    auto request = tool->read(arguments == nullptr ? json::value() : *arguments);
    if (!request)
        co_return invalid(request.error());
    message.params = nullptr;
    const GatewayResponse response = co_await m_door().send(std::move(*request));
    co_return result(message, content(AnswerText::told(response, tool->name)));
}

std::string MCPServer::initialized(const RPCMessage& message) const {
    const auto asked = message.text("protocolVersion");
    if (!asked)
        return failure(message.id, ErrorCode::invalidParams, "initialize names a protocolVersion");
    const bool isKnown = std::ranges::find(revisions, *asked) != revisions.end();
    const std::string_view revision = isKnown ? *asked : revisions.back();
    return result(message, fmt::format(R"({{"protocolVersion":{},"capabilities":{{"tools":{{}}}},)"
                                       R"("serverInfo":{{"name":"wendlow","version":{}}}}})",
                                       jsonText(revision), jsonText(m_version)));
}

} // namespace wendlow
