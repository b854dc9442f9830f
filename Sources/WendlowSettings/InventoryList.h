#pragma once

#include "Inventory.h"
#include "InventoryWords.h"

#include <QAbstractListModel>
#include <QByteArray>
#include <QDate>
#include <QHash>
#include <QString>
#include <QtQmlIntegration/qqmlintegration.h>

#include <vector>

namespace wendlow {

/// One table of an inventory. UI thread.
///
/// A long table shows its first lines until the person asks for all of them. A line is worded when
/// it is asked for, so that a table of many thousands costs what the lines in sight cost. A new
/// state changes only the lines that differ, and so the place to which a person has scrolled stays.
class InventoryList final : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("An inventory makes its tables.")

    /// Lines altogether, those that are not shown included.
    Q_PROPERTY(int total READ total NOTIFY lengthChanged)
    Q_PROPERTY(bool whole READ isWhole NOTIFY lengthChanged)
    /// What the button below the table says; empty: it needs none.
    Q_PROPERTY(QString toggleWords READ toggleWords NOTIFY lengthChanged)

public:
    enum Role {
        PathRole = Qt::UserRole + 1, ///< the whole of it
        ShownPathRole,
        FactsRole,
        FactsHintRole,
        DayRole,
        DayHintRole,
        SpokenRole,
    };

    explicit InventoryList(InventoryWords words, QObject* parent = nullptr);

    void show(std::vector<InventoryEntry> entries);
    /// Shows all lines of a long table, or only the first again.
    Q_INVOKABLE void toggle();
    /// Back to the first lines.
    void fold();

    int total() const { return static_cast<int>(m_entries.size()); }
    bool isWhole() const { return m_whole; }
    QString toggleWords() const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void lengthChanged();

private:
    bool isLong(std::size_t lines) const;
    int shownOf(std::size_t lines) const;
    void setWhole(bool whole);
    void refreshDays();
    QDate today() const;

    const InventoryWords m_words;
    std::vector<InventoryEntry> m_entries;
    int m_shown = 0;
    bool m_whole = false;
    QDate m_wordedOn; ///< the day on which the lines were last worded
};

} // namespace wendlow
