#include "Memories/FilterLists.h"

#include "Floor/RowText.h"

namespace wendlow {

QVariant FilterChips::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const FilterChip& here = row(index.row());
    switch (role) {
    case KeyRole:
        return QString::fromStdString(here.id);
    case Qt::DisplayRole:
    case LabelRole:
        return RowText::line(here.label);
    case PicksRole:
        return static_cast<int>(here.picks);
    case OpenRole:
        return here.open;
    default:
        return {};
    }
}

QHash<int, QByteArray> FilterChips::roleNames() const {
    return {{KeyRole, "key"}, {LabelRole, "label"}, {PicksRole, "picks"}, {OpenRole, "open"}};
}

QVariant FilterValues::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const FilterValueRow& here = row(index.row());
    switch (role) {
    case Qt::DisplayRole:
    case TitleRole:
        return RowText::line(here.id);
    case TipRole:
        return RowText::tip(here.id);
    case CountRole:
        return QString::number(here.count);
    case PickedRole:
        return here.picked;
    default:
        return {};
    }
}

QHash<int, QByteArray> FilterValues::roleNames() const {
    return {{TitleRole, "title"}, {TipRole, "tip"}, {CountRole, "count"}, {PickedRole, "picked"}};
}

} // namespace wendlow

#include "moc_FilterLists.cpp"
