#include "ClaudeCode/ClaudeCodeConnector.h"

#include "ConfigFile/Disk.h"
#include "HookCommand.h"
#include "ScanJoin.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace wendlow {

namespace {

struct Sources {
    ClaudeCodeHook::Readable settings;
    ClaudeCodeMCP::Readable servers;
};

/// Why a verb may not plan for these files, in their order.
std::optional<ConnectorOutcome> readingRefusal(const ToolFile& settings, const ToolFile& servers,
                                               const Sources& sources) {
    return ConnectorVerb::readingRefusal({settings.refusal(JSONBlock::reason(sources.settings)),
                                          servers.refusal(JSONBlock::reason(sources.servers))});
}

} // namespace

/// Both files as they are, and what the blocks say about them.
struct ClaudeCodeConnector::Look {
    ToolFile settings;
    ToolFile servers;
    std::array<BlockFinding, 2> findings; ///< hook, MCP
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
    const Look here = look();
    Observations said = observations(here.findings[0], {.path = m_paths.settingsFile.string(),
                                                        .what = "hook entry",
                                                        .command = m_paths.hookCommand()});
    std::ranges::move(observations(here.findings[1], {.path = m_paths.mcpFile.string(),
                                                      .what = "MCP server entry",
                                                      .command = m_paths.mcpCommand()}),
                      std::back_inserter(said));
    return {.identity = identity(),
            .state = ScanJoin::state(here.findings),
            .observations = folded(said)};
}

ClaudeCodeConnector::Look ClaudeCodeConnector::look() const {
    Look here{.settings = ToolFile::read(m_paths.settingsFile),
              .servers = ToolFile::read(m_paths.mcpFile),
              .findings = {}};
    here.findings = {m_hook.find(here.settings.view()), m_mcp.find(here.servers.view())};
    return here;
}

ConnectorOutcome ClaudeCodeConnector::install() const {
    if (!toolIsHere())
        return ConnectorVerb::refused(
            {{m_paths.configDirectory.string(),
              "there is no Claude Code configuration here, so nothing was written"}});
    ToolFile settings = ToolFile::read(m_paths.settingsFile);
    ToolFile servers = ToolFile::read(m_paths.mcpFile);
    const std::string_view settingsBytes = settings.bytesOr(JSONBlock::seed);
    const std::string_view serversBytes = servers.bytesOr(JSONBlock::seed);
    const Sources sources{m_hook.read(settingsBytes), m_mcp.read(serversBytes)};
    if (auto refusal = readingRefusal(settings, servers, sources))
        return *std::move(refusal);
    if (auto reason = HookCommand::unusableReason(m_paths.hookBinary))
        return ConnectorVerb::refused({{m_paths.hookBinary.string(), *std::move(reason)}});
    // That it cannot be made is found again by the commit, which says so in words.
    std::ignore = Disk::createDirectories(m_paths.configDirectory, 0700);

    auto hooks = m_hook.installed(settingsBytes, *sources.settings);
    if (!hooks)
        return ConnectorVerb::refused(PlanFailure{settings.label, description(hooks.error())});
    auto server = m_mcp.installed(serversBytes, *sources.servers);
    if (!server)
        return ConnectorVerb::refused(PlanFailure{servers.label, description(server.error())});

    // Nothing looks at the documents from here on: the bytes they point into are moved.
    ConnectorVerb::Installation installation;
    installation.add(std::move(settings), *std::move(hooks), Created::settingsFile);
    installation.add(std::move(servers), *std::move(server), Created::mcpFile);
    return ConnectorVerb::install(std::move(installation), ReceiptStore{m_paths.receiptFile},
                                  m_surroundings);
}

ConnectorOutcome ClaudeCodeConnector::remove() const {
    ToolFile settings = ToolFile::read(m_paths.settingsFile);
    ToolFile servers = ToolFile::read(m_paths.mcpFile);
    const std::string_view settingsBytes = settings.bytesOr(JSONBlock::seed);
    const std::string_view serversBytes = servers.bytesOr(JSONBlock::seed);
    const Sources sources{m_hook.read(settingsBytes), m_mcp.read(serversBytes)};
    if (auto refusal = readingRefusal(settings, servers, sources))
        return *std::move(refusal);
    const ReceiptStore receipts{m_paths.receiptFile};
    const std::set<Created> created = receipts.read().created;
    auto hooks = m_hook.removed(settingsBytes, *sources.settings, created);
    if (!hooks)
        return ConnectorVerb::refused(PlanFailure{settings.label, description(hooks.error())});
    auto server = m_mcp.removed(serversBytes, *sources.servers, created);
    if (!server)
        return ConnectorVerb::refused(PlanFailure{servers.label, description(server.error())});

    // Nothing looks at the documents from here on: the bytes they point into are moved.
    std::vector<PlannedFile> files;
    Observations notes;
    files.push_back(ConnectorVerb::planRemoval(std::move(settings), *std::move(hooks),
                                               created.contains(Created::settingsFile),
                                               JSONBlock::isEmptyObject, notes));
    files.push_back(ConnectorVerb::planRemoval(std::move(servers), *std::move(server),
                                               created.contains(Created::mcpFile),
                                               JSONBlock::isEmptyObject, notes));
    return ConnectorVerb::remove(std::move(files), std::move(notes), receipts, m_surroundings);
}

bool ClaudeCodeConnector::staleOwnWiring() const {
    const ToolFile settings = ToolFile::read(m_paths.settingsFile);
    if (!settings.bytes)
        return false;
    const auto document = JSONText::scanWithTrivia(*settings.bytes, JSONDialect::json);
    if (!document)
        return false;
    return HookLists::allRun(m_hook.sites(document->root()), m_paths.hookBinary) &&
           Disk::exists(m_paths.hookBinary) && scan().state == ConnectorState::drifted;
}

} // namespace wendlow
