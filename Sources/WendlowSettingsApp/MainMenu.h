#pragma once

#include "Shortcuts.h"

#include <QObject>
#include <QString>
#include <QVariantList>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace wendlow {

/// One line of a menu. An empty title is a separator.
struct MenuLine {
    QString id; ///< the name of its action
    QString title;
    std::optional<Shortcuts::Id> keys; ///< left out: it has none
    std::function<void()> act;
    std::function<bool()> enabled = nullptr; ///< left out: always
    std::function<bool()> checked = nullptr; ///< left out: the line has no tick

    /// A line that has keys, and the words that go with them.
    static MenuLine of(Shortcuts::Id keys, const char* id, std::function<void()> act);
};

struct MenuDescription {
    QString id;
    QString title;
    std::vector<MenuLine> lines;
};

/// The application's menus, which every window shows as its menu bar, and their key equivalents,
/// which work in every window. UI thread.
class MainMenu final : public QObject {
    Q_OBJECT
    /// A list of maps with `id`, `title`, `mnemonic` and `items`; an item is a map with `id`,
    /// `title`, `mnemonic`, `shortcut`, `enabled`, `checkable`, `checked` and `separator`. What is
    /// enabled and ticked is found out when the property is read. A mnemonic is the place in the
    /// title of the letter that stands for it, a different one for each of its neighbours; -1 where
    /// there is none left.
    Q_PROPERTY(QVariantList menus READ menus NOTIFY menusChanged)

public:
    explicit MainMenu(QObject* parent = nullptr);
    ~MainMenu() override;

    /// `index` counts from 0 and is at most the number of menus; nothing may have the menu's id
    /// yet.
    void insert(std::size_t index, MenuDescription menu);
    /// An id that is not there changes nothing.
    void remove(const QString& id);
    bool contains(const QString& id) const;

    QVariantList menus() const;
    /// Does the line's action, unless it is disabled or unknown.
    Q_INVOKABLE void trigger(const QString& menu, const QString& line);

Q_SIGNALS:
    void menusChanged();

private:
    struct Entry;

    std::vector<std::unique_ptr<Entry>> m_entries;
};

} // namespace wendlow
