#pragma once

#include "Model/EditorAsk.h"
#include "Model/EditorMemory.h"
#include "Model/EditorMoment.h"
#include "Model/EditorRows.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace wendlow {

// GCC wants an initializer for each field that a designated list may leave out.
// NOLINTBEGIN(readability-redundant-member-init)

namespace EditorAnswerStateCase {
struct Failed {
    std::string words; ///< to be shown
    bool operator==(const Failed&) const = default;
};
struct Pending {
    bool operator==(const Pending&) const = default;
};
struct Settled {
    bool operator==(const Settled&) const = default;
};
/// The search index is still being built.
struct Warming {
    bool operator==(const Warming&) const = default;
};
} // namespace EditorAnswerStateCase
using EditorAnswerState =
    std::variant<EditorAnswerStateCase::Pending, EditorAnswerStateCase::Settled,
                 EditorAnswerStateCase::Warming, EditorAnswerStateCase::Failed>;

/// What came back for an ask. Begins as pending, and as the answer to nothing.
struct EditorAnswer {
    std::optional<EditorAsk> ask = std::nullopt;
    EditorAnswerState state = EditorAnswerStateCase::Pending{};
    bool narrowed = false;       ///< the term narrowed the set, as the daemon says
    std::int64_t total = 0;      ///< rows that match
    std::int64_t sliceTotal = 0; ///< of what the ask looks into before the term; at least `total`
    EditorRows rows = {};
    EditorMemorySort order = EditorMemorySort::newest; ///< that the rows are really in
    std::vector<EditorCount> typeCounts = {};
    std::vector<EditorCount> scopeCounts = {};
    std::vector<EditorCount> filterKeyCounts = {};
    std::map<std::string, std::vector<EditorCount>> filterValueCounts = {};
    std::map<EditorKind, std::int64_t> kindCounts = {};
    EditorMoments moments = {};

    bool operator==(const EditorAnswer&) const = default;

    static EditorAnswer pending() { return {}; }
    static EditorAnswer warming(EditorAsk ask);
    static EditorAnswer failed(std::string words, EditorAsk ask);

    bool ready() const { return std::holds_alternative<EditorAnswerStateCase::Settled>(state); }
    /// The same page, marked as being asked for again.
    EditorAnswer awaitingRefresh() const;
};

/// A page may be long; it is handed on without a copy.
using SharedAnswer = std::shared_ptr<const EditorAnswer>;

// NOLINTEND(readability-redundant-member-init)

} // namespace wendlow
