#include "OpenCode/OpenCodeConnector.h"

#include "ConfigFile/Backup.h"
#include "ConfigFile/Disk.h"
#include "Drift.h"
#include "JSONFile.h"
#include "OpenCode/OpenCodePlugin.h"
#include "OpenCode/OpenCodeSessionStore.h"
#include "Say.h"

#include <algorithm>
#include <utility>

namespace wendlow {

namespace {

constexpr const char* language = sayLater("JSON with comments");

/// Whether nothing is left in a configuration, comments apart.
bool isEmptyObject(std::string_view bytes) {
    const auto document = JSONText::scanWithTrivia(bytes, JSONDialect::jsonWithComments);
    return document && document->root().isObject() && document->root().count() == 0;
}

/// Whether nothing is left in a configuration but what OpenCode itself puts into every one that
/// has none of it.
bool isLeftover(std::string_view bytes) {
    const auto document = JSONText::scanWithTrivia(bytes, JSONDialect::jsonWithComments);
    return document && document->root().isObject() &&
           std::ranges::all_of(document->root().members(), [](const JSONNode::Member& member) {
               return member.key == "$schema";
           });
}

constexpr ConnectorVerb::FileRole serverRole{.file = Created::openCodeConfigFile,
                                             .what = OurPart::serverEntry,
                                             .isEmpty = isEmptyObject,
                                             .isLeftover = isLeftover};
constexpr ConnectorVerb::FileRole pluginRole{.file = Created::openCodePluginFile,
                                             .what = OurPart::plugin};

/// Whether the store was last shaped by an OpenCode that does not know our plugin's hooks. One that
/// does not answer counts as such.
bool isOldStore(std::optional<OpenCodeSessionStore::Writer> writer) {
    using OpenCodeSessionStore::Writer;
    return writer == Writer::opencode1 || writer == Writer::unknown;
}

/// Takes the emptied plugins folder away, or says why it stays.
Observations removeFolder(const std::filesystem::path& folder,
                          const std::filesystem::path& plugin) {
    const auto names = Disk::names(folder);
    const auto told = [&](std::string text) {
        return Observations{{folder.string(), std::move(text)}};
    };
    const auto isCopy = [&](const std::string& name) { return Backup::isCopy(name, plugin); };
    if (!names)
        return {};
    if (!std::ranges::all_of(*names, isCopy))
        return told(say("this folder holds other files and remains"));
    if (!names->empty())
        return told(say("this folder holds the copy of the plugin that was made here first and "
                        "remains"));
    if (!Disk::removeFolder(folder))
        return {};
    return told(say("this folder was created when Wendlow connected and was removed"));
}

} // namespace

class OpenCodeConnector::Look final : public ToolLook {
public:
    Look(const OpenCodeConnector& openCode, ToolFile::Purpose purpose)
        : ToolLook(openCode.m_paths.receiptFile), m_paths(openCode.m_paths), m_mcp(openCode.m_mcp),
          m_config(m_paths.serversFile, purpose, m_mcp,
                   {.dialect = JSONDialect::jsonWithComments, .language = language}),
          m_plugin(ToolFile::read(m_paths.hooksFile, purpose)) {
        if (m_plugin.bytes)
            m_pluginOwnership = OpenCodePlugin::ownership(*m_plugin.bytes, m_paths.hookBinary);
    }

    ScanJoin::Findings findings() const override {
        ScanJoin::Findings found{{{m_config.find(m_mcp, receipt().created),
                                   {.path = m_config.file.label,
                                    .what = OurPart::serverEntry,
                                    .command = m_paths.mcpCommand(),
                                    .language = language}},
                                  {pluginFinding(),
                                   {.path = m_plugin.label,
                                    .what = OurPart::plugin,
                                    .command = m_paths.hookCommand()}}}};
        if (found.blocks[0].finding.holdsOurs())
            found.more = all({switchedOffElsewhere()});
        if (found.blocks[1].finding.holdsOurs())
            append(found.more, Drift::unrunnable(m_paths.hookBinary));
        return found;
    }

    Observations refusal(Verb verb) const override {
        auto reasons = configRefusal();
        if (!reasons.empty()) {
            if (verb == Verb::remove && hasOurPlugin())
                reasons.push_back(
                    {m_plugin.label,
                     say("the Wendlow plugin here is still in place and still runs {}",
                         m_paths.hookCommand())});
            return reasons;
        }
        reasons = all({m_plugin.refusal(std::nullopt)});
        if (reasons.empty() && verb == Verb::install && isPersonsPlugin())
            reasons.push_back({m_plugin.label, say("a file of this name is here and this build did "
                                                   "not write it, so nothing was written")});
        return reasons;
    }

