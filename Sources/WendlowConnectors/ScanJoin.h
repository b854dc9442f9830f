#pragma once

#include "BlockFinding.h"
#include "ConnectorTypes.h"

#include <span>
#include <utility>
#include <vector>

namespace wendlow::ScanJoin {

/// The one state of a connector whose blocks found this: `connected` when all are, `drifted` when
/// any entry of ours is there, otherwise `found`. Never `notFound`, which is about the tool and not
/// about its blocks.
ConnectorState state(std::span<const BlockFinding> findings);

/// What one block found, and the words for it.
struct BlockReport {
    BlockReport(BlockFinding found, const BlockSubject& subject)
        : finding(std::move(found)), said(observations(finding, subject)) {}
    BlockReport(BlockFinding found, Observations words)
        : finding(std::move(found)), said(std::move(words)) {}

    BlockFinding finding;
    Observations said;
};
/// What all of a tool's blocks found.
struct Findings {
    std::vector<BlockReport> blocks;
    /// Said behind the words of the blocks.
    Observations more = {}; // NOLINT(readability-redundant-member-init): GCC wants one
};
/// The report on a tool that is here.
ScanReport report(ConnectorIdentity identity, Findings findings);

} // namespace wendlow::ScanJoin
