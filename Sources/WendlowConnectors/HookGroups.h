#pragma once

#include "HookCommand.h"
#include "JSONBlock.h"

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

/// One hook entry of ours in a file whose entries lie at `hooks`, event, group, `hooks`, entry.
struct HookSite {
    std::string event;
    std::ptrdiff_t group = 0; ///< index in the event's list
    std::ptrdiff_t entry = 0; ///< index in the group's `hooks`
    std::string command;
    HookOwnership tier = HookOwnership::current;

    JSONPath eventPath() const;   ///< of the event's list
    JSONPath groupPath() const;   ///< of the group
    JSONPath entriesPath() const; ///< of the list that holds the entry
    JSONPath entryPath() const;

    bool operator==(const HookSite&) const = default;
};

/// The walk over such files, and the two ways in which an entry leaves one. Pure; any thread.
namespace HookGroups {

/// The receipt's cases for what may be left empty under one event.
struct ContainerCases {
    Created group;
    Created list;
};

struct Containers {
    std::function<ContainerCases(std::string_view event)> of;
    Created hooksObject;
    /// The members of a group, beside `hooks`, that are ours to take along with it.
    JSONLiteral::Object groupMembers;
};

/// The entries of ours under any event, in document order. `currents` are the commands this build
/// writes here.
std::vector<HookSite> sites(const JSONNode& root, std::span<const std::string> currents);
/// A document in which no object on the way to an entry holds a name twice.
JSONBlock::Readable read(std::string_view bytes);
/// Why there is no place for an entry under these events.
std::optional<std::string> foreignReason(const JSONNode& root,
                                         std::span<const std::string_view> events);

/// Takes one entry out, and its group when that is left empty and holds nothing but what is ours.
JSONBlock::Result<std::string> discard(const HookSite& site, std::string_view bytes,
                                       const JSONLiteral::Object& groupMembers);
/// Takes out `own`, the sites in `bytes`, and from the inside out each container that is then empty
/// and that `created` says is ours.
JSONBlock::Result<RemovedBlock> removed(std::string_view bytes, std::vector<HookSite> own,
                                        const std::set<Created>& created,
                                        const Containers& containers);

} // namespace HookGroups
} // namespace wendlow
