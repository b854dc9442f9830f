#pragma once

#include <expected>
#include <string>
#include <string_view>

namespace wendlow {

struct GatewayEvent;
struct GatewayRequest;
struct GatewayResponse;

/// Where in a message a reader stumbled, and over what.
struct DecodeError {
    std::string path; ///< as "read._0.recall.query"; empty for the whole message
    std::string sentence;

    bool operator==(const DecodeError&) const = default;
};

/// What of a value cannot be said in JSON: text that is not UTF-8, a number that is not finite.
struct EncodeError {
    std::string path;
    std::string sentence;

    bool operator==(const EncodeError&) const = default;
};

/// The contract's JSON, UTF-8, on one line. A tagged variant is an object with exactly one key;
/// unknown keys of records are ignored; `null` is never written and reads as absent. A whole number
/// may be spelled with a fraction of zero. Input may be hostile: whatever it is, the result is a
/// value or an error, never an exception, and the depth of nesting is bounded. Any thread.
namespace WireCodec {

std::expected<std::string, EncodeError> encode(const GatewayRequest& request);
std::expected<std::string, EncodeError> encode(const GatewayResponse& response);
std::expected<std::string, EncodeError> encode(const GatewayEvent& event);

std::expected<GatewayRequest, DecodeError> decodeRequest(std::string_view json);
std::expected<GatewayResponse, DecodeError> decodeResponse(std::string_view json);
std::expected<GatewayEvent, DecodeError> decodeEvent(std::string_view json);

} // namespace WireCodec
} // namespace wendlow
