#include "AgentDefinition.h"

namespace wendlow {

AgentDefinitionAction AgentDefinition::action(const State& state) {
    switch (LoginItems::action(state.status)) {
    case LoginItemAction::register_:
        return AgentDefinitionAction::register_;
    case LoginItemAction::needsApproval:
        return AgentDefinitionAction::needsApproval;
    case LoginItemAction::leaveEnabled:
        break;
    }
    const bool isCurrent = state.jobLoaded && state.stored == state.current;
    return isCurrent ? AgentDefinitionAction::leaveEnabled : AgentDefinitionAction::reregister;
}

AgentRegistration::Action AgentRegistration::action(State state) {
    if (!state.plistExists)
        return Action::doNothing;
    return state.registered ? Action::kickstart : Action::bootstrap;
}

} // namespace wendlow
