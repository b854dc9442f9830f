#include "RPCMessage.h"

#include <cstddef>
#include <cstdint>
#include <exception>
#include <limits>
#include <utility>

#include <boost/json/basic_parser_impl.hpp>
#include <boost/json/serialize.hpp>
#include <boost/json/value_stack.hpp>
#include <fmt/format.h>

namespace wendlow {

namespace {

using boost::json::error_code;
using boost::json::string_view;

constexpr std::size_t depthLimit = 512;

enum class Kind { container, object, text, number, other };

/// Picks the members that matter out of the parser's events and keeps of the parameters alone a
/// document. A number's text is at hand only here, and an identifier may be larger than any number
/// type.
struct Picker {
    static constexpr std::size_t unlimited = std::numeric_limits<std::size_t>::max();
    static constexpr std::size_t max_object_size = unlimited;
    static constexpr std::size_t max_array_size = unlimited;
    static constexpr std::size_t max_key_size = unlimited;
    static constexpr std::size_t max_string_size = unlimited;

    RPCInput input;
    std::ptrdiff_t depth = 0;
    std::string text; ///< of the string that is being read
    std::string key;  ///< of the message's present member
    boost::json::value_stack params;

    /// How far inside a message the parser is: 0 is outside.
    std::ptrdiff_t level() const { return depth - (input.isBatch ? 1 : 0); }
    bool isInParams() const { return level() >= 2 && key == "params"; }

    void value(Kind kind, std::string_view content = {}) {
        if (level() == 0) {
            key.clear(); // what is no object has no members
            input.messages.push_back({.isObject = kind == Kind::object});
        } else if (level() == 1 && input.messages.back().isObject) {
            member(input.messages.back(), kind, content);
        }
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
            message.params = nullptr;
            params.reset();
        } else if (key == "result" || key == "error") {
            message.isAnswer = true;
        }
    }

    bool begin(Kind kind) {
        value(kind);
        ++depth;
        return true;
    }
    template<class Push> bool end(const Push& push) {
        const bool isOfParams = isInParams();
        --depth;
        if (isOfParams)
            push();
        if (isOfParams && level() == 1)
            input.messages.back().params = params.release();
        return true;
    }
    /// A value without parts.
    template<class Push> bool plain(const Push& push, Kind kind, string_view content = {}) {
        if (isInParams())
            push();
        else
            value(kind, content);
        return true;
    }
    /// A piece of a string or of a key.
    bool part(string_view piece) {
        if (isInParams())
            params.push_chars(piece);
        else
            text += piece;
        return true;
    }

    bool on_document_begin(error_code&) { return true; }
    bool on_document_end(error_code&) { return true; }
    bool on_object_begin(error_code&) { return begin(Kind::object); }
    bool on_object_end(std::size_t size, error_code&) {
        return end([&] { params.push_object(size); });
    }
    bool on_array_begin(error_code&) {
        if (depth > 0)
            return begin(Kind::container);
        input.isBatch = true;
        ++depth;
        return true;
    }
    bool on_array_end(std::size_t size, error_code&) {
        return end([&] { params.push_array(size); });
    }
    bool on_key_part(string_view piece, std::size_t, error_code&) { return part(piece); }
    bool on_key(string_view piece, std::size_t, error_code&) {
        if (isInParams()) {
            params.push_key(piece);
            return true;
        }
        text += piece;
        if (level() == 1)
            key = text;
        text.clear();
        return true;
    }
    bool on_string_part(string_view piece, std::size_t, error_code&) { return part(piece); }
    bool on_string(string_view piece, std::size_t, error_code&) {
        if (isInParams()) {
            params.push_string(piece);
            return true;
        }
        text += piece;
        value(Kind::text, text);
        text.clear();
        return true;
    }
    bool on_number_part(string_view, error_code&) { return true; }
    bool on_int64(std::int64_t number, string_view digits, error_code&) {
        return plain([&] { params.push_int64(number); }, Kind::number, digits);
    }
    bool on_uint64(std::uint64_t number, string_view digits, error_code&) {
        return plain([&] { params.push_uint64(number); }, Kind::number, digits);
    }
    bool on_double(double number, string_view digits, error_code&) {
        return plain([&] { params.push_double(number); }, Kind::number, digits);
    }
    bool on_bool(bool flag, error_code&) {
        return plain([&] { params.push_bool(flag); }, Kind::other);
    }
    bool on_null(error_code&) {
        return plain([&] { params.push_null(); }, Kind::other);
    }
    bool on_comment_part(string_view, error_code&) { return true; }
    bool on_comment(string_view, error_code&) { return true; }
};

} // namespace

const boost::json::value* RPCMessage::parameter(std::string_view name) const {
    return params.is_object() ? params.get_object().if_contains(name) : nullptr;
}

std::optional<std::string> RPCMessage::text(std::string_view name) const {
    const boost::json::value* const value = parameter(name);
    if (value == nullptr || !value->is_string())
        return std::nullopt;
    return std::string(value->get_string());
}

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
