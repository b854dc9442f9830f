#include "Codex/CodexConnector.h"

#include "ConfigFile/Disk.h"
#include "HookCommand.h"
#include "JSONFile.h"
#include "ScanJoin.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include <fmt/format.h>

namespace wendlow {

namespace {

/// A file that one of our edits left so that we would refuse it ourselves is never written.
constexpr const char* selfEditFailure =
    "the planned edit did not read back as TOML, so nothing was written";

bool holdsOnlyWhitespace(std::string_view bytes) {
    return bytes.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

/// The hooks file as a plan leaves it. Points into the plan's bytes.
class PlannedHooks {
public:
    PlannedHooks(const JSONDocument& before, const std::optional<std::string>& edited)
        : m_before(before) {
        // What an edit gives has been scanned by the edit.
        if (edited)
            m_after.emplace(*JSONText::scanWithTrivia(*edited, JSONDialect::json));
    }
    JSONNode root() const { return m_after ? m_after->root() : m_before.root(); }

private:
    const JSONDocument& m_before;
    std::optional<JSONDocument> m_after;
};

} // namespace

/// Both files as they are, and what of them is ours.
struct CodexConnector::Look {
    Look(const CodexConnector& codex, ToolFile::Purpose purpose)
        // Trust is recorded for where the hooks file really lies, so that a scan has to know, too.
        : hooks(codex.m_paths.hooksFile, ToolFile::Purpose::plan, codex.m_hook),
          config(ToolFile::read(codex.m_paths.configFile, purpose)),
          receipt(ReceiptStore{codex.m_paths.receiptFile}.read()),
          trust(codex.m_paths, hooks.file.path), configDocument(TOMLText::scan(configBytes())) {
        if (hooks.document)
            sites = codex.m_hook.sites(hooks.document->root(), hooks.bytes());
    }

    std::string_view configBytes() const { return config.bytesOr(""); }
    const CodexHookSite* site() const { return CodexHook::onPrompt(sites); }