    Planned<ConnectorVerb::Installation> installation() override {
        auto server = m_mcp.installed(m_config.bytes(), *m_config.document);
        if (!server)
            return nothingWritten(m_config.file, description(server.error()));
        InstalledBlock plugin;
        if (m_pluginOwnership != PluginOwnership::current)
            plugin.bytes = OpenCodePlugin::source(m_paths.hookBinary);
        ConnectorVerb::Installation plan;
        plan.folder = std::make_unique<NewFolder>(m_paths.pluginsDirectory);
        if (const auto& made = plan.folder->made(); !made)
            return std::unexpected(
                Observations{{m_paths.pluginsDirectory.string(),
                              say("this folder was not made, so nothing was written — {}",
                                  Disk::words(made.error()))}});
        plan.planNotes = planNotes(server->commentsReplaced);
        if (!OpenCodeMCP::node(*m_config.document))
            plan.created.insert(Created::openCodeMCPEntry);
        if (OpenCodeMCP::isAdoptableShell(*m_config.document))
            plan.adopted.insert(Adopted::openCodeMCPEntryShell);
        if (plan.folder->isNew())
            plan.created.insert(Created::openCodePluginsDirectory);
        plan.add(std::move(m_config.file), *std::move(server), serverRole);
        plan.add(std::move(m_plugin), std::move(plugin), pluginRole);
        return plan;
    }

    Planned<ConnectorVerb::Removal> removal() override {
        auto server = OpenCodeMCP::removed(m_config.bytes(), *m_config.document, receipt());
        if (!server)
            return nothingWritten(m_config.file, description(server.error()));
        ConnectorVerb::Removal plan;
        plan.add(std::move(m_config.file), *std::move(server), serverRole, receipt().created);
        // Its header is proof enough that the plugin is ours; the receipt is not asked.
        if (hasOurPlugin())
            plan.notes.push_back({m_plugin.label, say("this file was created when Wendlow "
                                                      "connected and was removed")});
        else if (isPersonsPlugin())
            plan.notes.push_back(
                {m_plugin.label, say("a file of this name is here and this build did not write "
                                     "it, and it was left as it is")});
        plan.files.push_back({.file = std::move(m_plugin),
                              .what = pluginRole.what,
                              .edited = hasOurPlugin(),
                              .after = std::nullopt,
                              .lost = {}});
        if (receipt().created.contains(Created::openCodePluginsDirectory))
            plan.afterwards = [&paths = m_paths] {
                return removeFolder(paths.pluginsDirectory, paths.hooksFile);
            };
        return plan;
    }

    bool isThisInstallations() const override {
        const bool pluginIsStale = hasOurPlugin() && pluginFinding().is<BlockFinding::Drifted>() &&
                                   OpenCodePlugin::runs(*m_plugin.bytes, m_paths.hookBinary);
        const JSONDocument* const contents = pluginIsStale ? m_config.contents() : nullptr;
        const auto entry = contents != nullptr ? OpenCodeMCP::node(*contents) : std::nullopt;
        return entry && OpenCodeMCP::statedCommand(*entry) == m_paths.mcpCommand() &&
               Disk::exists(m_paths.mcpBinary);
    }

private:
    bool isPersonsPlugin() const { return m_pluginOwnership == PluginOwnership::foreign; }
    bool hasOurPlugin() const { return m_pluginOwnership && !isPersonsPlugin(); }

    BlockFinding pluginFinding() const {
        if (!m_pluginOwnership)
            return {BlockFinding::FileAbsent{}};
        switch (*m_pluginOwnership) {
        case PluginOwnership::otherBuild:
            return {BlockFinding::Drifted{
                {say("the plugin file here is not the one this build writes")}}};
        case PluginOwnership::foreign:
            return {BlockFinding::Foreign{
                {say("a file of this name is here and this build did not write it")}}};
        case PluginOwnership::current:
            break;
        }
        return BlockFinding::from(
            Drift::reasons(m_paths.hookCommand(), m_paths.hookCommand(), m_paths.hookBinary));
    }

