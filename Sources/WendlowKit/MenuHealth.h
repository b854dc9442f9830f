#pragma once

#include <optional>
#include <string>
#include <variant>

#include "ClientProfile.h"
#include "DoorFault.h"

namespace wendlow {

struct GatewayResponse;

namespace HealthCase {

struct Paused {
    std::optional<std::string> resumesAt; ///< as the daemon words it
    bool operator==(const Paused&) const = default;
};

struct Attention {
    std::string line;
    bool operator==(const Attention&) const = default;
};

struct Recording {
    bool operator==(const Recording&) const = default;
};

} // namespace HealthCase

/// What a menu shows of the daemon's health. Pure.
struct MenuHealth : std::variant<HealthCase::Paused, HealthCase::Attention, HealthCase::Recording> {
    using variant::variant;

    bool isAlert() const { return std::holds_alternative<HealthCase::Attention>(*this); }
    bool isPaused() const { return std::holds_alternative<HealthCase::Paused>(*this); }

    /// From the answer to the read `health` and the door's fault behind it, if there was one.
    static MenuHealth decide(const GatewayResponse& health, std::optional<DoorFault> fault,
                             ClientProfile profile);
};

} // namespace wendlow
