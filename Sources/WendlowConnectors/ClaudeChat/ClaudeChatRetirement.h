#pragma once

#include "ClaudeChat/ClaudeChatPaths.h"
#include "ConfigFile/Transaction.h"
#include "ConnectorProfile.h"
#include "ConnectorTypes.h"

#include <functional>
#include <string_view>

namespace wendlow {

/// Takes out what earlier versions wired into Claude's desktop app. One way only: nothing is ever
/// put there, and the file stays even where an earlier version made it.
struct ClaudeChatRetirement {
    /// For a person.
    static constexpr std::string_view name = "Claude Chat retirement";

    ClaudeChatPaths paths;
    Connectors::Profile profile = Connectors::Profile::production;
    std::function<Transaction::Date()> now = [] { return std::chrono::system_clock::now(); };

    /// Takes this profile's entries out of the file. Never fails in another way than in words. Not
    /// to be called while the desktop app runs: it writes its own copy of the file when it quits.
    /// Blocks on the disk.
    ConnectorOutcome retire() const;
};

} // namespace wendlow
