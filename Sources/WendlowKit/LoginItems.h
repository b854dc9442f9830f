#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "ClientInstance.h"

namespace wendlow {

/// What the system says of a login item.
enum class LoginItemStatus { notRegistered, enabled, requiresApproval, notFound };
enum class LoginItemAction { register_, leaveEnabled, needsApproval };

/// The daemon's agent as a login item: what to do about it, and by which names the system knows it.
/// Pure.
namespace LoginItems {

LoginItemAction action(LoginItemStatus status);

inline constexpr std::string_view daemonAgentLabel = ClientInstance::gatewayID;

std::string daemonAgentPlistName();
/// The agent's property list where it lies loose in this home folder.
std::string looseAgentPlistPath(std::string_view home);
std::string guiDomainTarget(std::uint32_t uid);
std::string guiServiceTarget(std::uint32_t uid);

} // namespace LoginItems
} // namespace wendlow
