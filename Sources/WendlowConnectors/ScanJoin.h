#pragma once

#include "BlockFinding.h"
#include "ConnectorTypes.h"

#include <span>

namespace wendlow::ScanJoin {

/// The one state of a connector whose blocks found this: `connected` when all are, `drifted` when
/// any entry of ours is there, otherwise `found`. Never `notFound`, which is about the tool and not
/// about its blocks.
ConnectorState state(std::span<const BlockFinding> findings);

/// The report on a tool that is not on this machine: it has no folder, or neither that nor its main
/// file.
ScanReport notFound(ConnectorIdentity identity, const std::filesystem::path& directory);
ScanReport notFound(ConnectorIdentity identity, const std::filesystem::path& directory,
                    const std::filesystem::path& file);

} // namespace wendlow::ScanJoin
