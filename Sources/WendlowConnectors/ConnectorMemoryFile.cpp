#include "ConnectorTypes.h"

#include "ConfigFile/Disk.h"

#include <sys/stat.h>

namespace wendlow {

namespace {

FileDate date(const timespec& time) {
    return FileDate(std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec));
}

} // namespace

std::optional<FileDate> modificationDate(const std::filesystem::path& path) {
    struct stat status{};
    if (::stat(path.c_str(), &status) != 0)
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
        if (std::filesystem::path(name).extension() == ".md" && !Disk::isDirectory(folder / name))
            files.push_back(folder / name);
    return files;
}

} // namespace wendlow
