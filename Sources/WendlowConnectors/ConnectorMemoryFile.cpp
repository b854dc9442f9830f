#include "ConnectorTypes.h"

#include "ConfigFile/Disk.h"
#include "Say.h"

#include <algorithm>
#include <tuple>

#include <sys/stat.h>

namespace wendlow {

namespace {

FileDate date(const timespec& time) {
    return FileDate(std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec));
}

bool isMarkdown(const std::filesystem::path& name) {
    std::string extension = name.extension().string();
    for (char& byte : extension)
        if (byte >= 'A' && byte <= 'Z')
            byte += 'a' - 'A';
    return extension == ".md" || extension == ".mdc" || extension == ".markdown";
}

} // namespace

std::optional<FileDate> modificationDate(const std::filesystem::path& path, Links links) {
    struct stat status{};
    if ((links == Links::followed ? ::stat : ::lstat)(path.c_str(), &status) != 0)
        return std::nullopt;
    return date(status.st_mtim);
}

std::optional<ConnectorMemoryFile> ConnectorMemoryFile::stat(const std::filesystem::path& path) {
    struct stat status{};
    if (::stat(path.c_str(), &status) != 0)
        return std::nullopt;
    return ConnectorMemoryFile{
        .path = path.string(), .bytes = status.st_size, .modified = date(status.st_mtim)};
}

std::vector<std::filesystem::path>
ConnectorMemoryFile::markdown(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files;
    const auto names = Disk::names(folder);
    if (!names)
        return files;
    for (const std::string& name : *names)
        if (isMarkdown(name) && !Disk::isDirectory(folder / name))
            files.push_back(folder / name);
    return files;
}

MemoryFileReport MemoryFileReport::of(const std::vector<std::filesystem::path>& paths) {
    MemoryFileReport report;
    for (const std::filesystem::path& path : paths)
        if (auto file = ConnectorMemoryFile::stat(path))
            report.files.push_back(*std::move(file));
    return report;
}

void ProjectReport::arrange() {
    std::ranges::sort(projects, [](const ConnectorProject& a, const ConnectorProject& b) {
        return std::tie(b.lastActivity, a.path) < std::tie(a.lastActivity, b.path);
    });
    if (projects.empty())
        note = say("no session store found");
}

} // namespace wendlow
