#pragma once

#include "Floor/EditorFace.h"
#include "Model/EditorMemory.h"

#include <optional>
#include <string>
#include <variant>

namespace wendlow {

/// Where a hit of the search page leads: to which face, and to what on it.
namespace SearchDestination {
struct Memory {
    static constexpr EditorFace face = EditorFace::memory;
    std::string type;
    bool operator==(const Memory&) const = default;
};
struct Rule {
    static constexpr EditorFace face = EditorFace::rules;
    std::string scope;
    bool operator==(const Rule&) const = default;
};
struct Moment {
    static constexpr EditorFace face = EditorFace::moments;
    std::string id;
    bool operator==(const Moment&) const = default;
};
struct Meeting {
    static constexpr EditorFace face = EditorFace::meetings;
    std::string id;
    bool operator==(const Meeting&) const = default;
};
struct Scope {
    static constexpr EditorFace face = EditorFace::scopes;
    std::string path;
    bool operator==(const Scope&) const = default;
};
struct Mod {
    static constexpr EditorFace face = EditorFace::mods;
    std::string scope;
    std::string slug;
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

    EditorFace face() const {
        return std::visit([](const auto& place) { return place.face; }, destination);
    }
};

/// A hit that is being opened.
struct FoundHit {
    SearchHit hit;
    std::optional<EditorMemoryHit> memory; ///< that the hit shows, where it shows one
    std::string term;                      ///< that found it
};

} // namespace wendlow
