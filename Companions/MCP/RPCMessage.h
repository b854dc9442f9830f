#pragma once

#include <expected>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <boost/json/value.hpp>

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
    boost::json::value params = nullptr; ///< an object, an array, or nothing

    /// A parameter by its name; nothing where there are none by name.
    const boost::json::value* parameter(std::string_view name) const;
    /// The same for one that is to be a text.
    std::optional<std::string> text(std::string_view name) const;
};

/// What stood on one line: a message, or a batch of them.
struct RPCInput {
    bool isBatch = false;
    std::vector<RPCMessage> messages;

    /// An error is a sentence: the line is not JSON. Never throws.
    static std::expected<RPCInput, std::string> parse(std::string_view line);
};

} // namespace wendlow
