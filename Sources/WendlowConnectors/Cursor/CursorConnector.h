#pragma once

#include "Connector.h"
#include "ConnectorVerb.h"
#include "Cursor/CursorHook.h"
#include "Cursor/CursorMCP.h"
#include "Cursor/CursorPaths.h"

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace wendlow {

/// Cursor: hooks in its hooks file and a server in its list of servers, changed together. The
/// receipt keeps the version of Cursor that was there when something was last written.
class CursorConnector final : public Connector {
public:
    explicit CursorConnector(CursorPaths paths, ConnectorVerb::Surroundings surroundings = {});

    ConnectorIdentity identity() const override;
    ScanReport scan() const override;
    ProjectReport projects() const override;
    MemoryFileReport memoryFiles() const override;
    ConnectorOutcome install() const override;
    ConnectorOutcome remove() const override;
    bool staleOwnWiring() const override;

    /// The folder that a workspace's file names; nothing where it names none on this machine's own
    /// disk, or does not read.
    static std::optional<std::string> folderPath(const std::filesystem::path& workspaceFile);

private:
    struct Look;

    bool toolIsHere() const;
    std::vector<CursorHookSite> sitesIn(const ToolFile& hooks) const;
    Observations versionObservations() const;
    Observations doubleFireObservations() const;

    CursorPaths m_paths;
    ConnectorVerb::Surroundings m_surroundings;
    CursorHook m_hook;
    CursorMCP m_mcp;
};

} // namespace wendlow
