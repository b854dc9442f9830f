#pragma once

#include "ClaudeChat/ClaudeChatRetirement.h"
#include "Connector.h"
#include "ConnectorProfile.h"

#include <filesystem>
#include <memory>
#include <vector>

namespace wendlow::Connectors {

using List = std::vector<std::shared_ptr<Connector>>;

/// Every connector there is, in the order in which a person sees them.
List all(const std::filesystem::path& home, const std::filesystem::path& bundle,
         const std::filesystem::path& applications);

/// What earlier versions wired and is no longer offered, to be cleared away.
std::vector<ClaudeChatRetirement> retirements(const std::filesystem::path& home,
                                              const std::filesystem::path& bundle, Profile profile);

/// "Contents/MacOS/wendlow-mcp" inside the bundle.
std::filesystem::path mcpCommand(const std::filesystem::path& bundle);

} // namespace wendlow::Connectors
