#pragma once

#include "KeyedListModel.h"

#include <QDate>
#include <QtQmlIntegration/qqmlintegration.h>

#include <string>
#include <vector>

namespace wendlow {

struct MomentHead {
    std::string id;
    double top = 0;
    QString title;

    bool operator==(const MomentHead&) const = default;
};

/// The heads of the days that are in sight. UI thread.
class MomentHeads : public KeyedListModel<MomentHead> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The grid of the moments makes it.")

public:
    enum Role { TopRole = Qt::UserRole + 1, TitleRole };

    using KeyedListModel::KeyedListModel;

    void show(std::vector<MomentHead> heads) { take(std::move(heads)); }

    QVariant data(const QModelIndex& index, int role) const override {
        const MomentHead& head = row(index.row());
        return role == TopRole ? QVariant(head.top) : QVariant(head.title);
    }
    QHash<int, QByteArray> roleNames() const override {
        return {{TopRole, "rowTop"}, {TitleRole, "title"}};
    }
};

} // namespace wendlow
