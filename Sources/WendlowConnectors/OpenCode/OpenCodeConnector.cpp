#include "OpenCode/OpenCodeConnector.h"

#include "ConfigFile/Backup.h"
#include "ConfigFile/Disk.h"
#include "Drift.h"
#include "JSONFile.h"
#include "OpenCode/OpenCodePlugin.h"
#include "OpenCode/OpenCodeSessionStore.h"
#include "ScanJoin.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

#include <fmt/format.h>

namespace wendlow {

namespace {

constexpr std::string_view language = "JSON with comments";
constexpr std::string_view serverWhat = "MCP server entry";
constexpr std::string_view pluginWhat = "plugin";

/// Whether nothing is left in a configuration, comments apart.
bool isEmptyObject(std::string_view bytes) {
    const auto document = JSONText::scanWithTrivia(bytes, JSONDialect::jsonWithComments);
    return document && document->root().isObject() && document->root().count() == 0;
}

/// Whether the store was last shaped by an OpenCode that does not know our plugin's hooks. One that
/// does not answer counts as such.
bool isOldStore(const std::filesystem::path& database) {
    const auto writer = OpenCodeSessionStore::writer(database);
    return writer && *writer != OpenCodeSessionStore::Writer::opencode2;
}

/// The plugins folder while something is installed into it: made where it is not there, since a
/// transaction makes files only, and taken away again unless it is kept.
class PluginsFolder {
public:
    explicit PluginsFolder(const std::filesystem::path& path)
        : m_path(path), m_isNew(!Disk::exists(path)) {
        if (m_isNew)
            m_made = Disk::createDirectories(path, 0700);
    }
    ~PluginsFolder() {
        // One that somebody has put something into since is not empty, and stays.
        if (m_isNew && !m_isKept)
            std::ignore = Disk::removeFolder(m_path);
    }
    PluginsFolder(const PluginsFolder&) = delete;
    PluginsFolder& operator=(const PluginsFolder&) = delete;

    bool isNew() const { return m_isNew; }
    const Disk::Result<void>& made() const { return m_made; }
    void keep() { m_isKept = true; }

private:
    std::filesystem::path m_path;
    bool m_isNew;
    bool m_isKept = false;
    Disk::Result<void> m_made;
};

/// Takes the emptied plugins folder away, or says why it stays.
Observations removeFolder(const std::filesystem::path& folder,
                          const std::filesystem::path& plugin) {
    const auto names = Disk::names(folder);
    const auto say = [&](std::string text) {
        return Observations{{folder.string(), std::move(text)}};
    };
    const auto isCopy = [&](const std::string& name) { return Backup::isCopy(name, plugin); };
    if (!names)
        return {};
    if (!std::ranges::all_of(*names, isCopy))
        return say("this folder holds other files and remains");
    if (!names->empty())
        return say("this folder holds the copy of the plugin that was made here first and remains");
    if (!Disk::removeFolder(folder))
        return {};
    return say("this folder was created when Wendlow connected and was removed");
}

} // namespace

/// Both files as they are, and what of them is ours.
struct OpenCodeConnector::Look {
    Look(const OpenCodeConnector& openCode, ToolFile::Purpose purpose)
        : config(openCode.m_paths.configFile, purpose, openCode.m_mcp),
          plugin(ToolFile::read(openCode.m_paths.pluginFile, purpose)),
          receipt(ReceiptStore{openCode.m_paths.receiptFile}.read()) {
        if (plugin.bytes)
            pluginOwnership = OpenCodePlugin::ownership(*plugin.bytes, openCode.m_paths.hookBinary);
    }

    bool hasOurPlugin() const {
        return pluginOwnership && *pluginOwnership != PluginOwnership::foreign;
    }

