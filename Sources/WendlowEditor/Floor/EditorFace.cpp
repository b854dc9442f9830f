#include "Floor/EditorFace.h"

#include "Say.h"

#include <algorithm>

namespace wendlow::EditorFaces {

namespace {

struct Words {
    std::string_view text;
    const char* title;
    std::string_view symbol;
};

constexpr std::array<Words, all.size()> table{{
    {"memory", sayLater("Memories"), "doc.text"},
    {"meetings", sayLater("Meetings"), "person.2"},
    {"moments", sayLater("Moments"), "square.stack.3d.down.right"},
    {"rules", sayLater("Rules"), "scroll.fill"},
    {"mods", sayLater("Mods"), "square.grid.2x2.fill"},
    {"scopes", sayLater("Scopes"), "network"},
}};

const Words& words(EditorFace face) {
    return table[place(face)];
}

} // namespace

std::string_view text(EditorFace face) {
    return words(face).text;
}

std::string_view title(EditorFace face) {
    return say.view(words(face).title);
}

std::string_view symbol(EditorFace face) {
    return words(face).symbol;
}

std::optional<EditorFace> fromText(std::string_view raw) {
    const auto found = std::ranges::find(all, raw, text);
    return found == all.end() ? std::nullopt : std::optional(*found);
}

} // namespace wendlow::EditorFaces
