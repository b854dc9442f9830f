#pragma once

#include "KeyedListModel.h"

#include <QtQmlIntegration/qqmlintegration.h>

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace wendlow {

struct ScopeChoice {
    std::string id; ///< the path; empty for all scopes
    int depth = 0;
    bool picked = false;

    bool operator==(const ScopeChoice&) const = default;
};

/// The bar over the stage: its scope chip, and the lines of the chip's menu. UI thread.
class EditorFaceBarModel final : public KeyedListModel<ScopeChoice> {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The root of the window makes it.")
    Q_PROPERTY(QString label READ label NOTIFY labelChanged)
    /// Whether any scope is picked.
    Q_PROPERTY(bool narrowed READ narrowed NOTIFY labelChanged)
    /// Whether the chip's menu is open.
    Q_PROPERTY(bool pickerOpen READ pickerOpen WRITE setPickerOpen NOTIFY pickerOpenChanged)

public:
    enum Role {
        TitleRole = Qt::UserRole + 1,
        DepthRole, ///< 0 for the root and for all scopes
        PickedRole,
    };
    using Scopes = std::set<std::string>;

    struct Actions {
        std::function<void(Scopes)> pick;
        std::function<void()> manageScopes;
    };

    explicit EditorFaceBarModel(Actions actions) : m_actions(std::move(actions)) {}

    /// `paths` are those of the scope tree in the order of a walk.
    void show(const std::vector<std::string>& paths, const Scopes& picked);

    QString label() const;
    bool narrowed() const { return !m_picked.empty(); }
    bool pickerOpen() const { return m_pickerOpen; }
    void setPickerOpen(bool open);
    /// Makes a line of the menu the one choice and closes the menu.
    Q_INVOKABLE void choose(int index);
    Q_INVOKABLE void manageScopes();
    /// Where the menu begins: at what is picked.
    Q_INVOKABLE int pickedIndex() const;
    /// The line, from this one on and around, a part of whose path begins with what is typed; -1
    /// for none.
    Q_INVOKABLE int lineFor(const QString& typed, int from) const;

    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void labelChanged();
    void pickerOpenChanged();

private:
    const Actions m_actions;
    Scopes m_picked;
    bool m_pickerOpen = false;
};

} // namespace wendlow
