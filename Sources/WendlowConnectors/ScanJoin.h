#pragma once

#include "BlockFinding.h"
#include "ConnectorTypes.h"

#include <span>

namespace wendlow::ScanJoin {

/// The one state of a connector whose blocks found this: `connected` when all are, `drifted` when
/// any entry of ours is there, otherwise `found`. Never `notFound`, which is about the tool and not
/// about its blocks.
ConnectorState state(std::span<const BlockFinding> findings);

} // namespace wendlow::ScanJoin
