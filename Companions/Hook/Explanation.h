#pragma once

#include <string>

#include "GatewayDoor.h"
#include "HookCall.h"

/// For a person who wants to see what their tool is told.
namespace wendlow::Explanation {

/// What would be said at a prompt, block by block, and why. The prompt is the call's words, or the
/// event on standard input. No session is noted as told.
std::string of(const HookCall& call, GatewayDoor::Clock::time_point deadline);

} // namespace wendlow::Explanation
