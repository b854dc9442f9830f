#pragma once

#include "Model/EditorCount.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace wendlow {

// GCC wants an initializer for each field that a designated list may leave out.
// NOLINTBEGIN(readability-redundant-member-init)

/// The kinds of thing that a text browse covers.
enum class EditorKind { memory, moment, meeting };
inline constexpr std::array editorKinds{EditorKind::memory, EditorKind::moment,
                                        EditorKind::meeting};
/// The raw text, as on the wire.
std::string_view text(EditorKind kind);
/// The kind of this raw text; nothing for an unknown one.
std::optional<EditorKind> editorKind(std::string_view raw);

enum class EditorMemorySort { relevance, newest, oldest };
std::string_view text(EditorMemorySort sort);
std::optional<EditorMemorySort> editorMemorySort(std::string_view raw);

/// What a face wants to see.
struct EditorAsk {
    static constexpr std::int64_t page = 50; ///< the usual `limit`

    std::string term;                               ///< empty: no search
    std::optional<std::string> type = std::nullopt; ///< nothing: all types
    EditorKind kind = EditorKind::memory;
    std::set<std::string> scopes = {}; ///< paths; empty: all
    std::map<std::string, EditorPicks> filters = {};
    std::optional<EditorMemorySort> sort = std::nullopt; ///< nothing: the daemon chooses
    std::int64_t limit = page;
    std::int64_t offset = 0;

    bool operator==(const EditorAsk&) const = default;

    /// Equal but for `limit` and `offset`: the same question on another page.
    bool sameQuery(const EditorAsk& as) const;
    bool hasChips() const { return !scopes.empty() || !filters.empty(); }
};

std::size_t hash_value(const EditorAsk& ask);

// NOLINTEND(readability-redundant-member-init)

} // namespace wendlow
