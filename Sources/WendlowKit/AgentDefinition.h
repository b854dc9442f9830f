#pragma once

#include <optional>
#include <string>

#include "LoginItems.h"

namespace wendlow {

enum class AgentDefinitionAction { register_, reregister, leaveEnabled, needsApproval };

/// Whether the system holds the agent as this build defines it. Pure.
namespace AgentDefinition {

struct State {
    LoginItemStatus status = LoginItemStatus::notRegistered;
    std::optional<std::string> stored = std::nullopt; ///< the definition that was registered last
    std::string current;                              ///< this build's
    bool jobLoaded = false;
};

AgentDefinitionAction action(const State& state);

} // namespace AgentDefinition

/// What to do about an agent whose property list lies loose. Pure.
namespace AgentRegistration {

enum class Action { bootstrap, kickstart, doNothing };

struct State {
    bool plistExists = false;
    bool registered = false;
};

Action action(State state);

} // namespace AgentRegistration
} // namespace wendlow
