#pragma once

#include "Floor/EditorFace.h"

#include <cstdint>
#include <optional>
#include <string>

namespace wendlow {

/// A row of the rail: a face, or a place on one.
struct RailRow {
    enum class Kind {
        heading, ///< of the face's places, and the face as a whole
        place,
        more, ///< the door to the places that are not in sight
        face,
    };

    std::string place; ///< what its face knows it by; empty for the face as a whole
    Kind kind = Kind::face;
    std::string title;
    std::string spoken;                ///< to a screen reader; empty: the title
    std::string symbol;                ///< the name of an icon; empty: none
    std::optional<std::int64_t> count; ///< nothing: not known
    bool dimmed = false;               ///< nothing matched
    bool here = false;                 ///< what the stage shows

    // Given by the rail.
    std::string id;
    EditorFace face = EditorFace::memory;
    bool apart = false; ///< a gap stands above it

    bool operator==(const RailRow&) const = default;
};

} // namespace wendlow
