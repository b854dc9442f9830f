#pragma once

#include <map>
#include <string>
#include <string_view>

/// The service that the MCP bridge asks. Pure.
namespace wendlow::MCPGatewayName {

inline constexpr std::string_view overrideKey = "WENDLOW_MCP_GATEWAY_FOR_TESTS";
inline constexpr std::string_view testPrefix = "works.fenmoor.wendlow.test.";

/// The product's service, unless the environment names a test service: a test can point the bridge
/// at one, and never at a foreign service.
std::string resolve(const std::map<std::string, std::string, std::less<>>& environment);

} // namespace wendlow::MCPGatewayName
