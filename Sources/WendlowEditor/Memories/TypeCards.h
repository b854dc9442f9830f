#pragma once

#include "KeyedListModel.h"
#include "Model/EditorRail.h"

#include <QtQmlIntegration/qqmlintegration.h>

#include <string>
#include <vector>

namespace wendlow {

struct TypeCard {
    std::string id; ///< the type
    std::int64_t count = 0;
    bool matchedNothing = false;

    bool operator==(const TypeCard&) const = default;
};

/// The cards of the memory types. UI thread.
class TypeCards : public KeyedListModel<TypeCard> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The face of the memories makes it.")

public:
    enum Role {
        TitleRole = Qt::UserRole + 1, ///< as the name of many
        CountRole,
        DimmedRole, ///< nothing of the type matched
    };

    using KeyedListModel::KeyedListModel;

    /// Of the types of the whole store, those that have no face of their own.
    void show(const std::vector<EditorCount>& standing, const EditorAnswer& answer);

    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;
};

} // namespace wendlow
