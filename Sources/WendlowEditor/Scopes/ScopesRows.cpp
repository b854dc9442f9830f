#include "Scopes/ScopesRows.h"

#include "Floor/RowText.h"
#include "Model/EditorRail.h"
#include "Say.h"

#include <QStringList>

#include <algorithm>
#include <utility>

#include <fmt/format.h>

namespace wendlow {

namespace {

/// As many folders as a row shows of a scope that is not selected, if there are more than one
/// beyond.
constexpr std::ptrdiff_t fewFolders = 3;

bool isCut(const EditorScopeRow& scope) {
    return std::ssize(scope.folders) > fewFolders + 1;
}

QStringList folders(const EditorScopeRow& scope, std::ptrdiff_t most) {
    QStringList all;
    for (std::ptrdiff_t at = 0; at < std::min(most, std::ssize(scope.folders)); ++at)
        all.append(RowText::line(scope.folders[static_cast<std::size_t>(at)]));
    return all;
}

QString counts(const EditorScopeRow& scope, const QString& between) {
    QStringList all;
    for (const EditorCount& kind : scope.kinds)
        all.append(RowText::line(fmt::format(
            "{} {}", kind.count, kind.count == 1 ? kind.name : TypeWords::pluralized(kind.name))));
    return all.join(between);
}

/// Where the last piece of a path begins.
std::size_t nameAt(std::string_view path) {
    const auto slash = path.rfind('/');
    return slash == std::string_view::npos || slash + 1 == path.size() ? 0 : slash + 1;
}

QString rest(std::ptrdiff_t number) {
    return RowText::plain(say.plural(number, "and {} more folder", "and {} more folders", number));
}

QString told(const EditorScopeRow& scope) {
    QStringList parts;
    parts.append(scope.kinds.empty() ? RowText::plain(say("nothing filed here"))
                                     : counts(scope, QStringLiteral(", ")));
    parts += folders(scope, std::ssize(scope.folders));
    return parts.join(QStringLiteral(", "));
}

} // namespace

void ScopesRows::show(const std::vector<EditorScopeRow>& board) {
    std::vector<ScopesRow> rows;
    rows.reserve(board.size());
    for (const EditorScopeRow& scope : board)
        rows.push_back({.id = scope.path, .scope = scope});
    take(std::move(rows));
}

int ScopesRows::indexOf(std::string_view path) const {
    const auto found = std::ranges::find(rows(), path, &ScopesRow::id);
    return found == rows().end() ? -1 : static_cast<int>(found - rows().begin());
}

QVariant ScopesRows::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const EditorScopeRow& scope = row(index.row()).scope;
    const std::string_view path = scope.path;
    switch (role) {
    case Qt::DisplayRole:
    case PathRole:
        return RowText::line(path);
    case AboveRole:
        return RowText::line(path.substr(0, nameAt(path)));
    case NameRole:
        return RowText::line(path.substr(nameAt(path)));
    case DepthRole:
        return static_cast<int>(scope.depth());
    case CountsRole:
        return counts(scope, QStringLiteral(" · "));
    case FoldersRole:
        return folders(scope, isCut(scope) ? fewFolders : std::ssize(scope.folders));
    case AllFoldersRole:
        return folders(scope, std::ssize(scope.folders));
    case RestRole:
        return isCut(scope) ? rest(std::ssize(scope.folders) - fewFolders) : QString();
    case ToldRole:
        return told(scope);
    default:
        return {};
    }
}

QHash<int, QByteArray> ScopesRows::roleNames() const {
    return {{PathRole, "path"},
            {AboveRole, "above"},
            {NameRole, "name"},
            {DepthRole, "depth"},
            {CountsRole, "counts"},
            {FoldersRole, "folders"},
            {AllFoldersRole, "allFolders"},
            {RestRole, "rest"},
            {ToldRole, "told"}};
}

} // namespace wendlow

#include "moc_ScopesRows.cpp"
