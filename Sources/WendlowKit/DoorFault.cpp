#include "DoorFault.h"

#include "ClientInstance.h"
#include "DoorRedial.h"
#include "Say.h"
#include "WireContract.h"

namespace wendlow::DoorFaults {

namespace {

/// What a daemon of another version says too, in its one language.
constexpr const char* mismatch = sayLater(
    "Wendlow updated; this session's bridge is older than the daemon, restart the session");
static_assert(mismatch == WireContract::mismatchMessage);

} // namespace

std::string_view text(DoorFault fault) {
    switch (fault) {
    case DoorFault::absent:
        return "absent";
    case DoorFault::refused:
        return "refused";
    case DoorFault::silent:
        return "silent";
    case DoorFault::skew:
        return "skew";
    }
    return {};
}

std::string message(DoorFault fault) {
    switch (fault) {
    case DoorFault::absent:
        return say("Wendlow isn't running — start it to access your memory.");
    case DoorFault::refused:
        return say("Wendlow is running but refused this connection — this binary isn't signed with "
                   "the daemon's expected identity (sign it: Scripts/sign.sh).");
    case DoorFault::silent:
        return say("{} is running but did not answer in {}s — it may be busy starting up; "
                   "try again in a moment.",
                   ClientInstance::productName, DoorRedial::standard.budgetSeconds());
    case DoorFault::skew:
        return say(mismatch);
    }
    return {};
}

DoorFault forDoubleFailure(bool serviceRegistered) {
    return serviceRegistered ? DoorFault::refused : DoorFault::absent;
}

bool isTerminalForThisProcess(DoorFault fault) {
    return fault == DoorFault::refused;
}

std::string staleRefusalMessage(const std::optional<std::string>& updatedTo) {
    return updatedTo ? say("Wendlow updated to {} — this session's connector is from before the "
                           "update. Restart this session (or reconnect the MCP server) to "
                           "continue. Nothing is wrong.",
                           *updatedTo)
                     : say("Wendlow updated — this session's connector is from before the update. "
                           "Restart this session (or reconnect the MCP server) to continue. "
                           "Nothing is wrong.");
}

std::string menuLine(DoorFault fault, ClientProfile profile) {
    if (fault == DoorFault::skew)
        return say("{} is finishing an update — this window will reconnect by itself.",
                   ClientInstance::productName);
    if (fault == DoorFault::refused && ClientProfiles::isProduction(profile))
        return say("{} is running but this menu needs a restart to reconnect.",
                   ClientInstance::productName);
    return message(fault);
}

} // namespace wendlow::DoorFaults
