#pragma once

#include "ConnectorProfile.h"
#include "JSONBlock.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

/// The servers of this product that earlier versions put into the desktop app's `mcpServers`. Pure
/// on bytes; any thread.
namespace ClaudeChatConfig {

using Profile = Connectors::Profile;

/// A configuration without our entries.
struct Retired {
    std::optional<std::string> bytes; ///< nothing: there was nothing of ours in it
    std::vector<std::string> names;   ///< of the entries taken out, in the file's order
};

/// The members of `mcpServers`, under whatever name, that run the server program of a copy of the
/// application of this profile. Each build clears its own entries only.
std::vector<JSONNode::Member> ours(const JSONNode& root, Profile profile);

/// The document, unless it does not scan or a name is repeated where an edit could go wrong.
JSONBlock::Readable read(std::string_view bytes, Profile profile);

/// Takes our entries out. An `mcpServers` object that is then empty stays: nobody claims to have
/// made it. The second form takes the scan of `bytes` that was made before.
JSONBlock::Result<Retired> retired(std::string_view bytes, Profile profile);
JSONBlock::Result<Retired> retired(std::string_view bytes, const JSONDocument& document,
                                   Profile profile);

} // namespace ClaudeChatConfig
} // namespace wendlow
