#pragma once

#include "ConnectorReceipt.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace wendlow {

/// What a block's edit of one file came to. `bytes` is nothing where the file is right as it
/// stands, so that nobody copies a large file only to say so.
struct InstalledBlock {
    std::optional<std::string> bytes = std::nullopt;
    std::set<Created> created;     ///< the containers that this edit brought into being
    std::vector<std::string> lost; ///< sentences about what goes that we did not write
};
struct RemovedBlock {
    std::optional<std::string> bytes = std::nullopt;
    std::vector<std::string> leftovers; ///< sentences about what stays behind, empty
    std::vector<std::string> lost;      ///< sentences about what goes that we did not write
    /// False: what goes is no entry of ours, but empty containers of ours or what `lost` names.
    bool heldOurs = true;
};

} // namespace wendlow
