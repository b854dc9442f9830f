#pragma once

#include <QString>
#include <QVariantList>
#include <QVariantMap>

#include <ranges>

namespace wendlow {

/// What can be picked on a bench, for its rows: a list of maps with `word` and `picked`.
template<class Choices, class Label, class Picked>
QVariantList benchChoices(const Choices& choices, const Label& label, const Picked& picked) {
    QVariantList list;
    for (const auto& choice : choices)
        list.append(QVariantMap{{QStringLiteral("word"), QString::fromUtf8(label(choice))},
                                {QStringLiteral("picked"), choice == picked}});
    return list;
}

/// The choice that bears this word; the first where none does.
template<class Choices, class Label>
auto benchChoice(const Choices& choices, const Label& label, const QString& word) {
    const auto found = std::ranges::find_if(
        choices, [&](const auto& choice) { return QString::fromUtf8(label(choice)) == word; });
    return found == std::ranges::end(choices) ? *std::ranges::begin(choices) : *found;
}

} // namespace wendlow
