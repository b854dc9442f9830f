#include "Scopes/ScopeMoves.h"

#include "Floor/RowText.h"

#include <utility>

namespace wendlow {

void ScopeMoves::show(std::optional<EditorScopeMigration> migration) {
    beginResetModel();
    m_migration = std::move(migration);
    endResetModel();
}

void ScopeMoves::redirect(std::string to) {
    if (!m_migration || m_migration->to() == to)
        return;
    m_migration->redirect(std::move(to));
    if (rowCount() > 0)
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), {ToRole});
}

int ScopeMoves::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || !m_migration ? 0 : static_cast<int>(m_migration->affected.size());
}

QVariant ScopeMoves::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const auto at = static_cast<std::size_t>(index.row());
    switch (role) {
    case Qt::DisplayRole:
    case FromRole:
        return RowText::line(m_migration->affected[at].path);
    case ToRole:
        return RowText::line(m_migration->destinations[at]);
    default:
        return {};
    }
}

QHash<int, QByteArray> ScopeMoves::roleNames() const {
    return {{FromRole, "from"}, {ToRole, "to"}};
}

} // namespace wendlow

#include "moc_ScopeMoves.cpp"
