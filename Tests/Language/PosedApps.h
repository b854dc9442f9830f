#pragma once

#include "ConnectedAppsModel.h"
#include "MockConnector.h"
#include "ToolTiles.h"

#include <chrono>
#include <memory>

namespace wendlow::testing {

/// AI apps of every kind, made up, and a pane over them.
class PosedApps {
public:
    PosedApps() {
        FileDate day = std::chrono::sys_days(std::chrono::year(2026) / 11 / 19);
        const ConnectorMemoryFile notes{"/home/mara/.claude/notes.md", 2'100, day};
        ProjectReport projects{"/home/mara/.claude/projects", {}, {}};
        for (int at = 1; at <= 12; ++at)
            projects.projects.push_back({"/home/mara/work/p" + std::to_string(at), day, {}});
        projects.projects.front().memory = notes;
        projects.projects.back().lastActivity = distantPast;
        const Observations lines{{"/home/mara/.claude.json", "dolor sit amet"}};
        const auto tool = [this](const char* id, const char* name, MockConnector::Script script) {
            connectors.push_back(std::make_shared<MockConnector>(
                ConnectorIdentity{id, name, "Lorem ipsum", "terminal"}, std::move(script)));
        };
        tool("claude-code", "Claude Code",
             {.state = ConnectorState::connected,
              .observations = lines,
              .backups = {"/home/mara/.claude.json.copy"},
              .projectReport = projects,
              .memoryFileReport = {{notes, {"/home/mara/.claude/bare.md", 0, {}}}}});
        tool("codex", "Codex", {.observations = lines, .refuses = true});
        tool("cursor", "Cursor", {.state = ConnectorState::drifted, .observations = lines});
        tool("opencode", "OpenCode", {.observations = lines, .verbsChangeNothing = true});
        tool("claude", "Claude", {.state = ConnectorState::notFound});
        ConnectedAppsModel::Surroundings around;
        around.home = "/home/mara";
        around.copy = [](const QString&) {};
        around.now = [day] { return day; };
        around.imageLoads = [](const std::string& asset) {
            return ToolTiles::has(QString::fromStdString(asset));
        };
        model =
            std::make_unique<ConnectedAppsModel>(connectors, "/opt/wendlow-mcp", std::move(around));
    }

    Connectors::List connectors;
    std::unique_ptr<ConnectedAppsModel> model;
};

} // namespace wendlow::testing
