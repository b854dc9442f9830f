#pragma once

#include "AppInventory.h"
#include "ConnectableApp.h"

#include <QAbstractListModel>
#include <QByteArray>
#include <QHash>
#include <QVariantList>
#include <QtQmlIntegration/qqmlintegration.h>

#include <filesystem>
#include <vector>

namespace wendlow {

/// The rows of the Connected Apps pane for a list view. UI thread.
///
/// A new state is taken over by the smallest change there is (removed, moved, inserted, changed in
/// single roles) and never by a reset: a reset would build every row anew under the person's
/// pointer and lose the keyboard focus.
class ConnectedAppsList final : public QAbstractListModel {
    Q_OBJECT
    QML_ANONYMOUS

public:
    enum Role {
        AppIdRole = Qt::UserRole + 1,
        NameRole,
        DetailRole,
        IconAssetRole, ///< empty: draw the glyph
        IconGlyphRole, ///< empty: draw the asset
        ConnectedRole,
        BusyRole,
        DriftedRole,
        OpenRole,
        /// A list of maps with `tone`, `headline`, `lines` (as `notes`), `path` and `actions`, a
        /// list of maps with `action`, `words` and `hint`.
        StripsRole,
        ChangesRole,      ///< as `notes`: what stands folded
        ChangesTitleRole, ///< what that is called; empty: there is none
        NotesRole,        ///< a list of maps with `text`, `subject`, `shownSubject` and `place`
        InventoryRole,    ///< an `AppInventory`, the same for as long as the row is there
    };

    /// `home` is what a shown subject abbreviates to "~"; empty for none.
    explicit ConnectedAppsList(const std::filesystem::path& home, QObject* parent = nullptr);

    /// Makes the list show `rows`, whose ids are all different.
    void show(const std::vector<ConnectedAppRow>& rows);

    const std::vector<ConnectedAppRow>& rows() const { return m_rows; }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    void removeGone(const std::vector<ConnectedAppRow>& wanted);
    void place(int row, const ConnectedAppRow& wanted);
    void update(int row, const ConnectedAppRow& wanted);
    QVariantList notes(const std::vector<ConnectableAppNote>& list) const;
    QVariantList strips(const ConnectedAppRow& row) const;

    const std::string m_home;
    std::vector<ConnectedAppRow> m_rows;
};

} // namespace wendlow
