#include "Codex/CodexConnector.h"

#include "Codex/CodexConfigPlan.h"
#include "Codex/CodexTrust.h"
#include "ConfigFile/Disk.h"
#include "Drift.h"
#include "JSONFile.h"
#include "OwnedNames.h"
#include "Say.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace wendlow {

namespace {

/// A file that one of our edits left so that we would refuse it ourselves is never written.
constexpr const char* selfEditFailure =
    sayLater("the planned edit did not read back as TOML, so nothing was written");

bool holdsOnlyWhitespace(std::string_view bytes) {
    return bytes.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

constexpr ConnectorVerb::FileRole hooksRole{.file = Created::codexHooksFile};
constexpr ConnectorVerb::FileRole configRole{
    .file = Created::codexConfigFile, .born = 0600, .isEmpty = holdsOnlyWhitespace};

// Both keep one form in English, whatever the number.

std::string replacedText(std::size_t comments) {
    return say.plural(static_cast<std::int64_t>(comments),
                      "{} comment lines inside the Wendlow MCP entry were replaced",
                      "{} comment lines inside the Wendlow MCP entry were replaced", comments);
}

std::string movedText(std::size_t entries, const std::string& file) {
    return say.plural(static_cast<std::int64_t>(entries),
                      "trusted hashes here are recorded by position, and {} hook entries in {} "
                      "moved position",
                      "trusted hashes here are recorded by position, and {} hook entries in {} "
                      "moved position",
                      entries, file);
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

class CodexConnector::Look final : public ToolLook {
public:
    Look(const CodexConnector& codex, ToolFile::Purpose purpose)
        : ToolLook(codex.m_paths.receiptFile), m_paths(codex.m_paths), m_hook(codex.m_hook),
          m_mcp(codex.m_mcp),
          // Trust is recorded for where the hooks file really lies: a scan has to know that, too.
          m_hooks(m_paths.hooksFile, ToolFile::Purpose::plan, m_hook),
          m_config(ToolFile::read(m_paths.serversFile, purpose)),
          m_trust(m_paths, m_hooks.file.path), m_configDocument(TOMLText::scan(configBytes())) {
        if (m_hooks.document)
            m_sites = m_hook.sites(m_hooks.document->root(), m_hooks.bytes());
    }

    ScanJoin::Findings findings() const override {
        BlockFinding server, trust;
        if (auto reason = configUnreadableReason({})) {
            server = trust = {BlockFinding::Unreadable{*std::move(reason)}};
        } else {
            const TOMLDocument* const config = m_config.bytes ? &*m_configDocument : nullptr;
            server = m_mcp.find(config, receipt().created);
            trust = m_trust.find(config, site(), m_hook);
        }
        Observations trustWords = trustObservations(trust);
        ScanJoin::Findings found{{{m_hooks.find(m_hook, m_sites),
                                   {.path = m_hooks.file.label,
                                    .what = OurPart::hookEntry,
                                    .command = m_paths.hookCommand()}},
                                  {std::move(server),
                                   {.path = m_config.label,
                                    .what = OurPart::serverEntry,
                                    .command = m_paths.mcpCommand(),
                                    .language = "TOML"}},
                                  {std::move(trust), std::move(trustWords)}}};
        if (m_hooks.document && m_configDocument) {
            const auto occupied = site() != nullptr ? m_trust.keys(*site()) : CodexTrust::Keys();
            found.more = slotObservations(
                configPlan(m_hooks.document->root(), {}).judge(*m_configDocument, occupied).report,
                0);
        }
        if (site() != nullptr)
            append(found.more, obstacles());
        return found;
    }

    Observations refusal(Verb verb) const override {
        const auto unread = verb == Verb::install ? readingRefusal({}) : removalRefusal();
        if (unread)
            return {*unread};
        const auto reason = m_mcp.refusalReason(*m_configDocument, receipt().created,
                                                verb == Verb::install ? CodexMCP::Verb::install
                                                                      : CodexMCP::Verb::remove);
        return reason ? nothingWritten(m_config, *reason).error() : Observations();
    }

    Planned<ConnectorVerb::Installation> installation() override {
        auto hooks = m_hook.installed(m_hooks.bytes(), *m_hooks.document);
        if (!hooks)
            return nothingWritten(m_hooks.file, description(hooks.error()));
        // Where the entry lands is known only now, and so is which table has to be fit for its
        // trust.
        const auto landings = m_trust.keys(hooks->site);
        if (auto reason = readingRefusal(landings))
            return std::unexpected(Observations{*std::move(reason)});
        const PlannedHooks planned(*m_hooks.document, hooks->bytes);
        const auto moved =
            m_hook.movedForeignEntries(m_hooks.document->root(), planned.root()).size();
        auto config = configPlan(planned.root(), {hooks->site})
                          .installed(configBytes(), *m_configDocument, landings,
                                     *m_hook.trustedHash(hooks->site));
        if (!config)
            return refused(m_config, say(selfEditFailure));

        ConnectorVerb::Installation plan;
        plan.trustSlots = std::move(config->trustSlots);
        if (config->commentsReplaced > 0)
            plan.notes.push_back({m_config.label, replacedText(config->commentsReplaced)});
        append(plan.notes, slotObservations(config->judgement.report, moved));
        if (config->isServerOff)
            plan.notes.push_back({m_config.label, CodexMCP::switchedOffText()});
        if (config->isHookOff)
            plan.notes.push_back({m_config.label, m_trust.switchedOffText()});
        plan.add(std::move(m_hooks.file), *std::move(hooks), hooksRole);
        plan.add(std::move(m_config), *std::move(config), configRole);
        return plan;
    }

    Planned<ConnectorVerb::Removal> removal() override {
        const std::set<Created>& created = receipt().created;
        auto hooks = m_hooks.removed(m_hook, created);
        if (!hooks)
            return nothingWritten(m_hooks.file, description(hooks.error()));
        const PlannedHooks planned(*m_hooks.contents(), hooks->bytes);
        const auto moved =
            m_hook.movedForeignEntries(m_hooks.contents()->root(), planned.root()).size();
        auto config =
            configIsNoneOfOurs()
                ? CodexConfigPlan::Removed()
                : configPlan(planned.root(), {}).removed(configBytes(), *m_configDocument, created);
        if (!config)
            return refused(m_config, say(selfEditFailure));

        ConnectorVerb::Removal plan;
        Observations slots = slotObservations(config->judgement.report, moved);
        plan.add(std::move(m_hooks.file), *std::move(hooks), hooksRole, created);
        plan.add(std::move(m_config), *std::move(config), configRole, created);
        append(plan.notes, std::move(slots));
        return plan;
    }

    bool isThisInstallations() const override {
        return Disk::exists(m_paths.hookBinary) && HookLists::allRun(m_sites, m_paths.hookBinary);
    }

private:
    std::string_view configBytes() const { return m_config.bytesOr(""); }
    const CodexHookSite* site() const { return CodexHook::onPrompt(m_sites); }

    /// What keeps our hook from running, which makes no entry wrong.
    Observations obstacles() const {
        Observations said;
        if (m_configDocument && CodexHook::areHooksOff(*m_configDocument))
            said.push_back(
                {m_config.label, say("hooks is false under features here, so Codex runs no hook")});
        if (CodexHook::holdsBrokenTimeout(m_hooks.document->root(), m_hooks.bytes()))
            said.push_back(
                {m_hooks.file.label, say("a timeout in this file is not a whole number, so "
                                         "Codex reads no hook in it")});
        append(said, Drift::unrunnable(m_paths.hookBinary));
        return said;
    }

    /// The tables that a verb will touch.
    std::vector<TOMLName> ownedTables(const CodexTrust::Keys& landings) const {
        std::vector<TOMLName> owned{CodexMCP::tableName()};
        if (site() != nullptr)
            for (const std::string& key : m_trust.keys(*site()))
                owned.push_back(CodexTrust::tableName(key));
        for (const std::string& key : landings)
            owned.push_back(CodexTrust::tableName(key));
        for (const std::string& key : receipt().trustSlots)
            if (auto name = CodexTrust::tableName(key);
                std::ranges::count(owned, name) == 0 && m_configDocument->table(name) != nullptr)
                owned.push_back(std::move(name));
        return owned;
    }

    std::optional<Unreadable> configUnreadableReason(const CodexTrust::Keys& landings) const {
        if (!m_configDocument)
            return m_configDocument.error().unreadable();
        return TOMLText::unreadableReason(*m_configDocument, ownedTables(landings));
    }

    /// Why no verb may plan for these files; one that is in the way is enough.
    std::optional<Observation> readingRefusal(const CodexTrust::Keys& landings) const {
        auto reason = m_hooks.refusal();
        return reason ? reason : m_config.refusal(configUnreadableReason(landings), "TOML");
    }

    /// Whether the configuration is unfit to be edited and nothing in it is ours.
    bool configIsNoneOfOurs() const {
        return m_configDocument && configUnreadableReason({}) && receipt().trustSlots.empty() &&
               !configBytes().contains(OwnedNames::server);
    }

    /// The same for a removal, which passes by what holds nothing of ours.
    std::optional<Observation> removalRefusal() const {
        if (auto reason = m_hooks.removalRefusal())
            return reason;
        return m_config.refusal(configIsNoneOfOurs() ? std::nullopt : configUnreadableReason({}),
                                "TOML");
    }

    /// The plan for the configuration that goes with these hooks. Holds on to `plannedHooks`.
    CodexConfigPlan configPlan(const JSONNode& plannedHooks,
                               std::vector<CodexHookSite> plannedSites) const {
        // What stood there before counts too: its hashes are the ones that are recorded.
        std::ranges::copy(m_sites, std::back_inserter(plannedSites));
        return {
            m_mcp,
            m_trust,
            {.isKnown =
                 [this, sites = std::move(plannedSites),
                  known = std::optional<CodexTrust::Hashes>()](const std::string& hash) mutable {
                     if (!known)
                         known = CodexTrust::knownHashes(m_hook.identity(), sites);
                     return known->contains(hash);
                 },
             .isLive =
                 [plannedHooks](std::ptrdiff_t group, std::ptrdiff_t index) {
                     return CodexHook::isLive(plannedHooks, group, index);
                 },
             .receiptSlots = receipt().trustSlots}};
    }

    Observations slotObservations(const std::vector<std::string>& reported,
                                  std::size_t moved) const {
        Observations said;
        for (const std::string& key : reported)
            said.push_back({m_config.label,
                            say("a hash Wendlow's hook has carried before is recorded here for the "
                                "slot {}, which Wendlow did not write",
                                key)});
        if (moved > 0)
            said.push_back({m_config.label, movedText(moved, m_paths.hooksFile.string())});
        return said;
    }

    Observations trustObservations(const BlockFinding& finding) const {
        Observations said;
        if (finding.is<BlockFinding::Connected>())
            said.push_back(
                {m_config.label, say("the trusted hash recorded here matches the Wendlow "
                                     "hook entry")});
        if (const auto* drifted = std::get_if<BlockFinding::Drifted>(&finding.content))
            for (const std::string& reason : drifted->reasons)
                said.push_back({m_config.label, reason});
        return said;
    }

    const CodexPaths& m_paths;
    const CodexHook& m_hook;
    const CodexMCP& m_mcp;
    JSONFile m_hooks;
    ToolFile m_config;
    CodexTrust m_trust;
    std::expected<TOMLDocument, TOMLTextError> m_configDocument;
    std::vector<CodexHookSite> m_sites; ///< none where the hooks file does not read
};

CodexConnector::CodexConnector(CodexPaths paths, ConnectorVerb::Surroundings surroundings)
    : ToolConnector({.identity = {.id = paths.tool,
                                  .name = "Codex",
                                  .detail = say("The Codex CLI and the ChatGPT desktop app."),
                                  .symbol = "terminal"},
                     .directory = paths.configDirectory,
                     .shownBy = {paths.serversFile, paths.hooksFile},
                     .files = {paths.hooksFile, paths.serversFile},
                     .receiptFile = paths.receiptFile,
                     .hookBinary = paths.hookBinary},
                    std::move(surroundings)),
      m_paths(std::move(paths)), m_hook(m_paths), m_mcp(m_paths) {}

std::unique_ptr<ToolLook> CodexConnector::look(ToolFile::Purpose purpose) const {
    return std::make_unique<Look>(*this, purpose);
}

} // namespace wendlow
