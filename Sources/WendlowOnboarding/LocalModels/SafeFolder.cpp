#include "SafeFolder.h"

#include <cerrno>
#include <cstring>
#include <memory>

#include <dirent.h>
#include <fcntl.h>

namespace wendlow::SafeFolder {

namespace {

constexpr int flags = O_RDONLY | O_DIRECTORY | O_CLOEXEC;

} // namespace

Descriptor openWithin(int folder, const char* name) {
    return Descriptor(::openat(folder, name, flags | O_NOFOLLOW));
}

std::expected<Descriptor, std::string> open(const std::filesystem::path& folder,
                                            const std::filesystem::path& place) {
    Descriptor reached(::open(place.c_str(), flags));
    for (const auto& part : folder.lexically_relative(place)) {
        if (!reached || part == ".")
            break;
        if (part == "..")
            return std::unexpected("it lies elsewhere");
        reached = openWithin(reached.number(), part.c_str());
    }
    if (reached)
        return reached;
    // A link where a folder has to be is told as the one or the other.
    const bool isLink = errno == ELOOP || errno == ENOTDIR;
    return std::unexpected(isLink ? "a link or a file stands on the way to it"
                                  : std::strerror(errno));
}

std::vector<std::string> names(int folder) {
    std::vector<std::string> names;
    Descriptor own = openWithin(folder, ".");
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(own ? ::fdopendir(own.number()) : nullptr,
                                                      &::closedir);
    if (!listing)
        return names;
    own.release(); // closed with the listing
    while (const dirent* const entry = ::readdir(listing.get()))
        if (std::strcmp(entry->d_name, ".") != 0 && std::strcmp(entry->d_name, "..") != 0)
            names.emplace_back(entry->d_name);
    return names;
}

} // namespace wendlow::SafeFolder
