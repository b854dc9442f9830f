#pragma once

#include "KeyedListModel.h"
#include "Model/EditorScope.h"

#include <QtQmlIntegration/qqmlintegration.h>

#include <string>
#include <string_view>
#include <vector>

namespace wendlow {

/// A scope in the list of the face.
struct ScopesRow {
    std::string id; ///< its path, but for one that is there twice
    EditorScopeRow scope;

    bool operator==(const ScopesRow&) const = default;
};

/// The scopes of a board. What a row says is put into words when it comes into sight. UI thread.
class ScopesRows final : public KeyedListModel<ScopesRow> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The face of the scopes makes it.")

public:
    enum Role {
        PathRole = Qt::UserRole + 1,
        AboveRole, ///< the part of the path that the scopes above have too, with its slash
        NameRole,  ///< the rest
        DepthRole,
        CountsRole,     ///< what is filed exactly here
        FoldersRole,    ///< those that are always in sight
        AllFoldersRole, ///< all of them
        RestRole,       ///< how many more there are; empty for none
        ToldRole,       ///< what a screen reader hears besides the path
    };

    explicit ScopesRows(QObject* parent) : KeyedListModel(parent) {}

    void show(const std::vector<EditorScopeRow>& board);
    /// -1: there is none.
    int indexOf(std::string_view path) const;

    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;
};

} // namespace wendlow
