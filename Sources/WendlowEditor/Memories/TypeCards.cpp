#include "Memories/TypeCards.h"

#include "Floor/RowText.h"

namespace wendlow {

void TypeCards::show(const std::vector<EditorCount>& standing, const EditorAnswer& answer) {
    std::vector<TypeCard> cards;
    for (const TypeShelfRow& row : TypeShelf::rows(standing, answer))
        if (!RailCounts::isGoverned(row.name))
            cards.push_back(
                {.id = row.name, .count = row.count, .matchedNothing = row.matchedNothing});
    take(std::move(cards));
}

QVariant TypeCards::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const TypeCard& here = row(index.row());
    switch (role) {
    case Qt::DisplayRole:
    case TitleRole:
        return RowText::line(TypeWords::pluralized(here.id));
    case CountRole:
        return QString::number(here.count);
    case DimmedRole:
        return here.matchedNothing;
    default:
        return {};
    }
}

QHash<int, QByteArray> TypeCards::roleNames() const {
    return {{TitleRole, "title"}, {CountRole, "count"}, {DimmedRole, "dimmed"}};
}

} // namespace wendlow

#include "moc_TypeCards.cpp"
