#include "Cursor/CursorConnector.h"

#include "ConfigFile/Disk.h"
#include "ConfigFile/JSONBytes.h"
#include "Say.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <map>
#include <utility>

namespace wendlow {

namespace {

using Path = std::filesystem::path;

/// The newest date among the folder and what lies directly in it. Links are not followed: what they
/// lead to is no activity here.
FileDate lastActivity(const Path& folder) {
    FileDate newest = modificationDate(folder).value_or(distantPast);
    for (const std::string& name : Disk::names(folder).value_or(std::vector<std::string>{}))
        newest = std::max(
            newest, modificationDate(folder / name, Links::notFollowed).value_or(distantPast));
    return newest;
}

/// `text` with each %XX made into its byte; nothing where a `%` begins none.
std::optional<std::string> percentDecoded(std::string_view text) {
    std::string decoded;
    while (!text.empty()) {
        if (text.front() != '%') {
            decoded += text.front();
            text.remove_prefix(1);
            continue;
        }
        unsigned char byte = 0;
        const std::string_view digits = text.substr(1, 2);
        const char* const begin = digits.data();
        const char* const end = begin + digits.size();
        if (digits.size() != 2 || std::from_chars(begin, end, byte, 16).ptr != end)
            return std::nullopt;
        decoded += static_cast<char>(byte);
        text.remove_prefix(3);
    }
    return decoded;
}

/// The path of a URL of the scheme "file", without a slash at its end.
std::optional<std::string> filePath(std::string_view url) {
    constexpr std::string_view scheme = "file:";
    if (!url.starts_with(scheme))
        return std::nullopt;
    url.remove_prefix(scheme.size());
    url = url.substr(0, url.find_first_of("?#"));
    if (url.starts_with("//")) // then a host, which is nobody's concern
        url = url.substr(std::min(url.find('/', 2), url.size()));
    auto path = percentDecoded(url);
    if (!path || !path->starts_with('/') || path->contains('\0') || !JSONBytes::isUTF8(*path))
        return std::nullopt;
    if (path->size() > 1 && path->ends_with('/'))
        path->pop_back();
    return path;
}

std::string undecodedNote(std::size_t count) {
    return say.plural(static_cast<std::int64_t>(count),
                      "{} workspace entry names no project folder and was not decoded",
                      "{} workspace entries name no project folder and were not decoded", count);
}

} // namespace

ProjectReport CursorConnector::projects() const {
    const Path& store = m_paths.workspaceStorageDirectory;
    ProjectReport report{.source = store.string(), .projects = {}, .note = std::nullopt};
    std::multimap<FileDate, std::string, std::greater<>> folders; // equal dates stay by name
    std::size_t undecoded = 0;
    for (const std::string& name : Disk::names(store).value_or(std::vector<std::string>{})) {
        const Path folder = store / name;
        if (!Disk::isDirectory(folder))
            continue;
        if (auto path = folderPath(folder / "workspace.json"))
            folders.emplace(lastActivity(folder), *std::move(path));
        else
            ++undecoded;
    }
    for (auto& [date, path] : folders)
        report.projects.push_back(
            {.path = std::move(path), .lastActivity = date, .memory = std::nullopt});
    if (undecoded > 0)
        report.note = undecodedNote(undecoded);
    else if (report.projects.empty())
        report.note = say("no workspace store found");
    return report;
}

MemoryFileReport CursorConnector::memoryFiles() const {
    return MemoryFileReport::of(ConnectorMemoryFile::markdown(m_paths.rulesDirectory()));
}

std::optional<std::string> CursorConnector::folderPath(const Path& workspaceFile) {
    const auto bytes = Disk::read(workspaceFile);
    if (!bytes || !*bytes)
        return std::nullopt;
    const auto document = JSONText::scanWithTrivia(**bytes, JSONDialect::json);
    const auto folder = document ? JSONBlock::text(document->root(), "folder") : std::nullopt;
    return folder ? filePath(*folder) : std::nullopt;
}

} // namespace wendlow
