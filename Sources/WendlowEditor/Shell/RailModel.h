#pragma once

#include "KeyedListModel.h"
#include "Model/EditorRail.h"
#include "Shell/EditorFace.h"

#include <QtQmlIntegration/qqmlintegration.h>

#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace wendlow {

struct RailRow {
    enum class Kind { heading, type, more, face };

    std::string id;
    Kind kind = Kind::heading;
    std::string title;
    std::optional<std::int64_t> count; ///< nothing: not known
    bool dimmed = false;               ///< nothing matched
    bool here = false;

    bool operator==(const RailRow&) const = default;
};

/// What the rail is made of.
struct RailState {
    std::vector<EditorCount> standing; ///< of the whole store
    EditorAnswer answer;
    EditorFace face = EditorFace::memory;
    std::optional<std::string> openType;
    std::optional<std::int64_t> meetings, moments, mods, scopes; ///< nothing: not known
};

/// The places of the window with their counts: the memories as a whole, their types, the other
/// faces. UI thread.
class RailModel final : public KeyedListModel<RailRow> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The root of the window makes it.")
    /// The row that is open, -1 for none.
    Q_PROPERTY(int hereIndex READ hereIndex NOTIFY hereChanged)

public:
    enum Role {
        KindRole = Qt::UserRole + 1, ///< "heading", "type", "more" or "face"
        TitleRole,
        CountRole, ///< printed; empty while it is not known
        SymbolRole,
        HereRole,
        DimmedRole,
        SpokenRole, ///< name and count, for a screen reader
    };
    static constexpr std::size_t memoryTypesShown = 3;

    /// A memory type, or a face.
    using Pick = std::variant<std::string, EditorFace>;

    struct Actions {
        std::function<void(std::optional<std::string> type)> openMemories;
        std::function<void(EditorFace)> openFace;
        /// While a search is on: moves its selection, and says whether the key is handled.
        std::function<std::optional<bool>(int by)> moveSearch;
    };

    explicit RailModel(Actions actions) : m_actions(std::move(actions)) {}

    void show(RailState state);
    /// What the arrows walk: the types in sight, then the faces.
    std::vector<Pick> pickOrder() const;

    /// Opens the row's place, or shows all types.
    Q_INVOKABLE void activate(int index);
    /// An arrow key; by is 1 or -1. Gives whether it is handled.
    Q_INVOKABLE bool arrowPress(int by, bool withShift);
    void move(int by);

    int hereIndex() const;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void hereChanged();

private:
    void rebuild();
    std::vector<TypeShelfRow> shelf() const;
    std::size_t typesShown() const;
    std::optional<std::int64_t> number(EditorFace face) const;
    void apply(const Pick& pick);

    const Actions m_actions;
    RailState m_state;
    bool m_memoriesExpanded = false;
};

} // namespace wendlow
