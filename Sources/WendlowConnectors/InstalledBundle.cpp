#include "InstalledBundle.h"

#include "ConfigFile/Disk.h"

namespace wendlow::InstalledBundle {

namespace {

using Path = std::filesystem::path;

Path standardised(const Path& path) {
    std::error_code failure;
    Path absolute = std::filesystem::absolute(path, failure);
    absolute = (failure ? path : absolute).lexically_normal();
    // "/a/b/" would be its own parent's child, not "/a"'s.
    return absolute.has_filename() || absolute == absolute.root_path() ? absolute
                                                                       : absolute.parent_path();
}

} // namespace

std::optional<Path> enclosing(const Path& path) {
    for (Path folder = standardised(path); !folder.empty() && folder != folder.root_path();
         folder = folder.parent_path())
        if (folder.extension() == ".app" && Disk::isDirectory(folder))
            return folder;
    return std::nullopt;
}

std::optional<Path> current() {
    std::error_code failure;
    const Path program = std::filesystem::read_symlink("/proc/self/exe", failure);
    return failure ? std::nullopt : enclosing(program);
}

} // namespace wendlow::InstalledBundle
