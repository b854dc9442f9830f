#pragma once

#include <chrono>
#include <optional>

#include "DoorFault.h"

/// Whether a person is told of a refusal: not while it may be an update settling, and not twice.
/// Pure.
namespace wendlow::RefusalNotice {

enum class Action { wait, report };

using Seconds = std::chrono::duration<double>;

inline constexpr Seconds settleWindow{45.0};

struct State {
    std::optional<DoorFault> fault = std::nullopt;
    std::optional<Seconds> refusedFor = std::nullopt; ///< the refusal's age, where it is known
    bool alreadyReported = false;
};

constexpr Action decide(const State& state) {
    const bool settled = state.refusedFor && *state.refusedFor >= settleWindow;
    return state.fault == DoorFault::refused && settled && !state.alreadyReported ? Action::report
                                                                                  : Action::wait;
}

} // namespace wendlow::RefusalNotice
