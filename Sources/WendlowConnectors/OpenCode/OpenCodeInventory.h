#pragma once

#include "ConnectorTypes.h"
#include "OpenCode/OpenCodePaths.h"

/// What OpenCode already has: the projects of its session store and its memory files. Reads only;
/// any thread.
namespace wendlow::OpenCodeInventory {

ProjectReport projects(const OpenCodePaths& paths);
MemoryFileReport memoryFiles(const OpenCodePaths& paths);

} // namespace wendlow::OpenCodeInventory
