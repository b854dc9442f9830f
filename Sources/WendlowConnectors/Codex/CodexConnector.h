#pragma once

#include "Codex/CodexHook.h"
#include "Codex/CodexMCP.h"
#include "Codex/CodexPaths.h"
#include "ToolConnector.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace wendlow {

/// Codex: a hook in its hooks file, and a server and the hook's trust in its configuration, changed
/// together. The trust names the hook's position, so that the hooks file is planned first.
class CodexConnector final : public ToolConnector {
public:
    explicit CodexConnector(CodexPaths paths, ConnectorVerb::Surroundings surroundings = {});

    ProjectReport projects() const override;
    MemoryFileReport memoryFiles() const override;

    /// The folder that a session file's first record names. Reads no further than that record, and
    /// gives up on one that is too long.
    static std::optional<std::string> sessionCwd(const std::filesystem::path& file);

private:
    class Look;

    std::unique_ptr<ToolLook> look(ToolFile::Purpose purpose) const override;

    CodexPaths m_paths;
    CodexHook m_hook;
    CodexMCP m_mcp;
};

} // namespace wendlow
