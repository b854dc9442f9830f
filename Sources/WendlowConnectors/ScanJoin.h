#pragma once

#include "BlockFinding.h"
#include "ConnectorTypes.h"

#include <filesystem>
#include <span>
#include <vector>

namespace wendlow::ScanJoin {

/// The one state of a connector whose blocks found this: `connected` when all are, `drifted` when
/// any entry of ours is there, otherwise `found`. Never `notFound`, which is about the tool and not
/// about its blocks.
ConnectorState state(std::span<const BlockFinding> findings);

/// What one block found, and of what.
struct BlockReport {
    BlockFinding finding;
    BlockSubject subject;
};
/// The report on a tool that is here: the words of its blocks in this order, then `more`.
ScanReport report(ConnectorIdentity identity, const std::vector<BlockReport>& blocks,
                  Observations more = {});

/// The report on a tool that is not on this machine: it has no folder, or neither that nor its main
/// file.
ScanReport notFound(ConnectorIdentity identity, const std::filesystem::path& directory);
ScanReport notFound(ConnectorIdentity identity, const std::filesystem::path& directory,
                    const std::filesystem::path& file);

} // namespace wendlow::ScanJoin
