#pragma once

#include "KeyedListModel.h"
#include "Mods/ModsPage.h"

#include <QtQmlIntegration/qqmlintegration.h>

#include <string_view>
#include <vector>

namespace wendlow {

/// The lines of the face of the mods, for its list. UI thread.
class ModsRows final : public KeyedListModel<ModsRow> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The face of the mods makes it.")

public:
    enum Kind {
        Head = static_cast<int>(ModsRow::Kind::head),
        File,
        Behavior,
        Run,
        Section,
        Note,
        Rejection,
    };
    Q_ENUM(Kind)
    enum Tone {
        Good = static_cast<int>(EditorRunOutcome::Tone::good),
        Neutral,
        NeedsYou,
        Fault,
    };
    Q_ENUM(Tone)

    enum Role {
        KindRole = Qt::UserRole + 1,
        TextRole,
        BesideRole,
        UnderRole,
        TrailingRole,
        OutcomeRole,
        ToneRole,
        HelpRole,        ///< what a run leads to, or why to nothing
        TipRole,         ///< all of the row, where it may be cut
        DescriptionRole, ///< what a screen reader hears besides the text
        OpensRole,
        FirstRole,
        LastRole,
        PartsRole,
        StopRole, ///< the arrows stop here
    };

    explicit ModsRows(QObject* parent) : KeyedListModel(parent) {}

    void show(std::vector<ModsRow> rows) { take(std::move(rows)); }
    /// Of the head of this mod's card; -1: there is none.
    int indexOfMod(std::string_view scope, std::string_view slug) const;
    /// The row to which a step leads from here, -1 and the number of rows being the ends; the same
    /// where there is none further on.
    Q_INVOKABLE int stop(int from, int by) const;
    Q_INVOKABLE bool isStop(int index) const { return holds(index) && row(index).isStop(); }

    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;
};

} // namespace wendlow
