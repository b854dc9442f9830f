#pragma once

#include "Connector.h"

#include <filesystem>
#include <memory>
#include <string_view>
#include <vector>

namespace wendlow::Connectors {

/// Which build of the product this application is.
enum class Profile { dev, production };

/// The case's name.
std::string_view text(Profile profile);

using List = std::vector<std::shared_ptr<Connector>>;

/// Every connector there is, in the order in which a person sees them.
List all(const std::filesystem::path& home, const std::filesystem::path& bundle,
         const std::filesystem::path& applications);

/// "Contents/MacOS/wendlow-mcp" inside the bundle.
std::filesystem::path mcpCommand(const std::filesystem::path& bundle);

} // namespace wendlow::Connectors
