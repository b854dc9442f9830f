#pragma once

#include "FilterValue.h"

#include <compare>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace wendlow {

// GCC wants an initializer for each field that a designated list may leave out.
// NOLINTBEGIN(readability-redundant-member-init)

/// One row of a census.
struct EditorCount {
    std::string name; ///< the label shown, also the key
    std::int64_t count = 0;
    /// The typed wire values behind the label: two that print alike fold into one row.
    std::vector<FilterValue> members = {};

    bool operator==(const EditorCount&) const = default;
};

std::vector<std::string> names(const std::vector<EditorCount>& census);

/// The order of every census: the larger count first, then by code point.
void sortCensus(std::vector<EditorCount>& census);

/// A value picked from a filter panel. Has at least one member, so that it can go out on the wire.
struct EditorPick {
    std::string name;
    std::vector<FilterValue> members;

    EditorPick(std::string text);
    explicit EditorPick(const EditorCount& row);
    std::partial_ordering operator<=>(const EditorPick&) const = default;
    bool operator==(const EditorPick&) const = default;
};
using EditorPicks = std::set<EditorPick>;

std::set<std::string> names(const EditorPicks& picks);

// NOLINTEND(readability-redundant-member-init)

} // namespace wendlow
