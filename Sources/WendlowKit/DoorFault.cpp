#include "DoorFault.h"

#include <fmt/format.h>

#include "ClientInstance.h"
#include "DoorRedial.h"
#include "WireContract.h"

namespace wendlow::DoorFaults {

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
        return "Wendlow isn't running — start it to access your memory.";
    case DoorFault::refused:
        return "Wendlow is running but refused this connection — this binary isn't signed with the "
               "daemon's expected identity (sign it: Scripts/sign.sh).";
    case DoorFault::silent:
        return fmt::format("{} is running but did not answer in {}s — it may be busy starting up; "
                           "try again in a moment.",
                           ClientInstance::productName, DoorRedial::standard.budgetSeconds());
    case DoorFault::skew:
        return std::string(WireContract::mismatchMessage);
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
    return fmt::format("Wendlow updated{} — this session's connector is from before the update. "
                       "Restart this session (or reconnect the MCP server) to continue. "
                       "Nothing is wrong.",
                       updatedTo ? " to " + *updatedTo : "");
}

std::string menuLine(DoorFault fault, ClientProfile profile) {
    if (fault == DoorFault::skew)
        return fmt::format("{} is finishing an update — this window will reconnect by itself.",
                           ClientInstance::productName);
    if (fault == DoorFault::refused && ClientProfiles::isProduction(profile))
        return fmt::format("{} is running but this menu needs a restart to reconnect.",
                           ClientInstance::productName);
    return message(fault);
}

} // namespace wendlow::DoorFaults
