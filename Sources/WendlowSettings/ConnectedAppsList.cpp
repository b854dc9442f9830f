#include "ConnectedAppsList.h"

#include "RowStory.h"
#include "ShownPath.h"

#include <algorithm>

namespace wendlow {

namespace {

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

template<class Kind> QString iconName(const ConnectableApp& app) {
    const auto* const kind = std::get_if<Kind>(&app.icon.kind);
    return kind ? text(kind->name) : QString();
}

QList<int> changedRoles(const ConnectedAppRow& before, const ConnectedAppRow& after) {
    using List = ConnectedAppsList;
    QList<int> roles;
    const auto compare = [&roles](bool same, std::initializer_list<int> concerned) {
        if (!same)
            roles.append(QList<int>(concerned));
    };
    compare(before.app.name == after.app.name, {List::NameRole, Qt::DisplayRole});
    compare(before.app.detail == after.app.detail, {List::DetailRole});
    compare(before.app.icon == after.app.icon, {List::IconAssetRole, List::IconGlyphRole});
    compare(before.app.connected == after.app.connected, {List::ConnectedRole});
    compare(before.app.busy == after.app.busy, {List::BusyRole});
    compare(before.drifted == after.drifted, {List::DriftedRole});
    compare(before.open == after.open, {List::OpenRole});
    compare(before.strips == after.strips, {List::StripsRole});
    compare(before.changes == after.changes, {List::ChangesRole});
    compare(before.changesTitle == after.changesTitle, {List::ChangesTitleRole});
    compare(before.notes == after.notes, {List::NotesRole});
    return roles;
}

} // namespace

ConnectedAppsList::ConnectedAppsList(const std::filesystem::path& home, QObject* parent)
    : QAbstractListModel(parent), m_home(home.string()) {}

void ConnectedAppsList::show(const std::vector<ConnectedAppRow>& rows) {
    removeGone(rows);
    for (int row = 0; row < static_cast<int>(rows.size()); ++row)
        place(row, rows[static_cast<std::size_t>(row)]);
}

void ConnectedAppsList::removeGone(const std::vector<ConnectedAppRow>& wanted) {
    for (int row = static_cast<int>(m_rows.size()) - 1; row >= 0; --row) {
        const auto here = m_rows.begin() + row;
        const bool stays = std::ranges::any_of(
            wanted, [&](const ConnectedAppRow& other) { return other.app.id == here->app.id; });
        if (stays)
            continue;
        beginRemoveRows({}, row, row);
        m_rows.erase(here);
        endRemoveRows();
    }
}

void ConnectedAppsList::place(int row, const ConnectedAppRow& wanted) {
    const auto target = m_rows.begin() + row;
    const auto here = std::find_if(target, m_rows.end(), [&](const ConnectedAppRow& other) {
        return other.app.id == wanted.app.id;
    });
    if (here == m_rows.end()) {
        beginInsertRows({}, row, row);
        m_rows.insert(target, wanted);
        endInsertRows();
        return;
    }
    if (here != target) {
        const int from = static_cast<int>(here - m_rows.begin());
        beginMoveRows({}, from, from, {}, row);
        std::rotate(target, here, here + 1);
        endMoveRows();
    }
    update(row, wanted);
}

void ConnectedAppsList::update(int row, const ConnectedAppRow& wanted) {
    ConnectedAppRow& here = m_rows[static_cast<std::size_t>(row)];
    const QList<int> roles = changedRoles(here, wanted);
    if (roles.isEmpty())
        return;
    here = wanted;
    Q_EMIT dataChanged(index(row), index(row), roles);
}

int ConnectedAppsList::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant ConnectedAppsList::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const ConnectedAppRow& row = m_rows[static_cast<std::size_t>(index.row())];
    switch (role) {
    case AppIdRole:
        return text(row.app.id);
    case Qt::DisplayRole:
    case NameRole:
        return text(row.app.name);
    case DetailRole:
        return text(row.app.detail);
    case IconAssetRole:
        return iconName<ConnectableAppIcon::Asset>(row.app);
    case IconGlyphRole:
        return iconName<ConnectableAppIcon::Glyph>(row.app);
    case ConnectedRole:
        return row.app.connected;
    case BusyRole:
        return row.app.busy;
    case DriftedRole:
        return row.drifted;
    case OpenRole:
        return row.open;
    case StripsRole:
        return strips(row);
    case ChangesRole:
        return notes(row.changes);
    case ChangesTitleRole:
        return text(row.changesTitle);
    case NotesRole:
        return notes(row.notes);
    case InventoryRole:
        return QVariant::fromValue(row.inventory);
    default:
        return {};
    }
}

QHash<int, QByteArray> ConnectedAppsList::roleNames() const {
    return {{AppIdRole, "appId"},         {NameRole, "name"},
            {DetailRole, "detail"},       {IconAssetRole, "iconAsset"},
            {IconGlyphRole, "iconGlyph"}, {ConnectedRole, "connected"},
            {BusyRole, "busy"},           {DriftedRole, "drifted"},
            {OpenRole, "open"},           {StripsRole, "strips"},
            {ChangesRole, "changes"},     {ChangesTitleRole, "changesTitle"},
            {NotesRole, "notes"},         {InventoryRole, "inventory"}};
}

QVariantList ConnectedAppsList::notes(const std::vector<ConnectableAppNote>& list) const {
    QVariantList maps;
    for (const ConnectableAppNote& note : list) {
        maps.append(
            QVariantMap{{QStringLiteral("text"), text(note.text)},
                        {QStringLiteral("subject"), text(note.subject)},
                        {QStringLiteral("shownSubject"), text(shownPath(note.subject, m_home))},
                        {QStringLiteral("place"), text(note.place)}});
    }
    return maps;
}

QVariantList ConnectedAppsList::strips(const ConnectedAppRow& row) const {
    QVariantList maps;
    for (const RowStrip& strip : row.strips) {
        const auto aboutPath = std::ranges::find_if(
            strip.lines, [](const ConnectableAppNote& line) { return !line.subject.empty(); });
        const std::string path = aboutPath == strip.lines.end() ? "" : aboutPath->subject;
        QVariantList actions;
        for (const RowAction action : strip.actions) {
            actions.append(QVariantMap{
                {QStringLiteral("action"), static_cast<int>(action)},
                {QStringLiteral("words"), text(RowStory::label(action))},
                {QStringLiteral("hint"), text(RowStory::hint(action, row.app.name, path))}});
        }
        maps.append(QVariantMap{{QStringLiteral("tone"), static_cast<int>(strip.tone)},
                                {QStringLiteral("headline"), text(strip.headline)},
                                {QStringLiteral("lines"), notes(strip.lines)},
                                {QStringLiteral("path"), text(path)},
                                {QStringLiteral("actions"), actions}});
    }
    return maps;
}

} // namespace wendlow

#include "moc_ConnectedAppsList.cpp"
