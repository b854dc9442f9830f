#pragma once

#include "ClaudeCode/ClaudeCodeHook.h"
#include "ClaudeCode/ClaudeCodeMCP.h"
#include "ClaudeCode/ClaudeCodePaths.h"
#include "ToolConnector.h"

#include <memory>
#include <string>
#include <string_view>

namespace wendlow {

/// Claude Code: hooks in its settings file and a server in its user file, changed together.
class ClaudeCodeConnector final : public ToolConnector {
public:
    explicit ClaudeCodeConnector(ClaudeCodePaths paths,
                                 ConnectorVerb::Surroundings surroundings = {});

    ProjectReport projects() const override;
    MemoryFileReport memoryFiles() const override;

    /// The path of the project whose folder in the session store is `name`. A `-` in the name is a
    /// `/` or a `-` of the path, so the disk is asked which reading exists, separators first, from
    /// the left. Where none does, the plain reading, marked as unverified.
    static std::string decodeProjectPath(std::string_view name);

private:
    class Look;

    std::unique_ptr<ToolLook> look(ToolFile::Purpose purpose) const override;

    ClaudeCodePaths m_paths;
    ClaudeCodeHook m_hook;
    ClaudeCodeMCP m_mcp;
};

} // namespace wendlow
