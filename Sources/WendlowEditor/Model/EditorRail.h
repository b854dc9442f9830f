#pragma once

#include "Model/EditorAnswer.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

/// What the rail counts of the whole store.
namespace RailCounts {
/// These have faces of their own and are left out of lists of memories.
inline constexpr std::array<std::string_view, 2> governedTypes{"rule", "mod"};
bool isGoverned(std::string_view type);
std::int64_t memories(const std::vector<EditorCount>& standing);
std::int64_t rules(const std::vector<EditorCount>& standing);
} // namespace RailCounts

struct TypeShelfRow {
    std::string name;
    std::int64_t count = 0;
    bool matchedNothing = false; ///< to be dimmed

    bool operator==(const TypeShelfRow&) const = default;
};

namespace TypeShelf {
/// The types of the whole store in their order. Under a search that narrows they keep their places
/// and count what matched, so that nothing jumps.
std::vector<TypeShelfRow> rows(const std::vector<EditorCount>& standing,
                               const EditorAnswer& answer);
/// What the answer counts of a kind, else what is known of the whole store.
std::optional<std::int64_t> recordCount(EditorKind kind, const EditorAnswer& answer,
                                        std::optional<std::int64_t> standing);
} // namespace TypeShelf

namespace TypeWords {
/// A type as a person reads it: in their language where the house knows it, else as its tool wrote
/// it.
std::string single(std::string_view word);
/// A type as the name of many. Crude on purpose: types are the person's own words.
std::string pluralized(std::string_view word);
} // namespace TypeWords

} // namespace wendlow
