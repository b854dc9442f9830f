// Which shapes of a readable file an edit would damage or would not reach.

#include "ConfigFile/TOMLText.h"

#include "Say.h"

#include <algorithm>
#include <set>

namespace wendlow::TOMLText {

namespace {

using Reason = std::optional<Unreadable>;

/// An array on the way to the table is as bad as one in its place: a header below it would say
/// something about the array's last element only.
Reason arrayReason(const TOMLDocument& document, const TOMLName& owned) {
    for (const auto& table : document.tables()) {
        if (table.isArrayElement && table.name.leadsTo(owned)) {
            return Unreadable{say(
                "the table [[{}]] is an array of tables, which is not a shape this build can edit",
                joined(table.name))};
        }
    }
    return std::nullopt;
}

Reason declaredTwiceReason(const TOMLDocument& document, const TOMLName& owned) {
    if (std::ranges::count_if(document.tables(),
                              [&](const TOMLTable& table) { return table.name == owned; }) < 2)
        return std::nullopt;
    return Unreadable{say("the table [{}] is declared twice in this file", joined(owned))};
}

Reason repeatedKeyReason(const TOMLDocument& document, const TOMLName& owned) {
    const auto* const table = document.table(owned);
    if (table == nullptr)
        return std::nullopt;
    const auto isBefore = [](const TOMLPath& left, const TOMLPath& right) {
        return std::ranges::lexicographical_compare(left, right);
    };
    std::set<TOMLPath, decltype(isBefore)> seen;
    for (const auto& entry : document.entries(*table)) {
        if (!seen.insert(entry.key).second) {
            return Unreadable{.reason = say("the key {} appears twice in [{}] (at byte {})",
                                            joined(entry.key), joined(owned), entry.keyStart),
                              .byte = entry.keyStart};
        }
    }
    return std::nullopt;
}

/// Whether `entry` of `parent` states a value at `owned`, below it, or at a table above it: an
/// inline table there holds all that it will ever hold, and a header for more makes the file
/// unreadable to its own tool.
bool reachesInto(const TOMLTable& parent, const TOMLEntry& entry, const TOMLName& owned) {
    const auto rest = std::span(owned).subspan(parent.name.size());
    const auto shared = std::min(rest.size(), entry.key.size());
    return std::equal(entry.key.begin(), entry.key.begin() + static_cast<std::ptrdiff_t>(shared),
                      rest.begin());
}

Reason statedElsewhereReason(const TOMLDocument& document, const TOMLName& owned) {
    for (const auto& table : document.tables()) {
        if (table.name.size() == owned.size() || !table.name.leadsTo(owned))
            continue;
        for (const auto& entry : document.entries(table)) {
            if (reachesInto(table, entry, owned)) {
                return Unreadable{
                    say("the key {} states the Wendlow block outside a table of its own, "
                        "which is not a shape this build can edit",
                        joined(entry.key))};
            }
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<Unreadable> unreadableReason(const TOMLDocument& document,
                                           std::span<const TOMLName> owned) {
    for (const auto& name : owned) {
        for (const auto reasonFor :
             {arrayReason, declaredTwiceReason, repeatedKeyReason, statedElsewhereReason}) {
            if (auto reason = reasonFor(document, name))
                return reason;
        }
    }
    return std::nullopt;
}

} // namespace wendlow::TOMLText
