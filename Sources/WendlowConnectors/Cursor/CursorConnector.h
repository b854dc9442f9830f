#pragma once

#include "Cursor/CursorHook.h"
#include "Cursor/CursorMCP.h"
#include "Cursor/CursorPaths.h"
#include "ToolConnector.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace wendlow {

/// Cursor: hooks in its hooks file and a server in its list of servers, changed together. The
/// receipt keeps the version of Cursor that was there when something was last written.
class CursorConnector final : public ToolConnector {
public:
    explicit CursorConnector(CursorPaths paths, ConnectorVerb::Surroundings surroundings = {});

    ProjectReport projects() const override;
    MemoryFileReport memoryFiles() const override;

    /// The folder that a workspace's file names; nothing where it names none on this machine's own
    /// disk, or does not read.
    static std::optional<std::string> folderPath(const std::filesystem::path& workspaceFile);

private:
    class Look;

    std::unique_ptr<ToolLook> look(ToolFile::Purpose purpose) const override;

    CursorPaths m_paths;
    CursorHook m_hook;
    CursorMCP m_mcp;
};

} // namespace wendlow
