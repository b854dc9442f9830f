#pragma once

#include "OpenCode/OpenCodeMCP.h"
#include "OpenCode/OpenCodePaths.h"
#include "ToolConnector.h"

#include <memory>
#include <optional>

namespace wendlow {

/// OpenCode: a server in its configuration and a plugin in its plugins folder, changed together.
/// The plugin's hooks are known to OpenCode 2 alone, so that its session store has a say.
class OpenCodeConnector final : public ToolConnector {
public:
    explicit OpenCodeConnector(OpenCodePaths paths, ConnectorVerb::Surroundings surroundings = {});

    ProjectReport projects() const override;
    MemoryFileReport memoryFiles() const override;

private:
    class Look;

    std::unique_ptr<ToolLook> look(ToolFile::Purpose purpose) const override;
    ConnectorIdentity shownIdentity() const override;
    std::optional<Observation> standsInTheWay() const override;

    OpenCodePaths m_paths;
    OpenCodeMCP m_mcp;
};

} // namespace wendlow
