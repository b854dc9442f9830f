#pragma once

#include "BlockFinding.h"
#include "HookCommand.h"
#include "HookLists.h"
#include "JSONBlock.h"
#include "JSONDraft.h"

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

/// The walk over such files, and the ways in which an entry gets into one and out of it. Pure; any
/// thread.
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

/// One thing that stands where an entry does. Its position is what a tool knows it by.
struct Entry {
    std::string_view event;
    std::ptrdiff_t group = 0;
    std::ptrdiff_t index = 0;
    JSONNode node;
};

/// Whatever stands where entries do, under any event, in document order.
void forEachEntry(const JSONNode& root, const std::function<void(const Entry&)>& visit);
/// The entries of ours under any event, in document order. `currents` are the commands this build
/// writes here.
std::vector<HookSite> sites(const JSONNode& root, std::span<const std::string> currents);
/// A document in which no object on the way to an entry holds a name twice.
JSONBlock::Readable read(std::string_view bytes);

/// What a block says about its file. `sites(root, bytes)` gives its entries, and
/// `driftReasons(sites, root, bytes)` what is wrong with them, which is asked only when there are
/// any.
template<class Sites, class Reasons>
BlockFinding find(std::string_view bytes, const JSONBlock::Readable& document,
                  std::span<const std::string_view> events, const Sites& sites,
                  const Reasons& driftReasons) {
    if (!document)
        return {BlockFinding::Unreadable{document.error()}};
    const JSONNode root = document->root();
    if (auto reason = HookLists::foreignReason(root, events))
        return {BlockFinding::Foreign{{*std::move(reason)}}};
    const auto& own = sites(root, bytes);
    if (own.empty())
        return {BlockFinding::Absent{}};
    return BlockFinding::from(driftReasons(own, root, bytes));
}

/// Appends a group to the list of `event`, making the list and the `hooks` object where there is
/// none. What came into being is added to `created`.
JSONBlock::Result<void> append(JSONDraft& draft, std::string_view event, const JSONLiteral& group,
                               const Containers& containers, std::set<Created>& created);
/// Takes one entry out, and its group when that is left empty and holds nothing but what is ours.
JSONBlock::Result<void> discard(JSONDraft& draft, const HookSite& site,
                                const JSONLiteral::Object& groupMembers);
/// Takes out `own`, the sites in `bytes`, and from the inside out each container that is then empty
/// and that `created` says is ours. `document` is the scan of `bytes`.
JSONBlock::Result<RemovedBlock> removed(std::string_view bytes, const JSONDocument& document,
                                        std::vector<HookSite> own, const std::set<Created>& created,
                                        const Containers& containers);

} // namespace HookGroups
} // namespace wendlow
