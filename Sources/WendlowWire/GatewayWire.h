#pragma once

#include <string_view>

/// The words that every gateway uses, so that a client can tell them from any other failure.
namespace wendlow::GatewayWire {

/// The `failure` of a request that the gateway cannot read: rubbish, or a case that it does not
/// know because it is older than the client.
inline constexpr std::string_view malformedRequest = "Wendlow could not read this request";

} // namespace wendlow::GatewayWire
