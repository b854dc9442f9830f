#pragma once

#include "Model/EditorMeeting.h"
#include "Model/EditorMemory.h"
#include "Model/EditorMods.h"
#include "Model/EditorMoment.h"
#include "Model/TextHash.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <variant>
#include <vector>

namespace wendlow {

/// Where a hit of the search page leads.
namespace SearchDestination {
struct Memory {
    std::string type;
    bool operator==(const Memory&) const = default;
};
struct Rule {
    std::string scope;
    bool operator==(const Rule&) const = default;
};
struct Moment {
    std::string id;
    bool operator==(const Moment&) const = default;
};
struct Meeting {
    std::string id;
    bool operator==(const Meeting&) const = default;
};
struct Scope {
    std::string path;
    bool operator==(const Scope&) const = default;
};
struct Mod {
    bool operator==(const Mod&) const = default;
};
} // namespace SearchDestination

struct SearchHit {
    using Destination =
        std::variant<SearchDestination::Memory, SearchDestination::Rule, SearchDestination::Moment,
                     SearchDestination::Meeting, SearchDestination::Scope, SearchDestination::Mod>;

    std::string id; ///< unique on the page
    Destination destination;
    std::string title;
    std::string subtitle;
    std::string symbol; ///< the name of an icon

    bool operator==(const SearchHit&) const = default;
};

struct SearchSection {
    std::string title;
    std::vector<SearchHit> hits;

    bool operator==(const SearchSection&) const = default;
};
using SearchSections = std::vector<SearchSection>;

namespace SearchPage {

/// The most rows of a section.
inline constexpr std::size_t rowsShown = 5;

/// By the memory's id. Without a value: it was asked for, and nothing came.
using Details =
    std::unordered_map<std::string, std::optional<EditorMemoryDetail>, TextHash, std::equal_to<>>;

/// What a search found, and where it looks for itself.
struct Found {
    std::string_view term;
    const EditorMemoryHits& memories; ///< the best first
    const std::vector<EditorMoment>& moments;
    const std::optional<std::vector<EditorMeeting>>& meetings;
    const std::vector<EditorInstalledMod>* mods; ///< null: there is no board of them
    const std::vector<std::string>& scopePaths;
    const Details& details;
};

SearchSections build(const Found& found);

/// The line under a memory's title: where it is filed, unless only its why or body shows why it
/// was found.
std::string memorySubtitle(const EditorMemoryHit& hit, std::string_view term,
                           const Details& details);

/// The id of the memory that a hit shows; empty where it shows something else.
std::string memoryOf(const SearchHit& hit);

/// All hits in their order. Valid as long as `sections` is.
std::vector<const SearchHit*> flat(const SearchSections& sections);

enum class Move { up, down };

/// Where a key moves the selection, which stops at either end. Nothing: there are no hits.
std::optional<std::size_t> moved(std::optional<std::size_t> selection, Move move,
                                 const SearchSections& sections);

} // namespace SearchPage
} // namespace wendlow
