#include "ClaudeCode/ClaudeCodeConnector.h"

#include "ConfigFile/Disk.h"
#include "Drift.h"
#include "HookLists.h"
#include "JSONFile.h"
#include "OwnedNames.h"
#include "Say.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace wendlow {

namespace {

constexpr ConnectorVerb::FileRole hooksRole{.file = Created::settingsFile};
constexpr ConnectorVerb::FileRole serversRole{.file = Created::mcpFile, .born = 0600};

} // namespace

class ClaudeCodeConnector::Look final : public ToolLook {
public:
    Look(const ClaudeCodeConnector& claude, ToolFile::Purpose purpose)
        : ToolLook(claude.m_paths.receiptFile), m_paths(claude.m_paths), m_hook(claude.m_hook),
          m_mcp(claude.m_mcp), m_userFile(m_paths.userFile()),
          m_hooks(m_paths.hooksFile, purpose, m_hook), m_servers(m_userFile, purpose, m_mcp) {}

    ScanJoin::Findings findings() const override {
        ScanJoin::Findings found{{{m_hooks.find(m_hook),
                                   {.path = m_hooks.file.label,
                                    .what = OurPart::hookEntry,
                                    .command = m_paths.hookCommand()}},
                                  {m_servers.find(m_mcp),
                                   {.path = m_servers.file.label,
                                    .what = OurPart::serverEntry,
                                    .command = m_paths.mcpCommand()}}}};
        found.more =
            obstacles(found.blocks[0].finding.holdsOurs(), found.blocks[1].finding.holdsOurs());
        return found;
    }

    Observations refusal(Verb verb) const override {
        return verb == Verb::install ? all({m_hooks.refusal(), m_servers.refusal()})
                                     : all({m_hooks.removalRefusal(), m_servers.removalRefusal()});
    }

    Planned<ConnectorVerb::Installation> installation() override {
        // That it cannot be made is found again by the commit, which says so in words.
        auto folder = std::make_unique<NewFolder>(m_paths.configDirectory);
        auto hooks = m_hook.installed(m_hooks.bytes(), *m_hooks.document);
        if (!hooks)
            return refused(m_hooks.file, description(hooks.error()));
        auto server = m_mcp.installed(m_servers.bytes(), *m_servers.document);
        if (!server)
            return refused(m_servers.file, description(server.error()));
        ConnectorVerb::Installation plan;
        plan.folder = std::move(folder);
        plan.add(std::move(m_hooks.file), *std::move(hooks), hooksRole);
        plan.add(std::move(m_servers.file), *std::move(server), serversRole);
        return plan;
    }

    Planned<ConnectorVerb::Removal> removal() override {
        const std::set<Created>& created = receipt().created;
        auto hooks = m_hooks.removed(m_hook, created);
        if (!hooks)
            return refused(m_hooks.file, description(hooks.error()));
        auto server = m_servers.removed(m_mcp, created);
        if (!server)
            return refused(m_servers.file, description(server.error()));
        ConnectorVerb::Removal plan;
        plan.add(std::move(m_hooks.file), *std::move(hooks), hooksRole, created);
        // The file that is read in the other's place is never ours.
        auto createdHere = created;
        if (isReplaced())
            createdHere.erase(Created::mcpFile);
        plan.add(std::move(m_servers.file), *std::move(server), serversRole, createdHere);
        if (isReplaced())
            removeUnread(plan, created);
        return plan;
    }

    bool isThisInstallations() const override {
        const JSONDocument* const contents = m_hooks.contents();
        return contents != nullptr && Disk::exists(m_paths.hookBinary) &&
               HookLists::allRun(m_hook.sites(contents->root()), m_paths.hookBinary);
    }

private:
    /// What in the settings keeps entries of ours from working, which makes none of them wrong.
    Observations obstacles(bool hooksAreThere, bool serverIsThere) const {
        Observations said;
        const JSONDocument* const settings = m_hooks.contents();
        if (settings == nullptr)
            return said;
        const auto disabled = settings->root().member("disableAllHooks");
        if (hooksAreThere && disabled && disabled->boolean() == true)
            said.push_back({m_hooks.file.label,
                            say("disableAllHooks is true in this file, so Claude Code runs no "
                                "hook")});
        const auto denied = settings->root().member("deniedMcpServers");
        const auto isOurs = [](const JSONNode& server) {
            return JSONBlock::text(server, "serverName") == OwnedNames::server;
        };
        if (serverIsThere && denied && std::ranges::any_of(denied->elements(), isOurs))
            said.push_back(
                {m_hooks.file.label, say("deniedMcpServers in this file names the Wendlow server, "
                                         "so Claude Code does not start it")});
        if (hooksAreThere)
            append(said, Drift::unrunnable(m_paths.hookBinary));
        return said;
    }

    /// Whether another file is read in place of the usual one.
    bool isReplaced() const { return m_userFile != m_paths.serversFile; }

    /// An entry of ours in the file that is not read any more goes too, where that can be.
    void removeUnread(ConnectorVerb::Removal& plan, const std::set<Created>& created) const {
        JSONFile unread(m_paths.serversFile, ToolFile::Purpose::plan, m_mcp);
        const auto entry = unread.document && unread.file.bytes
                               ? MCPServerEntry::node(*unread.document)
                               : std::nullopt;
        if (!entry || !m_mcp.personsPart(*entry, unread.bytes()).isNothing())
            return;
        if (auto server = unread.removed(m_mcp, created))
            plan.add(std::move(unread.file), *std::move(server), serversRole, created);
    }

    const ClaudeCodePaths& m_paths;
    const ClaudeCodeHook& m_hook;
    const ClaudeCodeMCP& m_mcp;
    std::filesystem::path m_userFile;
    JSONFile m_hooks;
    JSONFile m_servers;
};

ClaudeCodeConnector::ClaudeCodeConnector(ClaudeCodePaths paths,
                                         ConnectorVerb::Surroundings surroundings)
    : ToolConnector(
          {.identity = {.id = paths.tool,
                        .name = "Claude Code",
                        .detail = say("The Claude Code CLI and Claude Code in the desktop app."),
                        .symbol = "terminal"},
           .directory = paths.configDirectory,
           .shownBy = {paths.serversFile},
           .files = {paths.hooksFile, paths.serversFile, paths.otherUserFile()},
           .receiptFile = paths.receiptFile,
           .hookBinary = paths.hookBinary},
          std::move(surroundings)),
      m_paths(std::move(paths)), m_hook(m_paths), m_mcp(m_paths) {}

std::unique_ptr<ToolLook> ClaudeCodeConnector::look(ToolFile::Purpose purpose) const {
    return std::make_unique<Look>(*this, purpose);
}

} // namespace wendlow
