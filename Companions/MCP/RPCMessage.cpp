#include "RPCMessage.h"

#include <cstdint>
#include <exception>
#include <limits>

#include <boost/json/basic_parser_impl.hpp>
#include <boost/json/serialize.hpp>
#include <fmt/format.h>

namespace wendlow {

namespace {

using boost::json::error_code;
using boost::json::string_view;

constexpr std::size_t depthLimit = 512;

enum class Kind { object, array, text, number, other };

/// Picks the few members that matter out of the parser's events and keeps no document. A number's
/// text is at hand only here, and an identifier may be larger than any number type.
struct Picker {
    static constexpr std::size_t unlimited = std::numeric_limits<std::size_t>::max();
    static constexpr std::size_t max_object_size = unlimited;
    static constexpr std::size_t max_array_size = unlimited;
    static constexpr std::size_t max_key_size = unlimited;
    static constexpr std::size_t max_string_size = unlimited;

    RPCInput input;
    std::size_t depth = 0;
    std::string text;      ///< of the string that is being read
    std::string key;       ///< of the message's present member
    std::string parameter; ///< of the parameters' present member
    bool hasNamedParameters = false;

    /// How far inside a message the parser is: 0 is outside.
    std::size_t level() const { return depth - (input.isBatch ? 1 : 0); }

    void value(Kind kind, std::string_view content = {}) {
        if (level() == 0)
            input.messages.push_back({.isObject = kind == Kind::object});
        else if (level() == 1 && input.messages.back().isObject)
            member(input.messages.back(), kind, content);
        else if (level() == 2 && key == "params" && hasNamedParameters)
            namedParameter(input.messages.back(), kind, content);
    }

    void member(RPCMessage& message, Kind kind, std::string_view content) {
        if (key == "jsonrpc") {
            message.isVersion2 = kind == Kind::text && content == "2.0";
        } else if (key == "id") {
            const bool good = kind == Kind::text || kind == Kind::number;
            message.identifier =
                good ? RPCMessage::Identifier::given : RPCMessage::Identifier::malformed;
            if (kind == Kind::text)
                message.id = boost::json::serialize(content);
            else
                message.id = good ? content : "null";
        } else if (key == "method") {
            message.method.reset();
            if (kind == Kind::text)
                message.method = content;
        } else if (key == "params") {
            hasNamedParameters = kind == Kind::object;
        } else if (key == "result" || key == "error") {
            message.isAnswer = true;
        }
    }

    void namedParameter(RPCMessage& message, Kind kind, std::string_view content) const {
        if (kind == Kind::text && parameter == "protocolVersion")
            message.protocolVersion = content;
        else if (kind == Kind::text && parameter == "name")
            message.name = content;
    }

    bool number(string_view digits) {
        value(Kind::number, digits);
        return true;
    }

    bool on_document_begin(error_code&) { return true; }
    bool on_document_end(error_code&) { return true; }
    bool on_object_begin(error_code&) {
        value(Kind::object);
        ++depth;
        return true;
    }
    bool on_object_end(std::size_t, error_code&) {
        --depth;
        return true;
    }
    bool on_array_begin(error_code&) {
        if (depth == 0)
            input.isBatch = true;
        else
            value(Kind::array);
        ++depth;
        return true;
    }
    bool on_array_end(std::size_t, error_code&) {
        --depth;
        return true;
    }
    bool on_key_part(string_view part, std::size_t, error_code&) {
        text += part;
        return true;
    }
    bool on_key(string_view part, std::size_t, error_code&) {
        text += part;
        if (level() == 1)
            key = text;
        else if (level() == 2)
            parameter = text;
        text.clear();
        return true;
    }
    bool on_string_part(string_view part, std::size_t, error_code&) {
        text += part;
        return true;
    }
    bool on_string(string_view part, std::size_t, error_code&) {
        text += part;
        value(Kind::text, text);
        text.clear();
        return true;
    }
    bool on_number_part(string_view, error_code&) { return true; }
    bool on_int64(std::int64_t, string_view digits, error_code&) { return number(digits); }
    bool on_uint64(std::uint64_t, string_view digits, error_code&) { return number(digits); }
    bool on_double(double, string_view digits, error_code&) { return number(digits); }
    bool on_bool(bool, error_code&) {
        value(Kind::other);
        return true;
    }
    bool on_null(error_code&) {
        value(Kind::other);
        return true;
    }
    bool on_comment_part(string_view, error_code&) { return true; }
    bool on_comment(string_view, error_code&) { return true; }
};

} // namespace

std::expected<RPCInput, std::string> RPCInput::parse(std::string_view line) try {
    boost::json::parse_options options;
    options.max_depth = depthLimit;
    boost::json::basic_parser<Picker> parser(options);
    error_code error;
    const std::size_t consumed = parser.write_some(false, line.data(), line.size(), error);
    if (!error && consumed < line.size())
        error = boost::json::error::extra_data;
    if (error)
        return std::unexpected(fmt::format("{} at byte {}", error.message(), consumed));
    return std::move(parser.handler().input);
} catch (const std::exception& error) {
    return std::unexpected(error.what());
}

} // namespace wendlow
