#include "MainMenu.h"

#include <QShortcut>

#include <algorithm>
#include <utility>

namespace wendlow {

struct MainMenu::Entry {
    MenuDescription menu;
    std::vector<std::unique_ptr<QShortcut>> shortcuts;
};

namespace {

bool isEnabled(const MenuLine& line) {
    return !line.enabled || line.enabled();
}

void trigger(const MenuLine& line) {
    if (line.act && isEnabled(line))
        line.act();
}

/// Hands each title its first letter that none before it has.
class Mnemonics {
public:
    int placeIn(const QString& title) {
        for (int at = 0; at < title.size(); ++at) {
            const QChar letter = title.at(at).toLower();
            if (!letter.isLetter() || m_taken.contains(letter))
                continue;
            m_taken.append(letter);
            return at;
        }
        return -1;
    }

private:
    QString m_taken;
};

QVariantMap shown(const MenuLine& line, Mnemonics& mnemonics) {
    return {{QStringLiteral("id"), line.id},
            {QStringLiteral("title"), line.title},
            {QStringLiteral("mnemonic"), mnemonics.placeIn(line.title)},
            {QStringLiteral("shortcut"), line.keys ? Shortcuts::told(*line.keys) : QString()},
            {QStringLiteral("enabled"), isEnabled(line)},
            {QStringLiteral("checkable"), static_cast<bool>(line.checked)},
            {QStringLiteral("checked"), line.checked && line.checked()},
            {QStringLiteral("separator"), line.title.isEmpty()}};
}

} // namespace

MenuLine MenuLine::of(Shortcuts::Id keys, const char* id, std::function<void()> act) {
    return {.id = QString::fromLatin1(id),
            .title = Shortcuts::title(keys),
            .keys = keys,
            .act = std::move(act)};
}

MainMenu::MainMenu(QObject* parent) : QObject(parent) {}

MainMenu::~MainMenu() = default;

void MainMenu::insert(std::size_t index, MenuDescription menu) {
    auto entry = std::make_unique<Entry>();
    entry->menu = std::move(menu);
    for (const MenuLine& line : entry->menu.lines) {
        if (!line.keys)
            continue;
        auto& shortcut = entry->shortcuts.emplace_back(std::make_unique<QShortcut>(this));
        shortcut->setKeys(Shortcuts::keys(*line.keys));
        shortcut->setContext(Qt::ApplicationShortcut);
        shortcut->setAutoRepeat(false);
        connect(shortcut.get(), &QShortcut::activated, this,
                [this, menuId = entry->menu.id, lineId = line.id] { trigger(menuId, lineId); });
    }
    m_entries.insert(m_entries.begin() + static_cast<std::ptrdiff_t>(index), std::move(entry));
    Q_EMIT menusChanged();
}

void MainMenu::remove(const QString& id) {
    if (std::erase_if(m_entries, [&id](const auto& entry) { return entry->menu.id == id; }) > 0)
        Q_EMIT menusChanged();
}

bool MainMenu::contains(const QString& id) const {
    return std::ranges::any_of(m_entries,
                               [&id](const auto& entry) { return entry->menu.id == id; });
}

QVariantList MainMenu::menus() const {
    QVariantList list;
    Mnemonics ofTitles;
    for (const auto& entry : m_entries) {
        QVariantList items;
        Mnemonics ofLines;
        for (const MenuLine& line : entry->menu.lines)
            items.append(shown(line, ofLines));
        list.append(QVariantMap{{QStringLiteral("id"), entry->menu.id},
                                {QStringLiteral("title"), entry->menu.title},
                                {QStringLiteral("mnemonic"), ofTitles.placeIn(entry->menu.title)},
                                {QStringLiteral("items"), items}});
    }
    return list;
}

void MainMenu::trigger(const QString& menu, const QString& line) {
    for (const auto& entry : m_entries) {
        if (entry->menu.id != menu)
            continue;
        for (const MenuLine& candidate : entry->menu.lines) {
            if (candidate.id != line)
                continue;
            // The action may take this very menu away, and its line with it.
            const MenuLine kept = candidate;
            return wendlow::trigger(kept);
        }
    }
}

} // namespace wendlow

#include "moc_MainMenu.cpp"
