#pragma once

#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

/// One message of JSON-RPC 2.0, as far as the server looks at it.
struct RPCMessage {
    enum class Identifier { absent, given, malformed };

    bool isObject = false;
    bool isVersion2 = false;
    bool isAnswer = false; ///< has a result or an error
    Identifier identifier = Identifier::absent;
    std::string id = "null"; ///< as JSON, a number in its sender's own spelling
    std::optional<std::string> method = std::nullopt;
    std::optional<std::string> protocolVersion = std::nullopt; ///< of the parameters
    std::optional<std::string> name = std::nullopt;            ///< of the parameters
};

/// What stood on one line: a message, or a batch of them.
struct RPCInput {
    bool isBatch = false;
    std::vector<RPCMessage> messages;

    /// An error is a sentence: the line is not JSON. Never throws.
    static std::expected<RPCInput, std::string> parse(std::string_view line);
};

} // namespace wendlow
