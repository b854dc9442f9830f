#include "Cursor/CursorConnector.h"

#include "ConfigFile/Disk.h"
#include "Cursor/CursorThirdParty.h"
#include "Cursor/CursorVersion.h"
#include "HookCommand.h"
#include "HookLists.h"
#include "ScanJoin.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include <fmt/format.h>

namespace wendlow {

namespace {

struct Sources {
    CursorHook::Readable hooks;
    CursorMCP::Readable servers;
};

/// Why a verb may not plan for these files, in their order.
std::optional<ConnectorOutcome> readingRefusal(const ToolFile& hooks, const ToolFile& servers,
                                               const Sources& sources) {
    return ConnectorVerb::readingRefusal({hooks.refusal(JSONBlock::reason(sources.hooks)),
                                          servers.refusal(JSONBlock::reason(sources.servers))});
}

/// "a, b and c"
std::string listed(const std::vector<std::string>& items) {
    std::string text;
    for (std::size_t index = 0; index < items.size(); ++index) {
        if (index > 0)
            text += index + 1 == items.size() ? " and " : ", ";
        text += items[index];
    }
    return text;
}

Observations replacedObservations(const std::string& file,
                                  const std::vector<std::string>& replaced) {
    if (replaced.empty())
        return {};
    return {{file, fmt::format("{} on the Wendlow entry here {} replaced with the proven shape",
                               listed(replaced), replaced.size() == 1 ? "was" : "were")}};
}

} // namespace

/// Both files as they are, and what the blocks say about them.
struct CursorConnector::Look {
    ToolFile hooks;
    ToolFile servers;
    std::array<BlockFinding, 2> findings; ///< hook, MCP
};

CursorConnector::CursorConnector(CursorPaths paths, ConnectorVerb::Surroundings surroundings)
    : m_paths(std::move(paths)), m_surroundings(std::move(surroundings)), m_hook(m_paths),
      m_mcp(m_paths) {}

ConnectorIdentity CursorConnector::identity() const {
    return {.id = "cursor",
            .name = "Cursor",
            .detail = "The Cursor editor, its agent view, and the terminal agent.",
            .symbol = "cursorarrow.rays"};
}

bool CursorConnector::toolIsHere() const {
    return Disk::isDirectory(m_paths.configDirectory);
}

ScanReport CursorConnector::scan() const {
    if (!toolIsHere())
        return ScanJoin::notFound(identity(), m_paths.configDirectory);
    const Look here = look();
    Observations said = observations(here.findings[0], {.path = m_paths.hooksFile.string(),
                                                        .what = "hook entry",
                                                        .command = m_paths.hookCommand()});
    std::ranges::move(observations(here.findings[1], {.path = m_paths.mcpFile.string(),
                                                      .what = "MCP server entry",
                                                      .command = m_paths.mcpCommand()}),
                      std::back_inserter(said));
    if (!sitesIn(here.hooks).empty()) {
        std::ranges::move(versionObservations(), std::back_inserter(said));
        std::ranges::move(doubleFireObservations(), std::back_inserter(said));
    }
    return {.identity = identity(),
            .state = ScanJoin::state(here.findings),
            .observations = folded(said)};
}

CursorConnector::Look CursorConnector::look() const {
    Look here{.hooks = ToolFile::read(m_paths.hooksFile),
              .servers = ToolFile::read(m_paths.mcpFile),
              .findings = {}};
    here.findings = {m_hook.find(here.hooks.view()), m_mcp.find(here.servers.view())};
    return here;
}

/// Also of a file that no verb would plan for: what is in it runs nevertheless.
std::vector<CursorHookSite> CursorConnector::sitesIn(const ToolFile& hooks) const {
    if (!hooks.bytes)
        return {};
    const auto document = JSONText::scanWithTrivia(*hooks.bytes, JSONDialect::json);
    return document ? m_hook.sites(document->root()) : std::vector<CursorHookSite>{};
}

Observations CursorConnector::versionObservations() const {
    const auto recorded = ReceiptStore{m_paths.receiptFile}.read().appVersion;
    const auto current = recorded ? CursorVersion::read(m_paths.cursorApp) : std::nullopt;
    if (!current || current == recorded)
        return {};
    return {{m_paths.cursorApp.string(),
             fmt::format("Cursor is now {}; the Wendlow hook entry on this Mac was proven against "
                         "{}",
                         *current, *recorded)}};
}

Observations CursorConnector::doubleFireObservations() const {
    const ToolFile settings = ToolFile::read(m_paths.claudeSettingsFile);
    const auto mapped = CursorThirdParty::mappedWendlowEntry(settings.view(), m_paths.hookCommand(),
                                                             m_paths.claudeHookCommand());
    if (!mapped)
        return {};
    return {{settings.label, CursorThirdParty::sentence(mapped->kind)}};
}

ConnectorOutcome CursorConnector::install() const {
    if (!toolIsHere())
        return ConnectorVerb::refused(
            {{m_paths.configDirectory.string(),
              "there is no Cursor configuration here, so nothing was written"}});
    ToolFile hooksFile = ToolFile::read(m_paths.hooksFile);
    ToolFile serversFile = ToolFile::read(m_paths.mcpFile);
    const std::string_view hooksBytes = hooksFile.bytesOr(CursorHook::seed);
    const std::string_view serversBytes = serversFile.bytesOr(JSONBlock::seed);
    const Sources sources{m_hook.read(hooksBytes), m_mcp.read(serversBytes)};
    if (auto refusal = readingRefusal(hooksFile, serversFile, sources))
        return *std::move(refusal);
    const CursorHooksVersion version = m_hook.version(sources.hooks->root(), hooksBytes);
    if (const std::string* foreign = version.foreign())
        return ConnectorVerb::refused(
            {{hooksFile.label, CursorHookError{*foreign}.description() + ", so nothing was "
                                                                         "written"}});
    if (auto reason = HookCommand::unusableReason(m_paths.hookBinary))
        return ConnectorVerb::refused({{m_paths.hookBinary.string(), *std::move(reason)}});

    auto hooks = m_hook.installed(hooksBytes, *sources.hooks);
    if (!hooks)
        return ConnectorVerb::refused(
            ConnectorVerb::nothingWritten(hooksFile, description(hooks.error())));
    auto server = m_mcp.installed(serversBytes, *sources.servers);
    if (!server)
        return ConnectorVerb::refused(
            ConnectorVerb::nothingWritten(serversFile, description(server.error())));

    ConnectorVerb::Installation installation;
    installation.order = ConnectorVerb::FileOrder::asPlanned;
    installation.appVersion = CursorVersion::read(m_paths.cursorApp);
    installation.planNotes = replacedObservations(hooksFile.label, hooks->replaced);
    // Nothing looks at the documents from here on: the bytes they point into are moved.
    installation.add(std::move(hooksFile), *std::move(hooks), Created::cursorHooksFile);
    installation.add(std::move(serversFile), *std::move(server), Created::cursorMCPFile);
    return ConnectorVerb::install(std::move(installation), ReceiptStore{m_paths.receiptFile},
                                  m_surroundings);
}

ConnectorOutcome CursorConnector::remove() const {
    ToolFile hooksFile = ToolFile::read(m_paths.hooksFile);
    ToolFile serversFile = ToolFile::read(m_paths.mcpFile);
    const std::string_view hooksBytes = hooksFile.bytesOr(CursorHook::seed);
    const std::string_view serversBytes = serversFile.bytesOr(JSONBlock::seed);
    const Sources sources{m_hook.read(hooksBytes), m_mcp.read(serversBytes)};
    if (auto refusal = readingRefusal(hooksFile, serversFile, sources))
        return *std::move(refusal);
    const ReceiptStore receipts{m_paths.receiptFile};
    const std::set<Created> created = receipts.read().created;
    Observations notes;
    // Adding to a version that nobody has read is a guess; taking out is not.
    const CursorHooksVersion version = m_hook.version(sources.hooks->root(), hooksBytes);
    if (const std::string* foreign = version.foreign())
        notes.push_back({hooksFile.label,
                         fmt::format("this file states hooks configuration version {}, and only "
                                     "the Wendlow entry was taken out of it",
                                     *foreign)});
    auto hooks = m_hook.removed(hooksBytes, *sources.hooks, created);
    if (!hooks)
        return ConnectorVerb::refused(
            ConnectorVerb::nothingWritten(hooksFile, description(hooks.error())));
    auto server = m_mcp.removed(serversBytes, *sources.servers, created);
    if (!server)
        return ConnectorVerb::refused(
            ConnectorVerb::nothingWritten(serversFile, description(server.error())));

    // Nothing looks at the documents from here on: the bytes they point into are moved.
    std::vector<PlannedFile> files;
    files.push_back(ConnectorVerb::planRemoval(
        std::move(hooksFile), *std::move(hooks), created.contains(Created::cursorHooksFile),
        CursorHook::isSeedResidue, notes, "now holds no hooks"));
    files.push_back(ConnectorVerb::planRemoval(std::move(serversFile), *std::move(server),
                                               created.contains(Created::cursorMCPFile),
                                               JSONBlock::isEmptyObject, notes));
    return ConnectorVerb::remove(std::move(files), std::move(notes), receipts, m_surroundings);
}

bool CursorConnector::staleOwnWiring() const {
    return HookLists::allRun(sitesIn(ToolFile::read(m_paths.hooksFile)), m_paths.hookBinary) &&
           Disk::exists(m_paths.hookBinary) && scan().state == ConnectorState::drifted;
}

} // namespace wendlow
