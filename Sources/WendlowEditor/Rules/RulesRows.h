#pragma once

#include "KeyedListModel.h"
#include "Rules/RulesPage.h"

#include <QtQmlIntegration/qqmlintegration.h>

#include <vector>

namespace wendlow {

/// The lines of the face of the rules, for its list. UI thread.
class RulesRows final : public KeyedListModel<RulesRow> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The face of the rules makes it.")

public:
    enum Kind {
        Strip = static_cast<int>(RulesRow::Kind::strip),
        Section,
        Note,
        Rule,
        Level,
        Module,
        Group,
    };
    Q_ENUM(Kind)

    enum Role {
        KindRole = Qt::UserRole + 1,
        TextRole, ///< one line, but for strips and notes
        LeadRole,
        BesideRole,
        CountRole,
        TrailingRole,
        UnderRole,
        TipRole,         ///< all of the text, where it may be cut
        DescriptionRole, ///< what a screen reader hears besides the text
        WarnsRole,
        ApartRole,
        FirstRole,
        LastRole,
        EndsRole,
        StopRole, ///< the arrows stop here
        EditableRole,
        CanAddRole,
        CanRetryRole,
        EditingRole,
        BusyRole,
    };

    explicit RulesRows(QObject* parent) : KeyedListModel(parent) {}

    void show(std::vector<RulesRow> rows) { take(std::move(rows)); }
    /// The row of this index is being edited, or written.
    void mark(int index, bool editing, bool busy);
    /// -1: there is none.
    int indexOf(std::string_view id) const;
    /// The row of the first rule of this id among what is filed, else on the card; -1: none.
    int indexOfRule(std::string_view ruleID) const;
    /// The row to which a step leads from here, -1 and the number of rows being the ends; the same
    /// where there is none further on.
    Q_INVOKABLE int stop(int from, int by) const;
    Q_INVOKABLE bool isStop(int index) const { return holds(index) && row(index).isStop(); }

    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;
};

} // namespace wendlow
