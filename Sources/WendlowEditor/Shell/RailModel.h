#pragma once

#include "Floor/RailRow.h"
#include "KeyedListModel.h"

#include <QtQmlIntegration/qqmlintegration.h>

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace wendlow {

/// The rows of the faces one below the other, with their counts. Of a face's places the first few
/// are in sight, the rest behind a door. UI thread.
class RailModel final : public KeyedListModel<RailRow> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The root of the window makes it.")
    /// The row that is open, -1 for none.
    Q_PROPERTY(int hereIndex READ hereIndex NOTIFY hereChanged)

public:
    enum Role {
        KindRole = Qt::UserRole + 1, ///< a `Kind`
        TitleRole,
        CountRole, ///< printed; empty while it is not known
        SymbolRole,
        HereRole,
        DimmedRole,
        ApartRole,
        SpokenRole, ///< name and count, for a screen reader
    };
    enum Kind {
        Heading = static_cast<int>(RailRow::Kind::heading),
        Place = static_cast<int>(RailRow::Kind::place),
        More = static_cast<int>(RailRow::Kind::more),
        Face = static_cast<int>(RailRow::Kind::face),
    };
    Q_ENUM(Kind)
    static constexpr std::size_t placesShown = 3;

    struct Actions {
        /// A face, and what is to be opened on it.
        std::function<void(EditorFace face, const std::string& place)> open;
        /// While the arrows are not the rail's: takes the key, and says whether it is handled.
        std::function<std::optional<bool>(int by)> takeArrow;
    };

    explicit RailModel(Actions actions) : m_actions(std::move(actions)) {}

    /// The rows of one face, for each of them in the order of the rail.
    void show(std::vector<std::pair<EditorFace, std::vector<RailRow>>> faces);

    /// Opens the row's place, or shows all places.
    Q_INVOKABLE void activate(int index);
    /// An arrow key; by is 1 or -1. Gives whether it is handled.
    Q_INVOKABLE bool arrowPress(int by, bool withShift);

    int hereIndex() const;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void hereChanged();

private:
    void rebuild();
    void add(std::vector<RailRow>& rows, EditorFace face, std::vector<RailRow> ofFace) const;
    void move(int by);

    const Actions m_actions;
    std::vector<std::pair<EditorFace, std::vector<RailRow>>> m_faces;
    std::set<EditorFace> m_expanded;
};

} // namespace wendlow
