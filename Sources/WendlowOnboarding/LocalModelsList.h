#pragma once

#include "KeyedListModel.h"
#include "LocalModelsScreen.h"

#include <QtQmlIntegration/qqmlintegration.h>

namespace wendlow {

/// A step of the download as its line shows it.
struct LocalModelRow {
    std::string id;
    std::string name;
    std::string line;                ///< at the right: "1.3 GB of 2.5 GB"
    LocalModelsScreen::RowFace face; ///< what stands at the left
    std::optional<double> fraction;  ///< of the bar; nothing: it is not known
    bool operator==(const LocalModelRow&) const = default;
};

/// The rows of the Local models screen for a view. A reading changes rows in place. UI thread.
class LocalModelsList final : public KeyedListModel<LocalModelRow> {
    Q_OBJECT
    QML_ANONYMOUS

public:
    enum Role {
        NameRole = Qt::UserRole + 1,
        LineRole,
        StateRole,    ///< "done", "present", "waiting" or "progress"
        FractionRole, ///< 0…1; -1 where there is no bar to show, of a row in progress too
        SpokenRole,   ///< the whole row for a screen reader
    };

    explicit LocalModelsList(QObject* parent) : KeyedListModel(parent) {}

    void show(std::vector<LocalModelRow> rows) { take(std::move(rows)); }

    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;
};

} // namespace wendlow
