#pragma once

#include "Codex/CodexConfigPlan.h"
#include "Codex/CodexHook.h"
#include "Codex/CodexMCP.h"
#include "Codex/CodexPaths.h"
#include "Codex/CodexTrust.h"
#include "Connector.h"
#include "ConnectorVerb.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace wendlow {

/// Codex: a hook in its hooks file, and a server and the hook's trust in its configuration, changed
/// together. The trust names the hook's position, so that the hooks file is planned first.
class CodexConnector final : public Connector {
public:
    explicit CodexConnector(CodexPaths paths, ConnectorVerb::Surroundings surroundings = {});

    ConnectorIdentity identity() const override;
    ScanReport scan() const override;
    ProjectReport projects() const override;
    MemoryFileReport memoryFiles() const override;
    ConnectorOutcome install() const override;
    ConnectorOutcome remove() const override;
    bool staleOwnWiring() const override;

    /// The folder that a session file's first record names. Reads no further than that record, and
    /// gives up on one that is too long.
    static std::optional<std::string> sessionCwd(const std::filesystem::path& file);

private:
    struct Look;
    using Slot = std::optional<CodexTrustSlot>;
    using Refusal = std::optional<ConnectorOutcome>;

    bool toolIsHere() const;
    std::vector<TOMLName> ownedTables(const Look& here, const Slot& landing) const;
    std::optional<std::string> configUnreadableReason(const Look& here, const Slot& landing) const;
    Refusal readingRefusal(const Look& here, const Slot& landing = {}) const;
    Refusal mcpRefusal(const Look& here, CodexMCP::Verb verb) const;
    CodexConfigPlan configPlan(const Look& here, const JSONNode& plannedHooks,
                               std::vector<CodexHookSite> plannedSites) const;
    Observations slotObservations(const std::vector<std::string>& reported,
                                  std::size_t moved) const;
    Observations trustObservations(const BlockFinding& finding) const;

    CodexPaths m_paths;
    ConnectorVerb::Surroundings m_surroundings;
    CodexHook m_hook;
    CodexMCP m_mcp;
};

} // namespace wendlow
