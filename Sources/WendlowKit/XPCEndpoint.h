#pragma once

#include <string_view>

#include "ClientInstance.h"

/// The names on the wire between the client and the daemon.
namespace wendlow::XPCEndpoint {

inline constexpr std::string_view machServiceName = ClientInstance::gatewayID;
inline constexpr std::string_view payloadKey = "payload";     ///< request or reply JSON, data
inline constexpr std::string_view wireKey = "wire";           ///< contract version, uint64
inline constexpr std::string_view servedKey = "served_ms";    ///< in a reply, uint64
inline constexpr std::string_view subscribeKey = "subscribe"; ///< true on the subscription message
inline constexpr std::string_view eventKey = "event";         ///< event JSON, data

} // namespace wendlow::XPCEndpoint
