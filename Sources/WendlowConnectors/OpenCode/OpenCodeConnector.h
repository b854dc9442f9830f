#pragma once

#include "Connector.h"
#include "ConnectorVerb.h"
#include "OpenCode/OpenCodeMCP.h"
#include "OpenCode/OpenCodePaths.h"

#include <cstddef>
#include <optional>

namespace wendlow {

/// OpenCode: a server in its configuration and a plugin in its plugins folder, changed together.
/// The plugin's hooks are known to OpenCode 2 alone, so that its session store has a say.
class OpenCodeConnector final : public Connector {
public:
    explicit OpenCodeConnector(OpenCodePaths paths, ConnectorVerb::Surroundings surroundings = {});

    ConnectorIdentity identity() const override;
    ScanReport scan() const override;
    ProjectReport projects() const override;
    MemoryFileReport memoryFiles() const override;
    ConnectorOutcome install() const override;
    ConnectorOutcome remove() const override;
    bool staleOwnWiring() const override;

private:
    struct Look;

    bool toolIsHere() const;
    ConnectorIdentity shownIdentity() const;
    BlockFinding pluginFinding(const Look& here) const;
    std::optional<ConnectorOutcome> configRefusal(const Look& here) const;
    static Observations planNotes(const Look& here, std::size_t commentsReplaced);

    OpenCodePaths m_paths;
    ConnectorVerb::Surroundings m_surroundings;
    OpenCodeMCP m_mcp;
};

} // namespace wendlow