    JSONFile hooks;
    ToolFile config;
    ConnectorReceipt receipt;
    CodexTrust trust;
    std::expected<TOMLDocument, TOMLTextError> configDocument;
    std::vector<CodexHookSite> sites; ///< none where the hooks file does not read
};

CodexConnector::CodexConnector(CodexPaths paths, ConnectorVerb::Surroundings surroundings)
    : m_paths(std::move(paths)), m_surroundings(std::move(surroundings)), m_hook(m_paths),
      m_mcp(m_paths) {}

ConnectorIdentity CodexConnector::identity() const {
    return {.id = "codex",
            .name = "Codex",
            .detail = "The Codex CLI and the ChatGPT desktop app.",
            .symbol = "terminal"};
}

bool CodexConnector::toolIsHere() const {
    return Disk::isDirectory(m_paths.configDirectory) || Disk::exists(m_paths.configFile) ||
           Disk::exists(m_paths.hooksFile);
}

ScanReport CodexConnector::scan() const {
    if (!toolIsHere())
        return ScanJoin::notFound(identity(), m_paths.configDirectory, m_paths.configFile);
    const Look here(*this, ToolFile::Purpose::scan);
    std::array<BlockFinding, 3> findings{m_hook.find(here.hooks.file.view())};
    auto& [hook, server, trust] = findings;
    CodexTrust::Judgement judgement;
    if (auto reason = configUnreadableReason(here, {})) {
        server = trust = {BlockFinding::Unreadable{*std::move(reason)}};
    } else {
        const TOMLDocument* const config = here.config.bytes ? &*here.configDocument : nullptr;
        server = m_mcp.find(config, here.receipt.created);
        trust = here.trust.find(config, here.site());
    }
    if (here.hooks.document && here.configDocument)
        judgement =
            configPlan(here, here.hooks.document->root(), {})
                .judge(*here.configDocument, here.site() != nullptr
                                                 ? std::optional(here.trust.slot(*here.site()).key)
                                                 : std::nullopt);

    Observations said = observations(hook, {.path = m_paths.hooksFile.string(),
                                            .what = "hook entry",
                                            .command = m_paths.hookCommand()});
    append(said, observations(server, {.path = m_paths.configFile.string(),
                                       .what = "MCP server entry",
                                       .command = m_paths.mcpCommand(),
                                       .language = "TOML"}));
    append(said, trustObservations(trust));
    append(said, slotObservations(judgement.report, 0));
    return {
        .identity = identity(), .state = ScanJoin::state(findings), .observations = folded(said)};
}

ConnectorOutcome CodexConnector::install() const {
    if (!toolIsHere())
        return ConnectorVerb::refused(
            {{m_paths.configDirectory.string(),
              "there is no Codex configuration here, so nothing was written"}});
    Look here(*this, ToolFile::Purpose::plan);
    if (auto refusal = readingRefusal(here))
        return *std::move(refusal);
    if (auto refusal = mcpRefusal(here, CodexMCP::Verb::install))
        return *std::move(refusal);
    if (auto reason = HookCommand::unusableReason(m_paths.hookBinary))
        return ConnectorVerb::refused({{m_paths.hookBinary.string(), *std::move(reason)}});

    auto hooks = m_hook.installed(here.hooks.bytes(), *here.hooks.document);
    if (!hooks)
        return ConnectorVerb::refused(
            ConnectorVerb::nothingWritten(here.hooks.file, description(hooks.error())));
    // Where the entry lands is known only now, and so is which table has to be fit for its trust.
    const CodexTrustSlot landing = here.trust.slot(hooks->site);
    if (auto refusal = readingRefusal(here, landing))
        return *std::move(refusal);
    const PlannedHooks planned(*here.hooks.document, hooks->bytes);
    const auto moved = m_hook.movedForeignEntries(here.hooks.document->root(), planned.root());
    auto config = configPlan(here, planned.root(), {hooks->site})
                      .installed(here.configBytes(), *here.configDocument, landing.key,
                                 hooks->site.identity()->trustedHash());
    if (!config)
        return ConnectorVerb::refused(PlanFailure{here.config.label, selfEditFailure});

    ConnectorVerb::Installation installation;
    installation.trustSlots = std::move(config->trustSlots);
    if (config->commentsReplaced > 0)
        installation.notes.push_back(
            {here.config.label,
             fmt::format("{} comment lines inside the Wendlow MCP entry were replaced",
                         config->commentsReplaced)});
    append(installation.notes, slotObservations(config->judgement.report, moved.size()));
    if (config->isSwitchedOff)
        installation.notes.push_back({here.config.label, here.trust.switchedOffText()});
    // Nothing looks at the documents from here on: the bytes they point into are moved.
    installation.add(std::move(here.hooks.file), *std::move(hooks), Created::codexHooksFile);
    installation.add(std::move(here.config), *std::move(config), Created::codexConfigFile);
    return ConnectorVerb::install(std::move(installation), ReceiptStore{m_paths.receiptFile},
                                  m_surroundings);
}

ConnectorOutcome CodexConnector::remove() const {
    Look here(*this, ToolFile::Purpose::plan);
    if (auto refusal = readingRefusal(here))
        return *std::move(refusal);
    if (auto refusal = mcpRefusal(here, CodexMCP::Verb::remove))
        return *std::move(refusal);
    const std::set<Created>& created = here.receipt.created;
    auto hooks = m_hook.removed(here.hooks.bytes(), *here.hooks.document, created);
    if (!hooks)
        return ConnectorVerb::refused(
            ConnectorVerb::nothingWritten(here.hooks.file, description(hooks.error())));
    const PlannedHooks planned(*here.hooks.document, hooks->bytes);
    const auto moved = m_hook.movedForeignEntries(here.hooks.document->root(), planned.root());
    auto config = configPlan(here, planned.root(), {})
                      .removed(here.configBytes(), *here.configDocument, created);
    if (!config)
        return ConnectorVerb::refused(PlanFailure{here.config.label, selfEditFailure});

    // Nothing looks at the documents from here on: the bytes they point into are moved.
    std::vector<PlannedFile> files;
    Observations notes;
    const Observations slots = slotObservations(config->judgement.report, moved.size());
    files.push_back(ConnectorVerb::planRemoval(std::move(here.hooks.file), *std::move(hooks),
                                               created.contains(Created::codexHooksFile),
                                               JSONBlock::isEmptyObject, notes));
    files.push_back(ConnectorVerb::planRemoval(std::move(here.config), *std::move(config),
                                               created.contains(Created::codexConfigFile),
                                               holdsOnlyWhitespace, notes));
    append(notes, slots);
    return ConnectorVerb::remove(std::move(files), std::move(notes),
                                 ReceiptStore{m_paths.receiptFile}, m_surroundings);
}

bool CodexConnector::staleOwnWiring() const {
    const Look here(*this, ToolFile::Purpose::scan);
    return HookLists::allRun(here.sites, m_paths.hookBinary) && Disk::exists(m_paths.hookBinary) &&
           scan().state == ConnectorState::drifted;
}

/// The tables that a verb will touch.
std::vector<TOMLName> CodexConnector::ownedTables(const Look& here, const Slot& landing) const {
    std::vector<TOMLName> owned{CodexMCP::tableName()};
    if (here.site() != nullptr)
        owned.push_back(CodexTrust::tableName(here.trust.slot(*here.site()).key));
    if (landing)
        owned.push_back(CodexTrust::tableName(landing->key));
    for (const std::string& key : here.receipt.trustSlots)
        if (here.configDocument->table(CodexTrust::tableName(key)) != nullptr)
            owned.push_back(CodexTrust::tableName(key));
    return owned;
}

std::optional<std::string> CodexConnector::configUnreadableReason(const Look& here,
                                                                  const Slot& landing) const {
    if (!here.configDocument)
        return here.configDocument.error().description();
    return TOMLText::unreadableReason(*here.configDocument, ownedTables(here, landing));
}

/// Why no verb may plan for these files.
CodexConnector::Refusal CodexConnector::readingRefusal(const Look& here,
                                                       const Slot& landing) const {
    auto refusal = here.hooks.refusal();
    if (!refusal)
        refusal = here.config.refusal(configUnreadableReason(here, landing), "TOML");
    return refusal ? Refusal(ConnectorVerb::refused({*std::move(refusal)})) : std::nullopt;
}

CodexConnector::Refusal CodexConnector::mcpRefusal(const Look& here, CodexMCP::Verb verb) const {
    const auto reason = m_mcp.refusalReason(*here.configDocument, here.receipt.created, verb);
    if (!reason)
        return std::nullopt;
    return ConnectorVerb::refused(ConnectorVerb::nothingWritten(here.config, *reason));
}

/// The plan for the configuration that goes with these hooks. Holds on to `plannedHooks`.
CodexConfigPlan CodexConnector::configPlan(const Look& here, const JSONNode& plannedHooks,
                                           std::vector<CodexHookSite> plannedSites) const {
    // What stood there before counts too: its hashes are the ones that are recorded.
    std::ranges::copy(here.sites, std::back_inserter(plannedSites));
    return {m_mcp,
            here.trust,
            {.known = CodexTrust::knownHashes(m_hook.identity(), plannedSites),
             .isLive =
                 [plannedHooks](std::ptrdiff_t group, std::ptrdiff_t index) {
                     return CodexHook::isLive(plannedHooks, group, index);
                 },
             .receiptSlots = here.receipt.trustSlots}};
}

Observations CodexConnector::slotObservations(const std::vector<std::string>& reported,
                                              std::size_t moved) const {
    const std::string subject = m_paths.configFile.string();
    Observations said;
    for (const std::string& key : reported)
        said.push_back(
            {subject, fmt::format("a hash Wendlow's hook has carried before is recorded here for "
                                  "the slot {}, which Wendlow did not write",
                                  key)});
    if (moved > 0)
        said.push_back({subject, fmt::format("trusted hashes here are recorded by position, and {} "
                                             "hook entries in {} moved position",
                                             moved, m_paths.hooksFile.string())});
    return said;
}

Observations CodexConnector::trustObservations(const BlockFinding& finding) const {
    const std::string subject = m_paths.configFile.string();
    Observations said;
    if (finding.is<BlockFinding::Connected>())
        said.push_back({subject, "the trusted hash recorded here matches the Wendlow hook entry"});
    if (const auto* drifted = std::get_if<BlockFinding::Drifted>(&finding.content))
        for (const std::string& reason : drifted->reasons)
            said.push_back({subject, reason});
    return said;
}

} // namespace wendlow
