#include "ConfigFile/Leftovers.h"

#include "ConfigFile/Backup.h"
#include "ConfigFile/Disk.h"
#include "ConfigFile/HiddenName.h"
#include "Say.h"

#include <algorithm>
#include <tuple>

namespace wendlow::Leftovers {
namespace {

using Path = std::filesystem::path;

/// Whether the bytes of `aside` stand in the file or in one of its copies.
bool isHeldElsewhere(const Path& aside, const Path& file) {
    const auto bytes = Disk::read(aside);
    if (!bytes || !*bytes)
        return false;
    auto places = Backup::all(file);
    places.push_back(file);
    return std::ranges::any_of(
        places, [&](const Path& place) { return Disk::holds(place, **bytes).value_or(false); });
}

} // namespace

Observations sweep(const Path& file, std::chrono::system_clock::time_point date) {
    Observations said;
    const auto folder = file.has_parent_path() ? file.parent_path() : Path(".");
    for (const auto& name : Disk::names(folder).value_or(std::vector<std::string>())) {
        const auto parts = HiddenName::parts(name, file);
        if (!parts || Disk::isRunningElsewhere(parts->process))
            continue;
        const Path hidden = folder / name;
        const auto number = Disk::number(hidden);
        if (!number)
            continue;
        const bool isOurs = !parts->written || *parts->written == *number;
        if (isOurs || isHeldElsewhere(hidden, file))
            std::ignore = Disk::remove(hidden);
        else if (const auto copy = Backup::adopt(hidden, file, date))
            said.push_back(
                {copy->string(), say("a change of this file was interrupted earlier, and what "
                                     "stood in its place then was kept here")});
    }
    return said;
}

} // namespace wendlow::Leftovers
