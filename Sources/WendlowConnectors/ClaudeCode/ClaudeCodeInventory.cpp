#include "ClaudeCode/ClaudeCodeConnector.h"

#include "ConfigFile/Disk.h"
#include "Say.h"

#include <algorithm>
#include <span>
#include <utility>

#include <fmt/ranges.h>

namespace wendlow {

namespace {

using Path = std::filesystem::path;

FileDate lastActivity(const Path& folder) {
    std::optional<FileDate> newest;
    for (const std::string& name : Disk::names(folder).value_or(std::vector<std::string>{}))
        newest = std::max(newest, modificationDate(folder / name));
    if (!newest)
        newest = modificationDate(folder);
    return newest.value_or(distantPast);
}

std::vector<std::string> split(std::string_view name) {
    std::vector<std::string> pieces(1);
    for (const char byte : name)
        if (byte == '-')
            pieces.emplace_back();
        else
            pieces.back() += byte;
    return pieces;
}

/// Looks for an existing folder among all ways to read the hyphens in `pending` and `remaining`
/// below `folder`, depth first. Each existing folder is entered once, so that the work is bounded
/// by what is on the disk.
std::optional<std::string> resolve(const std::string& folder, const std::string& pending,
                                   std::span<const std::string> remaining) {
    const std::string candidate = folder + "/" + pending;
    if (remaining.empty())
        return Disk::isDirectory(candidate) ? std::optional(candidate) : std::nullopt;
    const auto rest = remaining.subspan(1);
    // An empty piece names no folder. Taken as one, a run of hyphens, as a name in another script
    // leaves it, would be tried in more ways than anybody can wait for.
    if (!pending.empty() && Disk::isDirectory(candidate))
        if (auto found = resolve(candidate, remaining.front(), rest))
            return found;
    return resolve(folder, pending + "-" + remaining.front(), rest);
}

} // namespace

ProjectReport ClaudeCodeConnector::projects() const {
    const Path store = m_paths.projectsDirectory();
    ProjectReport report{.source = store.string(), .projects = {}, .note = std::nullopt};
    for (const std::string& name : Disk::names(store).value_or(std::vector<std::string>{})) {
        const Path folder = store / name;
        if (Disk::isDirectory(folder))
            report.projects.push_back(
                {.path = decodeProjectPath(name),
                 .lastActivity = lastActivity(folder),
                 .memory = ConnectorMemoryFile::stat(folder / "memory/MEMORY.md")});
    }
    report.arrange();
    return report;
}

MemoryFileReport ClaudeCodeConnector::memoryFiles() const {
    std::vector<Path> paths{m_paths.globalMemoryFile()};
    std::ranges::move(ConnectorMemoryFile::markdown(m_paths.memoryDirectory()),
                      std::back_inserter(paths));
    return MemoryFileReport::of(paths);
}

std::string ClaudeCodeConnector::decodeProjectPath(std::string_view name) {
    const std::vector<std::string> all = split(name);
    std::span<const std::string> pieces(all);
    if (pieces.size() > 1 && pieces.front().empty())
        pieces = pieces.subspan(1);
    if (auto found = resolve("", pieces.front(), pieces.subspan(1)))
        return *std::move(found);
    return say("{} (decoded path not verified on disk)",
               fmt::format("/{}", fmt::join(pieces, "/")));
}

} // namespace wendlow
