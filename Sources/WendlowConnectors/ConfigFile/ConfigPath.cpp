#include "ConfigFile/ConfigPath.h"

#include "ConfigFile/Disk.h"

namespace wendlow::ConfigPath {
namespace {

/// Where the chain of links that begins at `path` ends, the file at its end being absent. Nothing
/// when the links go round.
std::optional<Disk::Path> endOfLinks(Disk::Path path) {
    constexpr int mostLinks = 40; // as the kernel counts
    for (int count = 0; count <= mostLinks; ++count) {
        const auto target = Disk::readLink(path);
        if (!target)
            return path;
        // Not normalised: behind a linked folder, ".." is for the file system to follow.
        path = path.parent_path() / *target;
    }
    return std::nullopt;
}

} // namespace

std::filesystem::path canonical(const std::filesystem::path& path) {
    if (auto resolved = Disk::realPath(path))
        return *std::move(resolved);
    // A dangling link is a promise of a file elsewhere. The file is made there: a rename onto the
    // link itself would leave a plain file in its stead.
    auto end = endOfLinks(path);
    if (!end)
        return path;
    const auto parent = end->has_parent_path() ? end->parent_path() : Disk::Path(".");
    if (const auto folder = Disk::realPath(parent))
        return *folder / end->filename();
    return *std::move(end);
}

} // namespace wendlow::ConfigPath
