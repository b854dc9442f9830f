#include "Codex/CodexConnector.h"

#include "ConfigFile/Disk.h"
#include "ConfigFile/JSONText.h"
#include "JSONBlock.h"
#include "Say.h"

#include <algorithm>
#include <map>
#include <utility>

namespace wendlow {

ProjectReport CodexConnector::projects() const {
    const auto store = m_paths.sessionsDirectory();
    ProjectReport report{.source = store.string(), .projects = {}, .note = std::nullopt};
    std::map<std::string, FileDate> lastActivities; // by folder
    std::size_t unnamed = 0;
    for (const std::filesystem::path& file : Disk::filesBelow(store, ".jsonl")) {
        auto cwd = sessionCwd(file);
        if (!cwd) {
            ++unnamed;
            continue;
        }
        FileDate& newest = lastActivities.try_emplace(*std::move(cwd), distantPast).first->second;
        newest = std::max(newest, modificationDate(file).value_or(distantPast));
    }
    for (const auto& [folder, lastActivity] : lastActivities)
        report.projects.push_back(
            {.path = folder,
             .lastActivity = lastActivity,
             .memory = ConnectorMemoryFile::stat(std::filesystem::path(folder) / "AGENTS.md")});
    report.arrange();
    if (report.projects.empty() && unnamed > 0)
        report.note =
            say.plural(static_cast<std::int64_t>(unnamed), "{} session file records no project cwd",
                       "{} session files record no project cwd", unnamed);
    return report;
}

MemoryFileReport CodexConnector::memoryFiles() const {
    return MemoryFileReport::of({m_paths.globalMemoryFile(), m_paths.homeAgentsFile});
}

std::optional<std::string> CodexConnector::sessionCwd(const std::filesystem::path& file) {
    constexpr std::size_t longestRecord = 0x40000;
    const auto line = Disk::firstLine(file, longestRecord);
    if (!line || !*line)
        return std::nullopt;
    const auto record = JSONText::scanWithTrivia(**line, JSONDialect::json);
    if (!record || JSONBlock::text(record->root(), "type") != "session_meta")
        return std::nullopt;
    const auto payload = record->root().member("payload");
    const auto cwd = payload ? JSONBlock::text(*payload, "cwd") : std::nullopt;
    return cwd ? std::optional<std::string>(*cwd) : std::nullopt;
}

} // namespace wendlow