    JSONFile config;
    ToolFile plugin;
    ConnectorReceipt receipt;
    std::optional<PluginOwnership> pluginOwnership; ///< nothing where there is no such file
};

OpenCodeConnector::OpenCodeConnector(OpenCodePaths paths, ConnectorVerb::Surroundings surroundings)
    : m_paths(std::move(paths)), m_surroundings(std::move(surroundings)), m_mcp(m_paths) {}

ConnectorIdentity OpenCodeConnector::identity() const {
    return {.id = "opencode",
            .name = "OpenCode",
            .detail = "The OpenCode desktop app and terminal.",
            .symbol = "chevron.left.forwardslash.chevron.right"};
}

/// The identity with what there is to say of the OpenCode in use.
ConnectorIdentity OpenCodeConnector::shownIdentity() const {
    ConnectorIdentity shown = identity();
    if (isOldStore(m_paths.sessionDatabase()))
        shown.detail = "Update OpenCode and open it once to use it with Wendlow.";
    else if (OpenCodeSessionStore::isOpenCode1StillUsed(m_paths.sessionDatabase(),
                                                        m_surroundings.now()))
        shown.detail =
            "OpenCode 1 is still being used on this Mac. Update it to use it with Wendlow.";
    return shown;
}

bool OpenCodeConnector::toolIsHere() const {
    return Disk::isDirectory(m_paths.configDirectory);
}

ScanReport OpenCodeConnector::scan() const {
    if (!toolIsHere())
        return ScanJoin::notFound(shownIdentity(), m_paths.configDirectory);
    const Look here(*this, ToolFile::Purpose::scan);
    return ScanJoin::report(
        shownIdentity(),
        {{.finding = m_mcp.find(here.config.file.view(), here.receipt.created),
          .subject = {.path = here.config.file.label,
                      .what = serverWhat,
                      .command = m_paths.mcpCommand(),
                      .language = language}},
         {.finding = pluginFinding(here),
          .subject = {
              .path = here.plugin.label, .what = pluginWhat, .command = m_paths.hookCommand()}}});
}

ConnectorOutcome OpenCodeConnector::install() const {
    if (isOldStore(m_paths.sessionDatabase()))
        return ConnectorVerb::refused(
            {{m_paths.sessionDatabase().string(),
              "this is OpenCode 1's session store; update OpenCode and open it once, then tick it "
              "again. Nothing was written"}});
    if (!toolIsHere())
        return ConnectorVerb::refused(
            {{m_paths.configDirectory.string(),
              "there is no OpenCode configuration here, so nothing was written"}});
    Look here(*this, ToolFile::Purpose::plan);
    if (auto refusal = configRefusal(here))
        return *std::move(refusal);
    if (auto refusal = here.plugin.refusal(std::nullopt))
        return ConnectorVerb::refused({*std::move(refusal)});
    if (here.pluginOwnership == PluginOwnership::foreign)
        return ConnectorVerb::refused(
            {{here.plugin.label, "a file of this name is here and this build did not write it, so "
                                 "nothing was written"}});

    auto server = m_mcp.installed(here.config.bytes(), *here.config.document);
    if (!server)
        return ConnectorVerb::refused(
            ConnectorVerb::nothingWritten(here.config.file, description(server.error())));
    InstalledBlock plugin;
    if (here.pluginOwnership != PluginOwnership::current)
        plugin.bytes = OpenCodePlugin::source(m_paths.hookBinary);
    PluginsFolder folder(m_paths.pluginsDirectory);
    if (!folder.made())
        return ConnectorVerb::refused({{m_paths.pluginsDirectory.string(),
                                        fmt::format("this folder was not made, so nothing was "
                                                    "written — {}",
                                                    Disk::words(folder.made().error()))}});

    ConnectorVerb::Installation installation;
    installation.planNotes = planNotes(here, server->commentsReplaced);
    if (!OpenCodeMCP::node(*here.config.document))
        installation.created.insert(Created::openCodeMCPEntry);
    if (OpenCodeMCP::isAdoptableShell(*here.config.document))
        installation.adopted.insert(Adopted::openCodeMCPEntryShell);
    if (folder.isNew())
        installation.created.insert(Created::openCodePluginsDirectory);
    // Nothing looks at the document from here on: the bytes it points into are moved.
    installation.add(std::move(here.config.file), *std::move(server), Created::openCodeConfigFile,
                     serverWhat);
    installation.add(std::move(here.plugin), std::move(plugin), Created::openCodePluginFile,
                     pluginWhat);
    auto outcome = ConnectorVerb::install(std::move(installation),
                                          ReceiptStore{m_paths.receiptFile}, m_surroundings);
    if (outcome.result == ConnectorOutcome::Result::changed)
        folder.keep();
    return outcome;
}

ConnectorOutcome OpenCodeConnector::remove() const {
    Look here(*this, ToolFile::Purpose::plan);
    if (auto refusal = configRefusal(here)) {
        if (here.hasOurPlugin())
            refusal->observations.push_back(
                {here.plugin.label,
                 fmt::format("the Wendlow plugin here is still in place and still runs {}",
                             m_paths.hookCommand())});
        return *std::move(refusal);
    }
    if (auto refusal = here.plugin.refusal(std::nullopt))
        return ConnectorVerb::refused({*std::move(refusal)});
    const std::set<Created>& created = here.receipt.created;
    auto server = OpenCodeMCP::removed(here.config.bytes(), *here.config.document, here.receipt);
    if (!server)
        return ConnectorVerb::refused(
            ConnectorVerb::nothingWritten(here.config.file, description(server.error())));

    // Nothing looks at the document from here on: the bytes it points into are moved.
    std::vector<PlannedFile> files;
    Observations notes;
    files.push_back(ConnectorVerb::planRemoval(std::move(here.config.file), *std::move(server),
                                               created.contains(Created::openCodeConfigFile),
                                               isEmptyObject, notes));
    files.back().what = serverWhat;
    // Its header is proof enough that the plugin is ours; the receipt is not asked.
    if (here.hasOurPlugin())
        notes.push_back(
            {here.plugin.label, "this file was created when Wendlow connected and was removed"});
    else if (here.pluginOwnership)
        notes.push_back({here.plugin.label, "a file of this name is here and this build did not "
                                            "write it, and it was left as it is"});
    files.push_back({.file = std::move(here.plugin),
                     .what = pluginWhat,
                     .edited = here.hasOurPlugin(),
                     .after = std::nullopt});
    const auto removeOurFolder = [&] {
        return created.contains(Created::openCodePluginsDirectory)
                   ? removeFolder(m_paths.pluginsDirectory, m_paths.pluginFile)
                   : Observations();
    };
    return ConnectorVerb::remove(std::move(files), std::move(notes),
                                 ReceiptStore{m_paths.receiptFile}, m_surroundings,
                                 removeOurFolder);
}

bool OpenCodeConnector::staleOwnWiring() const {
    if (isOldStore(m_paths.sessionDatabase()))
        return false;
    const Look here(*this, ToolFile::Purpose::scan);
    const bool pluginIsStale = here.hasOurPlugin() &&
                               pluginFinding(here).is<BlockFinding::Drifted>() &&
                               OpenCodePlugin::runs(*here.plugin.bytes, m_paths.hookBinary);
    if (!pluginIsStale || !here.config.file.bytes)
        return false;
    const auto document =
        JSONText::scanWithTrivia(*here.config.file.bytes, JSONDialect::jsonWithComments);
    const auto entry = document ? OpenCodeMCP::node(*document) : std::nullopt;
    return entry && OpenCodeMCP::statedCommand(*entry) == m_paths.mcpCommand() &&
           Disk::exists(m_paths.mcpBinary);
}

BlockFinding OpenCodeConnector::pluginFinding(const Look& here) const {
    if (!here.pluginOwnership)
        return {BlockFinding::FileAbsent{}};
    switch (*here.pluginOwnership) {
    case PluginOwnership::otherBuild:
        return {BlockFinding::Drifted{{"the plugin file here is not the one this build writes"}}};
    case PluginOwnership::foreign:
        return {
            BlockFinding::Foreign{{"a file of this name is here and this build did not write it"}}};
    case PluginOwnership::current:
        break;
    }
    return BlockFinding::from(
        Drift::reasons(m_paths.hookCommand(), m_paths.hookCommand(), m_paths.hookBinary));
}

/// Why no verb may plan for the configuration.
std::optional<ConnectorOutcome> OpenCodeConnector::configRefusal(const Look& here) const {
    if (auto refusal = here.config.refusal(language))
        return ConnectorVerb::refused({*std::move(refusal)});
    if (const auto reason = m_mcp.refusalReason(*here.config.document, here.receipt.created))
        return ConnectorVerb::refused(ConnectorVerb::nothingWritten(here.config.file, *reason));
    return std::nullopt;
}

/// What an installation leaves as it found it, and what it writes over.
Observations OpenCodeConnector::planNotes(const Look& here, std::size_t commentsReplaced) {
    Observations notes;
    const auto entry = OpenCodeMCP::node(*here.config.document);
    if (entry && OpenCodeMCP::isSwitchedOff(*entry))
        notes.push_back({here.config.file.label, std::string(OpenCodeMCP::switchedOffText)});
    if (commentsReplaced > 0)
        notes.push_back({here.config.file.label,
                         fmt::format("{} comment {} inside the Wendlow entry here {} written over",
                                     commentsReplaced, commentsReplaced == 1 ? "line" : "lines",
                                     commentsReplaced == 1 ? "was" : "were")});
    if (here.pluginOwnership == PluginOwnership::otherBuild)
        notes.push_back({here.plugin.label, "the plugin file here was written by another Wendlow "
                                            "build and was replaced"});
    return notes;
}

} // namespace wendlow
