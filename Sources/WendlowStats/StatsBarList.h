#pragma once

#include "DashboardWords.h"
#include "KeyedListModel.h"

#include <QImage>
#include <QtQmlIntegration/qqmlintegration.h>

#include <string>
#include <vector>

namespace wendlow {

struct StatsBar {
    std::string id;
    Dashboard::Bar bar;
    QImage picture; ///< of a site that has one
    bool operator==(const StatsBar&) const = default;
};

/// The rows of a card of bars. Rows that stay keep their place and their length while their icons
/// come. UI thread.
class StatsBarList final : public KeyedListModel<StatsBar> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The root of the window makes it.")

public:
    enum Role {
        NameRole = Qt::UserRole + 1,
        FractionRole, ///< of the longest bar, from 0 to 1
        LabelRole,
        TipRole,    ///< full name and exact time
        SpokenRole, ///< the same for a screen reader, which is not told thousands of letters
        LetterRole, ///< stands in place of a picture
        PictureRole,
    };

    explicit StatsBarList(QObject* parent) : KeyedListModel(parent) {}

    void show(std::vector<StatsBar> bars) { take(std::move(bars)); }

    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;
};

} // namespace wendlow
