#pragma once

#include "Floor/MemoryDetails.h"
#include "Floor/SearchHit.h"
#include "Model/EditorMeeting.h"
#include "Model/EditorMemory.h"
#include "Model/EditorMods.h"
#include "Model/EditorRows.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

struct SearchSection {
    std::string title;
    std::vector<SearchHit> hits;

    bool operator==(const SearchSection&) const = default;
};
using SearchSections = std::vector<SearchSection>;

namespace SearchPage {

/// The most rows of a section.
inline constexpr std::size_t rowsShown = 5;

/// What a search found, and where it looks for itself.
struct Found {
    std::string_view term;
    const EditorMemoryHits& memories; ///< the best first
    const EditorMoments& moments;
    const std::optional<std::vector<EditorMeeting>>& meetings;
    const std::vector<EditorInstalledMod>* mods; ///< null: there is no board of them
    const std::vector<std::string>& scopePaths;
    const MemoryDetails& details;
};

SearchSections build(const Found& found);

/// The line under a memory's title: where it is filed, unless only its why or body shows why it
/// was found.
std::string memorySubtitle(const EditorMemoryHit& hit, std::string_view term,
                           const MemoryDetails& details);

/// All that is known of a hit, for one that opens where it stands.
std::string unfolded(const SearchHit& hit, const Found& found);

/// Whether it was found here, and not by the daemon.
bool isFoundHere(const SearchHit& hit);

/// The id of the memory that a hit leads to; empty where it leads to something else.
std::string memoryOf(const SearchHit& hit);

/// The id of the memory that is the rule that a hit leads to; empty where it leads to something
/// else.
std::string ruleOf(const SearchHit& hit);

/// All hits in their order. Valid as long as `sections` is.
std::vector<const SearchHit*> flat(const SearchSections& sections);

enum class Move { up, down };

/// Where a key moves the selection, which stops at either end. Nothing: there are no hits.
std::optional<std::size_t> moved(std::optional<std::size_t> selection, Move move,
                                 const SearchSections& sections);

} // namespace SearchPage
} // namespace wendlow
