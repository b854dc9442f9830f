#pragma once

#include "Scopes/EditorScopeMigration.h"

#include <QAbstractListModel>
#include <QtQmlIntegration/qqmlintegration.h>

#include <optional>

namespace wendlow {

/// The moves of a migration, for the table that shows them. They are put into words when they come
/// into sight, so that a table of thousands follows each key. UI thread.
class ScopeMoves final : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The sheet of the scopes makes it.")

public:
    enum Role { FromRole = Qt::UserRole + 1, ToRole };

    explicit ScopeMoves(QObject* parent) : QAbstractListModel(parent) {}

    const std::optional<EditorScopeMigration>& migration() const { return m_migration; }
    void show(std::optional<EditorScopeMigration> migration);
    /// Shows the same moves to somewhere else.
    void redirect(std::string to);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    std::optional<EditorScopeMigration> m_migration;
};

} // namespace wendlow
