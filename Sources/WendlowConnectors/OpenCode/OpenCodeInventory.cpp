#include "OpenCode/OpenCodeInventory.h"

#include "ConfigFile/Disk.h"
#include "OpenCode/OpenCodeConnector.h"
#include "OpenCode/OpenCodeSessionStore.h"
#include "Say.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

namespace wendlow {

namespace {

/// In UTC, so that a note says the same in every time zone.
std::string day(FileDate date) {
    const std::chrono::year_month_day day(std::chrono::floor<std::chrono::days>(date));
    return fmt::format("{:04}-{:02}-{:02}", static_cast<int>(day.year()),
                       static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()));
}

/// The day of what was modified last directly in a folder.
std::optional<std::string> newestChildDay(const std::filesystem::path& folder) {
    std::optional<FileDate> newest;
    for (const std::string& name : Disk::names(folder).value_or(std::vector<std::string>()))
        newest = std::max(newest, modificationDate(folder / name));
    return newest.transform(day);
}

std::optional<std::string> note(const OpenCodeSessionStore::Decoded& decoded) {
    if (decoded.skipped > 0)
        return say.plural(static_cast<std::int64_t>(decoded.skipped),
                          "{} session row records no decodable project directory",
                          "{} session rows record no decodable project directory", decoded.skipped);
    if (decoded.sightings.empty())
        return say("the session store records no projects yet");
    return std::nullopt;
}

ProjectReport databaseReport(const OpenCodePaths& paths) {
    const std::string database = paths.sessionDatabase().string();
    ProjectReport report{.source = database, .projects = {}, .note = std::nullopt};
    auto decoded = OpenCodeSessionStore::read(database);
    if (!decoded) {
        const auto latest = newestChildDay(paths.dataDirectory);
        const std::string& reason = decoded.error().reason;
        report.note =
            latest ? say("session store present ({}, latest {}) — its database did not answer: {}",
                         database, *latest, reason)
                   : say("session store present ({}) — its database did not answer: {}", database,
                         reason);
        return report;
    }
    report.note = note(*decoded);
    for (auto& [directory, lastActivity] : decoded->sightings)
        report.projects.push_back(
            {.path = std::move(directory), .lastActivity = lastActivity, .memory = std::nullopt});
    return report;
}

} // namespace

ProjectReport OpenCodeInventory::projects(const OpenCodePaths& paths) {
    if (Disk::exists(paths.sessionDatabase()))
        return databaseReport(paths);
    const auto storage = paths.dataDirectory / "storage";
    return {.source = paths.dataDirectory.string(),
            .projects = {},
            .note = Disk::isDirectory(storage)
                        ? say("legacy JSON session store present ({}) — a pre-1.x layout this "
                              "connector does not decode",
                              storage.string())
                        : say("no session store found")};
}

MemoryFileReport OpenCodeInventory::memoryFiles(const OpenCodePaths& paths) {
    return MemoryFileReport::of({paths.configAgentsFile(), paths.homeAgentsFile});
}

ProjectReport OpenCodeConnector::projects() const {
    return OpenCodeInventory::projects(m_paths);
}

MemoryFileReport OpenCodeConnector::memoryFiles() const {
    return OpenCodeInventory::memoryFiles(m_paths);
}

} // namespace wendlow
