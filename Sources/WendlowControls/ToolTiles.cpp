#include "ToolTiles.h"

#include <array>
#include <utility>

namespace wendlow {

namespace {

constexpr std::array tiles{
    std::pair{"tool-claude", "Cl"},
    std::pair{"tool-codex", "Cx"},
    std::pair{"tool-cursor", "Cu"},
    std::pair{"tool-opencode", "Op"},
};

} // namespace

bool ToolTiles::has(const QString& asset) {
    return !letters(asset).isEmpty();
}

QString ToolTiles::letters(const QString& asset) {
    for (const auto& [name, letters] : tiles) {
        if (asset == QLatin1StringView(name)) {
            return QString::fromLatin1(letters);
        }
    }
    return {};
}

} // namespace wendlow

#include "moc_ToolTiles.cpp"
