#include "ShortcutPlaces.h"

#include "Shortcuts.h"

#include <QVariantMap>

#include <array>
#include <string_view>
#include <utility>

namespace wendlow::ShortcutPlaces {

namespace {

QVariantMap shown(const Shortcuts::Line& line) {
    QStringList keys;
    for (const QKeySequence& way : Shortcuts::keys(line.id))
        keys.append(way.toString(QKeySequence::NativeText));
    return {{QStringLiteral("title"), Shortcuts::title(line.id)}, {QStringLiteral("keys"), keys}};
}

} // namespace

QVariantList all() {
    QVariantList places;
    QVariantList lines;
    std::array<qsizetype, 2> lengths{};
    const std::span<const Shortcuts::Line> table = Shortcuts::all();
    for (std::size_t at = 0; at < table.size(); ++at) {
        lines.append(shown(table[at]));
        if (at + 1 < table.size() && std::string_view(table[at + 1].place) == table[at].place)
            continue;
        constexpr qsizetype head = 2;
        const std::size_t column = lengths[0] <= lengths[1] ? 0 : 1;
        lengths[column] += lines.size() + head;
        places.append(QVariantMap{{QStringLiteral("place"), Shortcuts::place(table[at].id)},
                                  {QStringLiteral("column"), static_cast<int>(column)},
                                  {QStringLiteral("lines"), std::exchange(lines, QVariantList())}});
    }
    return places;
}

} // namespace wendlow::ShortcutPlaces
