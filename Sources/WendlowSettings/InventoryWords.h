#pragma once

#include "Inventory.h"

#include <QLocale>
#include <QString>

#include <functional>
#include <string>

namespace wendlow {

/// How the lines of an inventory are worded for one person. Plain value; any thread.
struct InventoryWords {
    std::string home; ///< shown as "~"; empty: nothing is
    QLocale locale;
    std::function<FileDate()> now; ///< decides what is "Today"

    QString path(const InventoryEntry& entry) const;
    /// A size, or a project's memory file and its size; empty where neither is known.
    QString facts(const InventoryEntry& entry) const;
    /// The whole path of a project's memory file and when it was changed; empty without one.
    QString factsHint(const InventoryEntry& entry) const;
    /// A short day; "Unknown" without a date.
    QString day(const InventoryEntry& entry) const;
    /// The whole date; empty without one.
    QString dayHint(const InventoryEntry& entry) const;
    /// Everything about the line but its path, for a screen reader.
    QString spoken(const InventoryEntry& entry) const;
    /// What unfolds a table of so many lines.
    QString showAll(std::size_t lines) const;

private:
    /// At least "1 KB" for what is not empty: single bytes say nothing in a column of files.
    QString size(std::int64_t bytes) const;
};

} // namespace wendlow
