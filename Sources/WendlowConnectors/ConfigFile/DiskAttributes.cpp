#include "ConfigFile/DiskCalls.h"

#include "Say.h"

#include <algorithm>
#include <cerrno>
#include <tuple>

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace wendlow::Disk {
namespace {

/// The rights of named users and groups are kept as an attribute, which also says what the mode's
/// bits for the group mean.
constexpr const char* accessList = "system.posix_acl_access";

/// Asks twice, for the size and for the value; a value that grew between the two is not to be had.
template<class Ask> Result<std::string> sized(Ask ask) {
    const auto size = ask(nullptr, 0);
    if (size < 0)
        return lastError();
    std::string value(static_cast<std::size_t>(size), '\0');
    const auto count = size == 0 ? 0 : ask(value.data(), value.size());
    if (count < 0)
        return lastError();
    value.resize(static_cast<std::size_t>(count));
    return value;
}

Result<std::vector<Attributes::Extended>> extended(const Path& path) {
    const auto names =
        sized([&](char* room, std::size_t size) { return ::listxattr(path.c_str(), room, size); });
    if (!names)
        return std::unexpected(names.error());
    std::vector<Attributes::Extended> found;
    for (std::string_view rest = *names; !rest.empty();) {
        const std::string name(rest.substr(0, rest.find('\0')));
        rest.remove_prefix(std::min(name.size() + 1, rest.size()));
        auto value = sized([&](char* room, std::size_t size) {
            return ::getxattr(path.c_str(), name.c_str(), room, size);
        });
        if (!value)
            return std::unexpected(value.error());
        found.push_back({name, *std::move(value)});
    }
    return found;
}

/// What the group may do where it is not the group that was meant: no more than anybody.
mode_t withoutGroup(mode_t mode) {
    constexpr mode_t group = 070;
    return (mode & ~group) | (mode & group & ((mode & mode_t{07}) << 3U));
}

bool setExtended(int file, const Attributes::Extended& attribute) {
    return ::fsetxattr(file, attribute.name.c_str(), attribute.value.data(), attribute.value.size(),
                       0) == 0;
}

bool hasExtended(int file, const Attributes::Extended& attribute) {
    return sized([&](char* room, std::size_t size) {
               return ::fgetxattr(file, attribute.name.c_str(), room, size);
           }) == attribute.value;
}

} // namespace

Result<Attributes> attributes(const Path& path) {
    struct stat status{};
    if (::stat(path.c_str(), &status) != 0)
        return lastError();
    Attributes found{.mode = status.st_mode & mode_t{07777},
                     .owner = status.st_uid,
                     .group = status.st_gid,
                     .names = status.st_nlink,
                     .extended = {}};
    if (auto more = extended(path))
        found.extended = *std::move(more);
    else
        found.areAllKnown = more.error() == ENOTSUP;
    return found;
}

std::vector<std::string> give(int file, const Attributes& like) {
    std::vector<std::string> lost;
    // First, while the file is still its maker's: a file may be closed to its owner, too.
    for (const auto& attribute : like.extended)
        if (attribute.name != accessList && !setExtended(file, attribute) &&
            !hasExtended(file, attribute))
            lost.push_back(say("the attribute {}", attribute.name));
    if (!like.areAllKnown)
        lost.push_back(say("attributes that could not be read"));

    struct stat status{};
    const bool isKnown = ::fstat(file, &status) == 0;
    const bool keepsGroup =
        isKnown && (status.st_gid == like.group || ::fchown(file, uid_t(-1), like.group) == 0);
    const bool keepsOwner =
        isKnown && (status.st_uid == like.owner || ::fchown(file, like.owner, gid_t(-1)) == 0);
    if (!keepsOwner)
        lost.push_back(say("its owner"));
    if (!keepsGroup)
        lost.push_back(say("its group"));

    const auto list = std::ranges::find(like.extended, accessList, &Attributes::Extended::name);
    const bool hasList = list != like.extended.end();
    // A file system without modes is no reason not to write; what fails leaves the file private.
    std::ignore = ::fchmod(file, keepsGroup && !hasList ? like.mode : withoutGroup(like.mode));
    if (hasList && (!keepsGroup || !setExtended(file, *list)))
        lost.push_back(say("its access list"));
    return lost;
}

} // namespace wendlow::Disk
