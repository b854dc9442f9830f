#include "Shell/EditorFaceBarModel.h"

#include "Floor/RowText.h"
#include "Say.h"

#include <algorithm>
#include <utility>

namespace wendlow {

namespace {

int depthOf(const std::string& path) {
    return path == "/" ? 0 : static_cast<int>(std::ranges::count(path, '/'));
}

} // namespace

void EditorFaceBarModel::show(const std::vector<std::string>& paths, const Scopes& picked) {
    std::vector<ScopeChoice> lines;
    lines.reserve(paths.size() + 1);
    lines.push_back({.id = {}, .picked = picked.empty()});
    for (const std::string& path : paths)
        lines.push_back({.id = path, .depth = depthOf(path), .picked = picked.contains(path)});
    if (lines != rows())
        take(std::move(lines));
    if (std::exchange(m_picked, picked) != picked)
        Q_EMIT labelChanged();
}

QString EditorFaceBarModel::label() const {
    if (m_picked.empty())
        return QStringLiteral("/");
    if (m_picked.size() == 1)
        return RowText::line(*m_picked.begin());
    const auto count = std::ssize(m_picked);
    return say.plural(count, "{} scope", "{} scopes", count);
}

void EditorFaceBarModel::setPickerOpen(bool open) {
    if (std::exchange(m_pickerOpen, open) != open)
        Q_EMIT pickerOpenChanged();
}

void EditorFaceBarModel::choose(int index) {
    if (!holds(index))
        return;
    const std::string path = row(index).id;
    setPickerOpen(false);
    m_actions.pick(path.empty() ? Scopes() : Scopes{path});
}

void EditorFaceBarModel::manageScopes() {
    setPickerOpen(false);
    m_actions.manageScopes();
}

int EditorFaceBarModel::pickedIndex() const {
    const auto found = std::ranges::find(rows(), true, &ScopeChoice::picked);
    return found == rows().end() ? 0 : static_cast<int>(found - rows().begin());
}

int EditorFaceBarModel::lineFor(const QString& typed, int from) const {
    const auto begins = [&typed](const ScopeChoice& line) {
        const QStringList parts = QString::fromStdString(line.id).split(u'/', Qt::SkipEmptyParts);
        return std::ranges::any_of(parts, [&](const QString& part) {
            return part.startsWith(typed, Qt::CaseInsensitive);
        });
    };
    for (int step = 0; step < rowCount(); ++step)
        if (const int at = (from + step) % rowCount(); begins(row(at)))
            return at;
    return -1;
}

QVariant EditorFaceBarModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const ScopeChoice& here = row(index.row());
    switch (role) {
    case Qt::DisplayRole:
    case TitleRole:
        return here.id.empty() ? say("(all scopes)") : RowText::line(here.id);
    case DepthRole:
        return here.depth;
    case PickedRole:
        return here.picked;
    default:
        return {};
    }
}

QHash<int, QByteArray> EditorFaceBarModel::roleNames() const {
    return {{TitleRole, "title"}, {DepthRole, "depth"}, {PickedRole, "picked"}};
}

} // namespace wendlow

#include "moc_EditorFaceBarModel.cpp"
