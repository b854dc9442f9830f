#include "ClaudeCode/ClaudeCodeConnector.h"

#include "ConfigFile/Disk.h"
#include "HookCommand.h"
#include "ScanJoin.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

namespace wendlow {

/// Both files as they are.
struct ClaudeCodeConnector::Look {
    explicit Look(const ClaudeCodeConnector& claude)
        : settings(ToolFile::read(claude.m_paths.settingsFile, ToolFile::Purpose::plan)),
          servers(ToolFile::read(claude.m_paths.mcpFile, ToolFile::Purpose::plan)),
          settingsDocument(claude.m_hook.read(settingsBytes())),
          serversDocument(claude.m_mcp.read(serversBytes())) {}
    Look(const Look&) = delete; // the documents point into the files' bytes
    Look& operator=(const Look&) = delete;

    std::string_view settingsBytes() const { return settings.bytesOr(JSONBlock::seed); }
    std::string_view serversBytes() const { return servers.bytesOr(JSONBlock::seed); }

    ToolFile settings;
    ToolFile servers;
    ClaudeCodeHook::Readable settingsDocument;
    ClaudeCodeMCP::Readable serversDocument;
};

ClaudeCodeConnector::ClaudeCodeConnector(ClaudeCodePaths paths,
                                         ConnectorVerb::Surroundings surroundings)
    : m_paths(std::move(paths)), m_surroundings(std::move(surroundings)), m_hook(m_paths),
      m_mcp(m_paths) {}

ConnectorIdentity ClaudeCodeConnector::identity() const {
    return {.id = "claude-code",
            .name = "Claude Code",
            .detail = "The Claude Code CLI and Claude Code in the desktop app.",
            .symbol = "terminal"};
}

bool ClaudeCodeConnector::toolIsHere() const {
    return Disk::isDirectory(m_paths.configDirectory) || Disk::exists(m_paths.mcpFile);
}

ScanReport ClaudeCodeConnector::scan() const {
    if (!toolIsHere())
        return ScanJoin::notFound(identity(), m_paths.configDirectory, m_paths.mcpFile);
    const ToolFile settings = ToolFile::read(m_paths.settingsFile, ToolFile::Purpose::scan);
    const ToolFile servers = ToolFile::read(m_paths.mcpFile, ToolFile::Purpose::scan);
    const std::array<BlockFinding, 2> findings{m_hook.find(settings.view()),
                                               m_mcp.find(servers.view())};
    Observations said = observations(findings[0], {.path = m_paths.settingsFile.string(),
                                                   .what = "hook entry",
                                                   .command = m_paths.hookCommand()});
    std::ranges::move(observations(findings[1], {.path = m_paths.mcpFile.string(),
                                                 .what = "MCP server entry",
                                                 .command = m_paths.mcpCommand()}),
                      std::back_inserter(said));
    return {
        .identity = identity(), .state = ScanJoin::state(findings), .observations = folded(said)};
}

ConnectorOutcome ClaudeCodeConnector::install() const {
    if (!toolIsHere())
        return ConnectorVerb::refused(
            {{m_paths.configDirectory.string(),
              "there is no Claude Code configuration here, so nothing was written"}});
    Look here(*this);
    if (auto refusal = readingRefusal(here))
        return *std::move(refusal);
    if (auto reason = HookCommand::unusableReason(m_paths.hookBinary))
        return ConnectorVerb::refused({{m_paths.hookBinary.string(), *std::move(reason)}});
    // That it cannot be made is found again by the commit, which says so in words.
    std::ignore = Disk::createDirectories(m_paths.configDirectory, 0700);

    auto hooks = m_hook.installed(here.settingsBytes(), *here.settingsDocument);
    if (!hooks)
        return ConnectorVerb::refused(PlanFailure{here.settings.label, description(hooks.error())});
    auto server = m_mcp.installed(here.serversBytes(), *here.serversDocument);
    if (!server)
        return ConnectorVerb::refused(PlanFailure{here.servers.label, description(server.error())});

    // Nothing looks at the documents from here on: the bytes they point into are moved.
    ConnectorVerb::Installation installation;
    installation.add(std::move(here.settings), *std::move(hooks), Created::settingsFile);
    installation.add(std::move(here.servers), *std::move(server), Created::mcpFile);
    return ConnectorVerb::install(std::move(installation), ReceiptStore{m_paths.receiptFile},
                                  m_surroundings);
}

ConnectorOutcome ClaudeCodeConnector::remove() const {
    Look here(*this);
    if (auto refusal = readingRefusal(here))
        return *std::move(refusal);
    const ReceiptStore receipts{m_paths.receiptFile};
    const std::set<Created> created = receipts.read().created;
    auto hooks = m_hook.removed(here.settingsBytes(), *here.settingsDocument, created);
    if (!hooks)
        return ConnectorVerb::refused(PlanFailure{here.settings.label, description(hooks.error())});
    auto server = m_mcp.removed(here.serversBytes(), *here.serversDocument, created);
    if (!server)
        return ConnectorVerb::refused(PlanFailure{here.servers.label, description(server.error())});

    // Nothing looks at the documents from here on: the bytes they point into are moved.
    std::vector<PlannedFile> files;
    Observations notes;
    files.push_back(ConnectorVerb::planRemoval(std::move(here.settings), *std::move(hooks),
                                               created.contains(Created::settingsFile),
                                               JSONBlock::isEmptyObject, notes));
    files.push_back(ConnectorVerb::planRemoval(std::move(here.servers), *std::move(server),
                                               created.contains(Created::mcpFile),
                                               JSONBlock::isEmptyObject, notes));
    return ConnectorVerb::remove(std::move(files), std::move(notes), receipts, m_surroundings);
}

bool ClaudeCodeConnector::staleOwnWiring() const {
    const ToolFile settings = ToolFile::read(m_paths.settingsFile, ToolFile::Purpose::scan);
    if (!settings.bytes)
        return false;
    const auto document = JSONText::scanWithTrivia(*settings.bytes, JSONDialect::json);
    if (!document)
        return false;
    return HookLists::allRun(m_hook.sites(document->root()), m_paths.hookBinary) &&
           Disk::exists(m_paths.hookBinary) && scan().state == ConnectorState::drifted;
}

/// Why no verb may plan for these files, in their order.
std::optional<ConnectorOutcome> ClaudeCodeConnector::readingRefusal(const Look& here) {
    return ConnectorVerb::readingRefusal(
        {here.settings.refusal(JSONBlock::reason(here.settingsDocument)),
         here.servers.refusal(JSONBlock::reason(here.serversDocument))});
}

} // namespace wendlow
