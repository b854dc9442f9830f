#pragma once

#include "KeyedListModel.h"

#include <QtQmlIntegration/qqmlintegration.h>

#include <string>
#include <vector>

namespace wendlow {

/// A chip of the filter bar.
struct FilterChip {
    std::string id;    ///< the key of its panel
    std::string label; ///< what the chip says
    std::size_t picks = 0;
    bool open = false;

    bool operator==(const FilterChip&) const = default;
};

class FilterChips : public KeyedListModel<FilterChip> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The filter bar makes it.")

public:
    enum Role { KeyRole = Qt::UserRole + 1, LabelRole, PicksRole, OpenRole };

    using KeyedListModel::KeyedListModel;

    void show(std::vector<FilterChip> chips) { take(std::move(chips)); }

    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;
};

/// A line of the open panel.
struct FilterValueRow {
    std::string id; ///< the value as it is printed
    std::int64_t count = 0;
    bool picked = false;

    bool operator==(const FilterValueRow&) const = default;
};

class FilterValues : public KeyedListModel<FilterValueRow> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The filter bar makes it.")

public:
    enum Role { TitleRole = Qt::UserRole + 1, TipRole, CountRole, PickedRole };

    using KeyedListModel::KeyedListModel;

    void show(std::vector<FilterValueRow> rows) { take(std::move(rows)); }

    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;
};

} // namespace wendlow
