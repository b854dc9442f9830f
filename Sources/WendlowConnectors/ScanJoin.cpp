#include "ScanJoin.h"

#include <algorithm>
#include <utility>

namespace wendlow::ScanJoin {

namespace {

template<class Case> bool any(std::span<const BlockFinding> findings) {
    return std::ranges::any_of(findings, &BlockFinding::is<Case>);
}

} // namespace

ConnectorState state(std::span<const BlockFinding> findings) {
    if (std::ranges::all_of(findings, &BlockFinding::is<BlockFinding::Connected>))
        return ConnectorState::connected;
    const bool ours =
        any<BlockFinding::Connected>(findings) || any<BlockFinding::Drifted>(findings);
    return ours ? ConnectorState::drifted : ConnectorState::found;
}

ScanReport report(ConnectorIdentity identity, Findings findings) {
    std::vector<BlockFinding> found;
    Observations said;
    for (BlockReport& block : findings.blocks) {
        found.push_back(std::move(block.finding));
        append(said, std::move(block.said));
    }
    append(said, std::move(findings.more));
    return {.identity = std::move(identity),
            .state = state(found),
            .observations = folded(std::move(said)),
            .facts = {.unreadable = any<BlockFinding::Unreadable>(found),
                      .foreign = any<BlockFinding::Foreign>(found)}};
}

} // namespace wendlow::ScanJoin
