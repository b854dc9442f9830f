#include "Cursor/CursorConnector.h"

#include "ConfigFile/Disk.h"
#include "Cursor/CursorThirdParty.h"
#include "Cursor/CursorVersion.h"
#include "HookCommand.h"
#include "HookLists.h"
#include "JSONFile.h"
#include "ScanJoin.h"

#include <utility>

#include <fmt/format.h>

namespace wendlow {

namespace {

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

/// Both files as they are, for a plan.
struct CursorConnector::Look {
    explicit Look(const CursorConnector& cursor)
        : hooks(cursor.m_paths.hooksFile, ToolFile::Purpose::plan, cursor.m_hook, CursorHook::seed),
          servers(cursor.m_paths.mcpFile, ToolFile::Purpose::plan, cursor.m_mcp) {}

    /// Why no verb may plan for them, in their order.
    std::optional<ConnectorOutcome> refusal() const {
        return ConnectorVerb::readingRefusal({hooks.refusal(), servers.refusal()});
    }

    JSONFile hooks;
    JSONFile servers;
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
    const ToolFile hooks = ToolFile::read(m_paths.hooksFile, ToolFile::Purpose::scan);
    const ToolFile servers = ToolFile::read(m_paths.mcpFile, ToolFile::Purpose::scan);
    Observations more;
    if (!sitesIn(hooks).empty()) {
        append(more, versionObservations());
        append(more, doubleFireObservations());
    }
    return ScanJoin::report(
        identity(),
        {{.finding = m_hook.find(hooks.view()),
          .subject = {.path = hooks.label, .what = "hook entry", .command = m_paths.hookCommand()}},
         {.finding = m_mcp.find(servers.view()),
          .subject = {.path = servers.label,
                      .what = "MCP server entry",
                      .command = m_paths.mcpCommand()}}},
        std::move(more));
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
    const ToolFile settings = ToolFile::read(m_paths.claudeSettingsFile, ToolFile::Purpose::scan);
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
    Look here(*this);
    if (auto refusal = here.refusal())
        return *std::move(refusal);
    const CursorHooksVersion version =
        m_hook.version(here.hooks.document->root(), here.hooks.bytes());
    if (const std::string* foreign = version.foreign())
        return ConnectorVerb::refused(
            {{here.hooks.file.label, CursorHookError{*foreign}.description() + ", so nothing was "
                                                                               "written"}});
    if (auto reason = HookCommand::unusableReason(m_paths.hookBinary))
        return ConnectorVerb::refused({{m_paths.hookBinary.string(), *std::move(reason)}});

    auto hooks = m_hook.installed(here.hooks.bytes(), *here.hooks.document);
    if (!hooks)
        return ConnectorVerb::refused(
            ConnectorVerb::nothingWritten(here.hooks.file, description(hooks.error())));
    auto server = m_mcp.installed(here.servers.bytes(), *here.servers.document);
    if (!server)
        return ConnectorVerb::refused(
            ConnectorVerb::nothingWritten(here.servers.file, description(server.error())));

    ConnectorVerb::Installation installation;
    installation.order = ConnectorVerb::FileOrder::asPlanned;
    installation.appVersion = CursorVersion::read(m_paths.cursorApp);
    installation.planNotes = replacedObservations(here.hooks.file.label, hooks->replaced);
    // Nothing looks at the documents from here on: the bytes they point into are moved.
    installation.add(std::move(here.hooks.file), *std::move(hooks), Created::cursorHooksFile);
    installation.add(std::move(here.servers.file), *std::move(server), Created::cursorMCPFile);
    return ConnectorVerb::install(std::move(installation), ReceiptStore{m_paths.receiptFile},
                                  m_surroundings);
}

ConnectorOutcome CursorConnector::remove() const {
    Look here(*this);
    if (auto refusal = here.refusal())
        return *std::move(refusal);
    const ReceiptStore receipts{m_paths.receiptFile};
    const std::set<Created> created = receipts.read().created;
    Observations notes;
    // Adding to a version that nobody has read is a guess; taking out is not.
    const CursorHooksVersion version =
        m_hook.version(here.hooks.document->root(), here.hooks.bytes());
    if (const std::string* foreign = version.foreign())
        notes.push_back({here.hooks.file.label,
                         fmt::format("this file states hooks configuration version {}, and only "
                                     "the Wendlow entry was taken out of it",
                                     *foreign)});
    auto hooks = m_hook.removed(here.hooks.bytes(), *here.hooks.document, created);
    if (!hooks)
        return ConnectorVerb::refused(
            ConnectorVerb::nothingWritten(here.hooks.file, description(hooks.error())));
    auto server = m_mcp.removed(here.servers.bytes(), *here.servers.document, created);
    if (!server)
        return ConnectorVerb::refused(
            ConnectorVerb::nothingWritten(here.servers.file, description(server.error())));

    // Nothing looks at the documents from here on: the bytes they point into are moved.
    std::vector<PlannedFile> files;
    files.push_back(ConnectorVerb::planRemoval(
        std::move(here.hooks.file), *std::move(hooks), created.contains(Created::cursorHooksFile),
        CursorHook::isSeedResidue, notes, "now holds no hooks"));
    files.push_back(ConnectorVerb::planRemoval(std::move(here.servers.file), *std::move(server),
                                               created.contains(Created::cursorMCPFile),
                                               JSONBlock::isEmptyObject, notes));
    return ConnectorVerb::remove(std::move(files), std::move(notes), receipts, m_surroundings);
}

bool CursorConnector::staleOwnWiring() const {
    return HookLists::allRun(sitesIn(ToolFile::read(m_paths.hooksFile, ToolFile::Purpose::scan)),
                             m_paths.hookBinary) &&
           Disk::exists(m_paths.hookBinary) && scan().state == ConnectorState::drifted;
}

} // namespace wendlow
