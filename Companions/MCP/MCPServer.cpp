#include "MCPServer.h"

#include <algorithm>
#include <array>
#include <utility>

#include <boost/json/serialize.hpp>
#include <fmt/format.h>

#include "LineReader.h"
#include "RPCMessage.h"

namespace wendlow {

namespace {

/// In order of age; the last is offered to a client that asks for none of them.
constexpr std::array<std::string_view, 3> revisions = {"2024-11-05", "2025-03-26", "2025-06-18"};

enum class ErrorCode {
    parseError = -32700,
    invalidRequest = -32600,
    methodNotFound = -32601,
    invalidParams = -32602,
};

std::string jsonText(std::string_view text) {
    return boost::json::serialize(text);
}

std::string result(const RPCMessage& message, std::string_view json) {
    return fmt::format(R"({{"jsonrpc":"2.0","id":{},"result":{}}})", message.id, json);
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

} // namespace

MCPServer::MCPServer(std::string version) : m_version(std::move(version)) {}

std::optional<std::string> MCPServer::handle(std::string_view line) const {
    if (line.find_first_not_of(" \t\r") == std::string_view::npos)
        return std::nullopt;
    const auto input = RPCInput::parse(line);
    if (!input)
        return failure("null", ErrorCode::parseError, "this is not JSON: " + input.error());
    if (!input->isBatch)
        return answer(input->messages.front());
    if (input->messages.empty())
        return failure("null", ErrorCode::invalidRequest, "a batch holds at least one request");
    std::string answers;
    for (const RPCMessage& message : input->messages)
        if (const auto one = answer(message))
            answers += (answers.empty() ? "" : ",") + *one;
    if (answers.empty())
        return std::nullopt;
    return fmt::format("[{}]", answers);
}

std::string MCPServer::tooLong() {
    return failure("null", ErrorCode::parseError,
                   fmt::format("a message has at most {} bytes", LineReader::lineLimit));
}

std::optional<std::string> MCPServer::answer(const RPCMessage& message) const {
    if (const auto sentence = fault(message))
        return failure(message.id, ErrorCode::invalidRequest, *sentence);
    // This server asks nothing of its client, so an answer is a stray one.
    if (message.identifier == RPCMessage::Identifier::absent || !message.method)
        return std::nullopt;
    const std::string& method = *message.method;
    if (method == "initialize")
        return initialized(message);
    if (method == "ping")
        return result(message, "{}");
    if (method == "tools/list")
        return result(message, R"({"tools":[]})");
    if (method == "tools/call")
        return failure(message.id, ErrorCode::invalidParams,
                       message.name ? "Unknown tool: " + *message.name : "tools/call names a tool");
    return failure(message.id, ErrorCode::methodNotFound, "Method not found: " + method);
}

std::string MCPServer::initialized(const RPCMessage& message) const {
    if (!message.protocolVersion)
        return failure(message.id, ErrorCode::invalidParams, "initialize names a protocolVersion");
    const bool isKnown = std::ranges::find(revisions, *message.protocolVersion) != revisions.end();
    const std::string_view revision = isKnown ? *message.protocolVersion : revisions.back();
    return result(message, fmt::format(R"({{"protocolVersion":{},"capabilities":{{"tools":{{}}}},)"
                                       R"("serverInfo":{{"name":"wendlow","version":{}}}}})",
                                       jsonText(revision), jsonText(m_version)));
}

} // namespace wendlow
