#include "LoginItems.h"

#include <fmt/format.h>

namespace wendlow::LoginItems {

LoginItemAction action(LoginItemStatus status) {
    switch (status) {
    case LoginItemStatus::notRegistered:
    case LoginItemStatus::notFound:
        break;
    case LoginItemStatus::enabled:
        return LoginItemAction::leaveEnabled;
    case LoginItemStatus::requiresApproval:
        return LoginItemAction::needsApproval;
    }
    return LoginItemAction::register_;
}

std::string daemonAgentPlistName() {
    return fmt::format("{}.plist", daemonAgentLabel);
}

std::string looseAgentPlistPath(std::string_view home) {
    return fmt::format("{}/Library/LaunchAgents/{}", home, daemonAgentPlistName());
}

std::string guiDomainTarget(std::uint32_t uid) {
    return fmt::format("gui/{}", uid);
}

std::string guiServiceTarget(std::uint32_t uid) {
    return fmt::format("gui/{}/{}", uid, daemonAgentLabel);
}

} // namespace wendlow::LoginItems
