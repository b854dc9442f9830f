#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "ClientProfile.h"

namespace wendlow {

/// Why the door, the way to the daemon, did not open.
enum class DoorFault {
    absent,  ///< the service isn't registered
    refused, ///< the service is registered and the connection fails
    silent,  ///< the service took the message and gave no answer in time
    skew,    ///< the daemon answered with another wire version
};

/// What a fault is called and what it says. Pure; any thread.
namespace DoorFaults {

/// The raw string, which is the case's name.
std::string_view text(DoorFault fault);

/// The sentence for the person whose request failed.
std::string message(DoorFault fault);

/// The fault of a request that failed twice.
DoorFault forDoubleFailure(bool serviceRegistered);

/// Whether no retry of this process can cure it.
bool isTerminalForThisProcess(DoorFault fault);

/// The calm sentence for a refusal that an update explains, with the version on disk if it is
/// known.
std::string staleRefusalMessage(const std::optional<std::string>& updatedTo);

/// The line that a menu shows. A developer's build says what to do about a refusal.
std::string menuLine(DoorFault fault, ClientProfile profile);

} // namespace DoorFaults
} // namespace wendlow
