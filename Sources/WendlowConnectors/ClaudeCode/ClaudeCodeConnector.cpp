#include "ClaudeCode/ClaudeCodeConnector.h"

#include "ConfigFile/Disk.h"
#include "HookCommand.h"
#include "JSONFile.h"
#include "ScanJoin.h"

#include <tuple>
#include <utility>

namespace wendlow {

/// Both files as they are, for a plan.
struct ClaudeCodeConnector::Look {
    explicit Look(const ClaudeCodeConnector& claude)
        : settings(claude.m_paths.settingsFile, ToolFile::Purpose::plan, claude.m_hook),
          servers(claude.m_paths.mcpFile, ToolFile::Purpose::plan, claude.m_mcp) {}

    /// Why no verb may plan for them, in their order.
    std::optional<ConnectorOutcome> refusal() const {
        return ConnectorVerb::readingRefusal({settings.refusal(), servers.refusal()});
    }

    JSONFile settings;
    JSONFile servers;
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
    return ScanJoin::report(identity(), {{.finding = m_hook.find(settings.view()),
                                          .subject = {.path = settings.label,
                                                      .what = "hook entry",
                                                      .command = m_paths.hookCommand()}},
                                         {.finding = m_mcp.find(servers.view()),
                                          .subject = {.path = servers.label,
                                                      .what = "MCP server entry",
                                                      .command = m_paths.mcpCommand()}}});
}

ConnectorOutcome ClaudeCodeConnector::install() const {
    if (!toolIsHere())
        return ConnectorVerb::refused(
            {{m_paths.configDirectory.string(),
              "there is no Claude Code configuration here, so nothing was written"}});
    Look here(*this);
    if (auto refusal = here.refusal())
        return *std::move(refusal);
    if (auto reason = HookCommand::unusableReason(m_paths.hookBinary))
        return ConnectorVerb::refused({{m_paths.hookBinary.string(), *std::move(reason)}});
    // That it cannot be made is found again by the commit, which says so in words.
    std::ignore = Disk::createDirectories(m_paths.configDirectory, 0700);

    auto hooks = m_hook.installed(here.settings.bytes(), *here.settings.document);
    if (!hooks)
        return ConnectorVerb::refused(
            PlanFailure{here.settings.file.label, description(hooks.error())});
    auto server = m_mcp.installed(here.servers.bytes(), *here.servers.document);
    if (!server)
        return ConnectorVerb::refused(
            PlanFailure{here.servers.file.label, description(server.error())});

    // Nothing looks at the documents from here on: the bytes they point into are moved.
    ConnectorVerb::Installation installation;
    installation.add(std::move(here.settings.file), *std::move(hooks), Created::settingsFile);
    installation.add(std::move(here.servers.file), *std::move(server), Created::mcpFile);
    return ConnectorVerb::install(std::move(installation), ReceiptStore{m_paths.receiptFile},
                                  m_surroundings);
}

ConnectorOutcome ClaudeCodeConnector::remove() const {
    Look here(*this);
    if (auto refusal = here.refusal())
        return *std::move(refusal);
    const ReceiptStore receipts{m_paths.receiptFile};
    const std::set<Created> created = receipts.read().created;
    auto hooks = m_hook.removed(here.settings.bytes(), *here.settings.document, created);
    if (!hooks)
        return ConnectorVerb::refused(
            PlanFailure{here.settings.file.label, description(hooks.error())});
    auto server = m_mcp.removed(here.servers.bytes(), *here.servers.document, created);
    if (!server)
        return ConnectorVerb::refused(
            PlanFailure{here.servers.file.label, description(server.error())});

    // Nothing looks at the documents from here on: the bytes they point into are moved.
    std::vector<PlannedFile> files;
    Observations notes;
    files.push_back(ConnectorVerb::planRemoval(std::move(here.settings.file), *std::move(hooks),
                                               created.contains(Created::settingsFile),
                                               JSONBlock::isEmptyObject, notes));
    files.push_back(ConnectorVerb::planRemoval(std::move(here.servers.file), *std::move(server),
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

} // namespace wendlow
