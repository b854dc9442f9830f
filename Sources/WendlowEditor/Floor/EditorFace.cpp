#include "Floor/EditorFace.h"

#include <algorithm>

namespace wendlow::EditorFaces {

namespace {

struct Words {
    std::string_view text;
    std::string_view title;
    std::string_view symbol;
};

constexpr std::array<Words, all.size()> table{{
    {"memory", "Memories", "doc.text"},
    {"meetings", "Meetings", "person.2"},
    {"moments", "Moments", "square.stack.3d.down.right"},
    {"rules", "Rules", "scroll.fill"},
    {"mods", "Mods", "square.grid.2x2.fill"},
    {"scopes", "Scopes", "network"},
}};

const Words& words(EditorFace face) {
    return table[place(face)];
}

} // namespace

std::string_view text(EditorFace face) {
    return words(face).text;
}

std::string_view title(EditorFace face) {
    return words(face).title;
}

std::string_view symbol(EditorFace face) {
    return words(face).symbol;
}

std::optional<EditorFace> fromText(std::string_view raw) {
    const auto found = std::ranges::find(all, raw, text);
    return found == all.end() ? std::nullopt : std::optional(*found);
}

} // namespace wendlow::EditorFaces
