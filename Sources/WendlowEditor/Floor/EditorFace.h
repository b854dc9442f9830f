#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace wendlow {

/// The faces of the Editor's window.
enum class EditorFace { memory, meetings, moments, rules, mods, scopes };

namespace EditorFaces {

/// In the order of the rail.
inline constexpr std::array all{EditorFace::memory, EditorFace::meetings, EditorFace::moments,
                                EditorFace::rules,  EditorFace::mods,     EditorFace::scopes};

/// The place in that order.
constexpr std::size_t place(EditorFace face) {
    return static_cast<std::size_t>(face);
}

/// The raw text, which is also the face's identity.
std::string_view text(EditorFace face);
/// What a person reads. It lasts as long as the program.
std::string_view title(EditorFace face);
/// The name of its icon.
std::string_view symbol(EditorFace face);
/// Nothing for any other text.
std::optional<EditorFace> fromText(std::string_view raw);

} // namespace EditorFaces

} // namespace wendlow
