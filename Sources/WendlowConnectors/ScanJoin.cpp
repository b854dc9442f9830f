#include "ScanJoin.h"

#include <algorithm>

namespace wendlow::ScanJoin {

ConnectorState state(std::span<const BlockFinding> findings) {
    const auto connected = [](const BlockFinding& finding) {
        return finding.is<BlockFinding::Connected>();
    };
    const auto ours = [&](const BlockFinding& finding) {
        return connected(finding) || finding.is<BlockFinding::Drifted>();
    };
    if (std::ranges::all_of(findings, connected))
        return ConnectorState::connected;
    return std::ranges::any_of(findings, ours) ? ConnectorState::drifted : ConnectorState::found;
}

} // namespace wendlow::ScanJoin
