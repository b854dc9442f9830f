#pragma once

#include "ConnectorReceipt.h"
#include "JSONBlock.h"
#include "JSONDraft.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <optional>
#include <ranges>
#include <set>
#include <span>
#include <string>
#include <string_view>

namespace wendlow {

/// What files with hooks have in common: under `hooks` a list for each event, whether entries stand
/// in the lists themselves or in groups. Pure; any thread.
namespace HookLists {

/// The receipt's cases for what one event's entry may bring into being.
struct Containers {
    Created list;
    Created hooksObject;
};

using Visit =
    std::function<void(std::string_view event, std::ptrdiff_t index, const JSONNode& element)>;
/// Whatever stands in the lists, under any event, in document order.
void forEachElement(const JSONNode& root, const Visit& visit);

/// A document in which none of these holds a name twice: the root, `hooks`, the elements of the
/// lists, and what stands in the elements' own list `inner`.
JSONBlock::Readable read(std::string_view bytes,
                         std::optional<std::string_view> inner = std::nullopt);
/// Why there is no place for an entry under these events.
std::optional<std::string> foreignReason(const JSONNode& root,
                                         std::span<const std::string_view> events);
/// Appends to the list of `event`, making the list and the `hooks` object where there is none. What
/// came into being is added to `created`.
JSONBlock::Result<void> append(JSONDraft& draft, std::string_view event, const JSONLiteral& element,
                               const Containers& containers, std::set<Created>& created);

/// Whether there are sites and the commands of all of them run `binary`.
template<std::ranges::range Sites>
bool allRun(const Sites& sites, const std::filesystem::path& binary) {
    const auto runsIt = [program = binary.string()](const auto& site) {
        return std::string_view(site.command).substr(0, site.command.find(' ')) == program;
    };
    return !std::ranges::empty(sites) && std::ranges::all_of(sites, runsIt);
}

} // namespace HookLists
} // namespace wendlow
