#include "Cursor/CursorConnector.h"

#include "ConfigFile/Disk.h"
#include "Cursor/CursorThirdParty.h"
#include "Cursor/CursorVersion.h"
#include "Drift.h"
#include "HookLists.h"
#include "JSONFile.h"
#include "Say.h"

#include <utility>

namespace wendlow {

namespace {

Observations replacedObservations(const std::string& file,
                                  const std::vector<std::string>& replaced) {
    if (replaced.empty())
        return {};
    return {{file, say.plural(static_cast<std::int64_t>(replaced.size()),
                              "{} on the Wendlow entry here was replaced with the proven shape",
                              "{} on the Wendlow entry here were replaced with the proven shape",
                              listed(replaced))}};
}

constexpr ConnectorVerb::FileRole hooksRole{
    .file = Created::cursorHooksFile,
    .isEmpty = CursorHook::isSeedResidue,
    .emptyWords =
        sayLater("this file now holds no hooks and remains, because Wendlow did not create it")};
constexpr ConnectorVerb::FileRole serversRole{.file = Created::cursorMCPFile};

} // namespace

class CursorConnector::Look final : public ToolLook {
public:
    Look(const CursorConnector& cursor, ToolFile::Purpose purpose)
        : ToolLook(cursor.m_paths.receiptFile), m_paths(cursor.m_paths), m_hook(cursor.m_hook),
          m_mcp(cursor.m_mcp),
          m_hooks(m_paths.hooksFile, purpose, m_hook, {.seed = CursorHook::seed}),
          m_servers(m_paths.serversFile, purpose, m_mcp) {
        if (const JSONDocument* const contents = m_hooks.contents())
            m_sites = m_hook.sites(contents->root());
    }

    ScanJoin::Findings findings() const override {
        ScanJoin::Findings found{{{m_hooks.find(m_hook, m_sites),
                                   {.path = m_hooks.file.label,
                                    .what = OurPart::hookEntry,
                                    .command = m_paths.hookCommand()}},
                                  {m_servers.find(m_mcp),
                                   {.path = m_servers.file.label,
                                    .what = OurPart::serverEntry,
                                    .command = m_paths.mcpCommand()}}}};
        if (m_sites.empty())
            return found;
        found.more = all({newVersion(), doubleFire(), noVersion()});
        append(found.more, Drift::unrunnable(m_paths.hookBinary));
        return found;
    }

    Observations refusal(Verb verb) const override {
        auto reasons = all({m_hooks.refusal(), m_servers.refusal()});
        // Adding to a version that nobody has read is a guess; taking out is not.
        if (reasons.empty() && verb == Verb::install)
            if (const auto version = foreignVersion())
                reasons.push_back({m_hooks.file.label,
                                   say("this file states hooks configuration version {}, which "
                                       "this build has not read, so nothing was written",
                                       *version)});
        return reasons;
    }

    Planned<ConnectorVerb::Installation> installation() override {
        auto hooks = m_hook.installed(m_hooks.bytes(), *m_hooks.document);
        if (!hooks)
            return nothingWritten(m_hooks.file, description(hooks.error()));
        auto server = m_mcp.installed(m_servers.bytes(), *m_servers.document);
        if (!server)
            return nothingWritten(m_servers.file, description(server.error()));
        ConnectorVerb::Installation plan;
        plan.order = ConnectorVerb::FileOrder::asPlanned;
        plan.appVersion = CursorVersion::read(m_paths.cursorApp);
        plan.planNotes = replacedObservations(m_hooks.file.label, hooks->replaced);
        plan.add(std::move(m_hooks.file), *std::move(hooks), hooksRole);
        plan.add(std::move(m_servers.file), *std::move(server), serversRole);
        return plan;
    }

    Planned<ConnectorVerb::Removal> removal() override {
        const std::set<Created>& created = receipt().created;
        auto hooks = m_hook.removed(m_hooks.bytes(), *m_hooks.document, created);
        if (!hooks)
            return nothingWritten(m_hooks.file, description(hooks.error()));
        auto server = m_mcp.removed(m_servers.bytes(), *m_servers.document, created);
        if (!server)
            return nothingWritten(m_servers.file, description(server.error()));
        ConnectorVerb::Removal plan;
        const auto version = hooks->bytes && hooks->heldOurs ? foreignVersion() : std::nullopt;
        if (version)
            plan.notes.push_back(
                {m_hooks.file.label, say("this file states hooks configuration version {}, and "
                                         "only the Wendlow entry was taken out of it",
                                         *version)});
        plan.add(std::move(m_hooks.file), *std::move(hooks), hooksRole, created);
        plan.add(std::move(m_servers.file), *std::move(server), serversRole, created);
        return plan;
    }

    bool isThisInstallations() const override {
        return Disk::exists(m_paths.hookBinary) && HookLists::allRun(m_sites, m_paths.hookBinary);
    }

private:
    std::optional<std::string> foreignVersion() const {
        const auto version = m_hook.version(m_hooks.document->root(), m_hooks.bytes());
        const std::string* const foreign = version.foreign();
        return foreign != nullptr ? std::optional(*foreign) : std::nullopt;
    }

    std::optional<Observation> noVersion() const {
        if (m_hooks.contents()->root().member("version"))
            return std::nullopt;
        return Observation{m_hooks.file.label, say("this file states no hooks configuration "
                                                   "version, and Cursor asks for one")};
    }

    std::optional<Observation> newVersion() const {
        const auto& recorded = receipt().appVersion;
        const auto current = recorded ? CursorVersion::read(m_paths.cursorApp) : std::nullopt;
        if (!current || current == recorded)
            return std::nullopt;
        return Observation{m_paths.cursorApp.string(),
                           say("Cursor is now {}; the Wendlow hook entry on this Mac was proven "
                               "against {}",
                               *current, *recorded)};
    }

    std::optional<Observation> doubleFire() const {
        const ToolFile settings = ToolFile::read(m_paths.claude.hooksFile, ToolFile::Purpose::scan);
        const auto mapped = CursorThirdParty::mappedWendlowEntry(
            settings.view(), m_paths.hookCommand(), m_paths.claude.hookCommand());
        if (!mapped)
            return std::nullopt;
        return Observation{settings.label, CursorThirdParty::sentence(mapped->kind)};
    }

    const CursorPaths& m_paths;
    const CursorHook& m_hook;
    const CursorMCP& m_mcp;
    JSONFile m_hooks;
    JSONFile m_servers;
    std::vector<CursorHookSite> m_sites; ///< none where the hooks file does not scan
};

CursorConnector::CursorConnector(CursorPaths paths, ConnectorVerb::Surroundings surroundings)
    : ToolConnector(
          {.identity = {.id = paths.tool,
                        .name = "Cursor",
                        .detail = say("The Cursor editor, its agent view, and the terminal agent."),
                        .symbol = "cursorarrow.rays"},
           .directory = paths.configDirectory,
           .shownBy = {},
           .files = {paths.hooksFile, paths.serversFile},
           .receiptFile = paths.receiptFile,
           .hookBinary = paths.hookBinary},
          std::move(surroundings)),
      m_paths(std::move(paths)), m_hook(m_paths), m_mcp(m_paths) {}

std::unique_ptr<ToolLook> CursorConnector::look(ToolFile::Purpose purpose) const {
    return std::make_unique<Look>(*this, purpose);
}

} // namespace wendlow
