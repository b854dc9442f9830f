#include "ClaudeCode/ClaudeCodeConnector.h"

#include "ConfigFile/Disk.h"
#include "HookLists.h"
#include "JSONFile.h"

#include <tuple>
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
          m_mcp(claude.m_mcp), m_hooks(m_paths.hooksFile, purpose, m_hook),
          m_servers(m_paths.serversFile, purpose, m_mcp) {}

    ScanJoin::Findings findings() const override {
        return {
            {{m_hooks.find(m_hook),
              {.path = m_hooks.file.label, .what = "hook entry", .command = m_paths.hookCommand()}},
             {m_servers.find(m_mcp),
              {.path = m_servers.file.label,
               .what = "MCP server entry",
               .command = m_paths.mcpCommand()}}}};
    }

    Observations refusal(Verb) const override {
        return all({m_hooks.refusal(), m_servers.refusal()});
    }

    Planned<ConnectorVerb::Installation> installation() override {
        // That it cannot be made is found again by the commit, which says so in words.
        std::ignore = Disk::createDirectories(m_paths.configDirectory, 0700);
        auto hooks = m_hook.installed(m_hooks.bytes(), *m_hooks.document);
        if (!hooks)
            return refused(m_hooks.file, description(hooks.error()));
        auto server = m_mcp.installed(m_servers.bytes(), *m_servers.document);
        if (!server)
            return refused(m_servers.file, description(server.error()));
        ConnectorVerb::Installation plan;
        plan.add(std::move(m_hooks.file), *std::move(hooks), hooksRole);
        plan.add(std::move(m_servers.file), *std::move(server), serversRole);
        return plan;
    }

    Planned<ConnectorVerb::Removal> removal() override {
        const std::set<Created>& created = receipt().created;
        auto hooks = m_hook.removed(m_hooks.bytes(), *m_hooks.document, created);
        if (!hooks)
            return refused(m_hooks.file, description(hooks.error()));
        auto server = m_mcp.removed(m_servers.bytes(), *m_servers.document, created);
        if (!server)
            return refused(m_servers.file, description(server.error()));
        ConnectorVerb::Removal plan;
        plan.add(std::move(m_hooks.file), *std::move(hooks), hooksRole, created);
        plan.add(std::move(m_servers.file), *std::move(server), serversRole, created);
        return plan;
    }

    bool isThisInstallations() const override {
        const JSONDocument* const contents = m_hooks.contents();
        return contents != nullptr && Disk::exists(m_paths.hookBinary) &&
               HookLists::allRun(m_hook.sites(contents->root()), m_paths.hookBinary);
    }

private:
    const ClaudeCodePaths& m_paths;
    const ClaudeCodeHook& m_hook;
    const ClaudeCodeMCP& m_mcp;
    JSONFile m_hooks;
    JSONFile m_servers;
};

ClaudeCodeConnector::ClaudeCodeConnector(ClaudeCodePaths paths,
                                         ConnectorVerb::Surroundings surroundings)
    : ToolConnector(
          {.identity = {.id = paths.tool,
                        .name = "Claude Code",
                        .detail = "The Claude Code CLI and Claude Code in the desktop app.",
                        .symbol = "terminal"},
           .directory = paths.configDirectory,
           .shownBy = {paths.serversFile},
           .receiptFile = paths.receiptFile,
           .hookBinary = paths.hookBinary},
          std::move(surroundings)),
      m_paths(std::move(paths)), m_hook(m_paths), m_mcp(m_paths) {}

std::unique_ptr<ToolLook> ClaudeCodeConnector::look(ToolFile::Purpose purpose) const {
    return std::make_unique<Look>(*this, purpose);
}

} // namespace wendlow
