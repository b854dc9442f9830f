#include "Codec/Document.h"

#include <charconv>
#include <cmath>
#include <limits>

#include <boost/json/basic_parser_impl.hpp>
#include <boost/json/value_stack.hpp>
#include <fmt/format.h>

namespace wendlow::Codec {

namespace {

using boost::json::error_code;
using boost::json::string_view;

/// Far deeper than any message of the contract; each level costs the parser a little memory.
constexpr std::size_t depthLimit = 64;

/// Builds the document from the parser's events. The parser's own doubles may be off by a bit in
/// the last place, so they are read again from their text.
struct Builder {
    static constexpr std::size_t unlimited = std::numeric_limits<std::size_t>::max();
    static constexpr std::size_t max_object_size = unlimited;
    static constexpr std::size_t max_array_size = unlimited;
    static constexpr std::size_t max_key_size = unlimited;
    static constexpr std::size_t max_string_size = unlimited;

    boost::json::value_stack stack;

    bool on_document_begin(error_code&) { return true; }
    bool on_document_end(error_code&) { return true; }
    bool on_object_begin(error_code&) { return true; }
    bool on_object_end(std::size_t count, error_code&) {
        stack.push_object(count);
        return true;
    }
    bool on_array_begin(error_code&) { return true; }
    bool on_array_end(std::size_t count, error_code&) {
        stack.push_array(count);
        return true;
    }
    bool on_key_part(string_view text, std::size_t, error_code&) {
        stack.push_chars(text);
        return true;
    }
    bool on_key(string_view text, std::size_t, error_code&) {
        stack.push_key(text);
        return true;
    }
    bool on_string_part(string_view text, std::size_t, error_code&) {
        stack.push_chars(text);
        return true;
    }
    bool on_string(string_view text, std::size_t, error_code&) {
        stack.push_string(text);
        return true;
    }
    bool on_number_part(string_view, error_code&) { return true; }
    bool on_int64(std::int64_t value, string_view, error_code&) {
        stack.push_int64(value);
        return true;
    }
    bool on_uint64(std::uint64_t value, string_view, error_code&) {
        stack.push_uint64(value);
        return true;
    }
    bool on_double(double rough, string_view text, error_code& error) {
        double exact = 0;
        const auto result = std::from_chars(text.data(), text.data() + text.size(), exact);
        // Too small for a double is as good as zero; too large is an error.
        if (result.ec == std::errc::result_out_of_range && std::abs(rough) >= 1) {
            error = boost::json::error::exponent_overflow;
            return false;
        }
        stack.push_double(exact);
        return true;
    }
    bool on_bool(bool value, error_code&) {
        stack.push_bool(value);
        return true;
    }
    bool on_null(error_code&) {
        stack.push_null();
        return true;
    }
    bool on_comment_part(string_view, error_code&) { return true; }
    bool on_comment(string_view, error_code&) { return true; }
};

} // namespace

std::expected<boost::json::value, std::string> document(std::string_view text,
                                                        boost::json::storage_ptr storage) {
    boost::json::parse_options options;
    options.max_depth = depthLimit;
    boost::json::basic_parser<Builder> parser(options);
    Builder& builder = parser.handler();
    builder.stack.reset(std::move(storage));
    error_code error;
    const std::size_t consumed = parser.write_some(false, text.data(), text.size(), error);
    if (!error && consumed < text.size())
        error = boost::json::error::extra_data;
    if (error)
        return std::unexpected(
            fmt::format("this is not JSON: {} at byte {}", error.message(), consumed));
    return builder.stack.release();
}

} // namespace wendlow::Codec
