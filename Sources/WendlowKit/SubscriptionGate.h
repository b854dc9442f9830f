#pragma once

/// Whether the way on which events come must be opened again. Pure.
namespace wendlow::SubscriptionGate {

struct State {
    bool wantEvents = false;
    bool hasLiveConnection = false;
};

constexpr bool shouldReopen(State state) {
    return state.wantEvents && !state.hasLiveConnection;
}

} // namespace wendlow::SubscriptionGate
