#include "SafeRemoval.h"

#include "SafeFolder.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

namespace wendlow::SafeRemoval {

namespace {

using Path = std::filesystem::path;

std::string cause(int error) {
    return std::strerror(error);
}

/// Whether `path` lies below `folder`; both are as they are written.
bool isBelow(const Path& path, const Path& folder) {
    const auto [end, rest] = std::ranges::mismatch(folder, path);
    return end == folder.end() && rest != path.end();
}

Path withoutSlash(const Path& path) {
    const Path normal = path.lexically_normal();
    return normal.has_filename() ? normal : normal.parent_path();
}

/// The narrowest of the places that the path lies in.
Path placeOf(const Path& path, const Places& places) {
    const Path support = withoutSlash(places.support);
    return isBelow(path, support) ? support : withoutSlash(places.home);
}

/// How the last thing that stays keeps the rest from going: the first cause, or 0.
int removeEntry(int folder, const char* name);

int removeContents(int folder) {
    int failure = 0;
    for (const std::string& name : SafeFolder::names(folder)) {
        const int failed = removeEntry(folder, name.c_str());
        if (failure == 0 && failed != ENOENT)
            failure = failed;
    }
    return failure;
}

int removeEntry(int folder, const char* name) {
    // A folder refuses to be unlinked, and a link to one does not.
    if (::unlinkat(folder, name, 0) == 0)
        return 0;
    if (errno != EISDIR && errno != EPERM)
        return errno;
    const int refused = errno;
    int failure = 0;
    {
        const Descriptor inside = SafeFolder::openWithin(folder, name);
        if (!inside && errno == ENOTDIR)
            return refused;
        failure = inside ? removeContents(inside.number()) : errno;
    }
    if (::unlinkat(folder, name, AT_REMOVEDIR) == 0)
        return 0;
    // Why something within stays says more than that the folder is not empty.
    return failure != 0 && failure != ENOENT ? failure : errno;
}

} // namespace

std::string refusal(std::string_view path, const Places& places) {
    const Path wanted(path);
    if (!wanted.is_absolute() || path.find('\0') != std::string_view::npos)
        return "it is not an absolute path";
    if (std::ranges::find(wanted, Path("..")) != wanted.end())
        return "it leads back on its way";
    const Path plain = withoutSlash(wanted);
    const Path home = withoutSlash(places.home);
    const Path support = withoutSlash(places.support);
    // Where nobody has a home, everything would lie in it.
    if (!home.has_relative_path() || !support.has_relative_path() || !home.is_absolute() ||
        !support.is_absolute())
        return "there is no home folder";
    for (const Path& kept : {home, support})
        if (plain == kept || isBelow(kept, plain))
            return "it holds more than was installed";
    if (!isBelow(plain, home) && !isBelow(plain, support))
        return "it lies outside the home folder";
    return {};
}

std::expected<void, std::string> remove(std::string_view path, const Places& places) {
    if (const std::string refused = refusal(path, places); !refused.empty())
        return std::unexpected(refused);
    const Path plain = withoutSlash(Path(path));
    const auto folder = SafeFolder::open(plain.parent_path(), placeOf(plain, places));
    if (!folder)
        return std::unexpected(folder.error());
    if (const int failed = removeEntry(folder->number(), plain.filename().c_str()); failed != 0)
        return std::unexpected(cause(failed));
    return {};
}

} // namespace wendlow::SafeRemoval