    /// What the configuration's other file says of our entry, which makes neither wrong.
    std::optional<Observation> switchedOffElsewhere() const {
        const ToolFile other = ToolFile::read(m_paths.otherServersFile(), ToolFile::Purpose::scan);
        const auto document =
            JSONText::scanWithTrivia(other.bytesOr("{}"), JSONDialect::jsonWithComments);
        const auto entry = document ? OpenCodeMCP::node(*document) : std::nullopt;
        if (!entry || !OpenCodeMCP::isSwitchedOff(*entry))
            return std::nullopt;
        return Observation{other.label, say("a Wendlow MCP entry in this file is switched off, "
                                            "and OpenCode reads this file too")};
    }

    /// Why no verb may plan for the configuration.
    Observations configRefusal() const {
        if (auto reason = m_config.refusal())
            return {*std::move(reason)};
        const auto reason = m_mcp.refusalReason(*m_config.document, receipt().created);
        return reason ? nothingWritten(m_config.file, *reason).error() : Observations();
    }

    /// What an installation leaves as it found it, and what it writes over.
    Observations planNotes(std::size_t commentsReplaced) const {
        Observations notes;
        const auto entry = OpenCodeMCP::node(*m_config.document);
        if (entry && OpenCodeMCP::isSwitchedOff(*entry))
            notes.push_back({m_config.file.label, OpenCodeMCP::switchedOffText()});
        if (commentsReplaced > 0)
            notes.push_back(
                {m_config.file.label,
                 say.plural(static_cast<std::int64_t>(commentsReplaced),
                            "{} comment line inside the Wendlow entry here was written over",
                            "{} comment lines inside the Wendlow entry here were written over",
                            commentsReplaced)});
        if (m_pluginOwnership == PluginOwnership::otherBuild)
            notes.push_back({m_plugin.label, say("the plugin file here was written by another "
                                                 "Wendlow build and was replaced")});
        return notes;
    }

    const OpenCodePaths& m_paths;
    const OpenCodeMCP& m_mcp;
    JSONFile m_config;
    ToolFile m_plugin;
    std::optional<PluginOwnership> m_pluginOwnership; ///< nothing where there is no such file
};

OpenCodeConnector::OpenCodeConnector(OpenCodePaths paths, ConnectorVerb::Surroundings surroundings)
    : ToolConnector({.identity = {.id = paths.tool,
                                  .name = "OpenCode",
                                  .detail = say("The OpenCode desktop app and terminal."),
                                  .symbol = "chevron.left.forwardslash.chevron.right"},
                     .directory = paths.configDirectory,
                     .shownBy = {},
                     .files = {paths.hooksFile, paths.serversFile},
                     .receiptFile = paths.receiptFile,
                     .hookBinary = {}},
                    std::move(surroundings)),
      m_paths(std::move(paths)), m_mcp(m_paths) {}

std::unique_ptr<ToolLook> OpenCodeConnector::look(ToolFile::Purpose purpose) const {
    return std::make_unique<Look>(*this, purpose);
}

ConnectorIdentity OpenCodeConnector::shownIdentity() const {
    ConnectorIdentity shown = identity();
    const auto writer = OpenCodeSessionStore::writer(m_paths.sessionDatabase());
    if (writer == OpenCodeSessionStore::Writer::locked)
        return shown; // another question would wait as long again
    if (isOldStore(writer))
        shown.detail = say("Update OpenCode and open it once to use it with Wendlow.");
    else if (OpenCodeSessionStore::isOpenCode1StillUsed(m_paths.sessionDatabase(),
                                                        surroundings().now()))
        shown.detail =
            say("OpenCode 1 is still being used on this Mac. Update it to use it with Wendlow.");
    return shown;
}

std::optional<Observation> OpenCodeConnector::standsInTheWay() const {
    const auto database = m_paths.sessionDatabase();
    using OpenCodeSessionStore::Writer;
    const auto writer = OpenCodeSessionStore::writer(database);
    if (writer == Writer::locked)
        return Observation{database.string(),
                           say("another program is keeping this session store to itself just now, "
                               "so that it cannot be told which OpenCode it is. Nothing was "
                               "written")};
    if (!isOldStore(writer))
        return std::nullopt;
    return Observation{database.string(),
                       say("this is OpenCode 1's session store; update OpenCode and open it once, "
                           "then tick it again. Nothing was written")};
}

} // namespace wendlow
