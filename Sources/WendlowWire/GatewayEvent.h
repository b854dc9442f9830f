#pragma once

#include <string_view>
#include <variant>

#include "Described.h"
#include "FrontRecording.h"

namespace wendlow {

namespace EventCase {

struct FrontState {
    FrontRecording _0 = FrontRecording::unknown;
    WENDLOW_CASE(FrontState, "frontState", _0);
};

} // namespace EventCase

/// What the daemon pushes by itself.
struct GatewayEvent : std::variant<EventCase::FrontState> {
    using variant::variant;

    static constexpr std::string_view typeName = "GatewayEvent";
};

} // namespace wendlow
