#pragma once

#include <QAbstractListModel>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace wendlow {

/// Rows for a list view, each known by its `id`. A new state is taken over by the smallest change
/// there is (removed, moved, inserted, changed) and never by a reset: a reset would build every
/// row anew under the person's pointer and lose the keyboard focus. UI thread.
template<class Row> class KeyedListModel : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    const std::vector<Row>& rows() const { return m_rows; }
    const Row& row(int index) const { return m_rows[static_cast<std::size_t>(index)]; }
    bool holds(int index) const { return index >= 0 && index < size(m_rows); }

    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : size(m_rows);
    }

protected:
    /// Shows these rows from now on. Of rows with one id the later ones get another.
    void take(std::vector<Row> wanted) {
        // A move costs a view a walk over all its rows. Where a whole list changes its order nobody
        // follows a single row, so that those that are astray are taken out and put in again.
        constexpr std::size_t mostMoves = 24;
        m_ids.clear();
        Ids seen;
        seen.reserve(wanted.size());
        makeUnique(wanted, seen);
        removeUnless([stay = ids(wanted)](const Row& row) { return stay.contains(row.id); });
        Ids astray = idsAstray(wanted);
        if (astray.size() > mostMoves) {
            removeUnless([&astray](const Row& row) { return !astray.contains(row.id); });
            astray.clear();
        }
        const Ids here = ids(m_rows);
        for (int at = 0; at < size(wanted);)
            at = here.contains(wanted[static_cast<std::size_t>(at)].id)
                     ? place(at, wanted, astray)
                     : insertRun(at, wanted, here);
    }
    /// Shows these behind the rows that are there, which are not looked at.
    void append(std::vector<Row> rows) {
        if (rows.empty())
            return;
        if (m_ids.empty())
            m_ids = ids(m_rows);
        makeUnique(rows, m_ids);
        beginInsertRows({}, size(m_rows), size(m_rows) + size(rows) - 1);
        m_rows.insert(m_rows.end(), std::make_move_iterator(rows.begin()),
                      std::make_move_iterator(rows.end()));
        endInsertRows();
    }
    /// Shows this in place of the row of this index, whose id it keeps.
    void change(int at, Row row) {
        Row& current = m_rows[static_cast<std::size_t>(at)];
        row.id = current.id;
        if (current == row)
            return;
        const QList<int> roles = changedRoles(current, row);
        current = std::move(row);
        Q_EMIT dataChanged(index(at), index(at), roles);
    }
    /// Which roles of a row read differently now; none: all of them.
    virtual QList<int> changedRoles(const Row& /*before*/, const Row& /*after*/) const {
        return {};
    }

private:
    using Ids = std::unordered_set<std::string>;

    static int size(const std::vector<Row>& rows) { return static_cast<int>(rows.size()); }

    static Ids ids(const std::vector<Row>& rows) {
        Ids all;
        all.reserve(rows.size());
        for (const Row& row : rows)
            all.insert(row.id);
        return all;
    }

    static void makeUnique(std::vector<Row>& rows, Ids& seen) {
        for (Row& row : rows)
            while (!seen.insert(row.id).second)
                row.id += '\'';
    }

    template<class Stays> void removeUnless(const Stays& stays) {
        for (int last = size(m_rows) - 1; last >= 0; --last) {
            int first = last + 1;
            while (first > 0 && !stays(row(first - 1)))
                --first;
            if (first > last)
                continue;
            beginRemoveRows({}, first, last);
            m_rows.erase(m_rows.begin() + first, m_rows.begin() + last + 1);
            endRemoveRows();
            last = first;
        }
    }

    /// The fewest rows that have to go elsewhere for the rest to be in order: all but a longest
    /// rising run of places.
    Ids idsAstray(const std::vector<Row>& wanted) const {
        std::unordered_map<std::string_view, std::size_t> places;
        for (std::size_t at = 0; at < wanted.size(); ++at)
            places.emplace(wanted[at].id, at);
        std::vector<std::size_t> ends;                  // of the best run of each length: its row
        std::vector<std::size_t> before(m_rows.size()); // of each row in its best run
        const auto placeOf = [&](std::size_t at) { return places.at(m_rows[at].id); };
        for (std::size_t at = 0; at < m_rows.size(); ++at) {
            const auto longer = std::ranges::lower_bound(ends, placeOf(at), {}, placeOf);
            before[at] = longer == ends.begin() ? at : *(longer - 1);
            if (longer == ends.end())
                ends.push_back(at);
            else
                *longer = at;
        }
        Ids astray = ids(m_rows);
        for (std::size_t left = ends.size(), at = ends.empty() ? 0 : ends.back(); left > 0;
             --left) {
            astray.erase(m_rows[at].id);
            at = before[at];
        }
        return astray;
    }

    void move(int from, int to) {
        beginMoveRows({}, from, from, {}, to > from ? to + 1 : to);
        const auto first = m_rows.begin();
        if (from < to)
            std::rotate(first + from, first + from + 1, first + to + 1);
        else
            std::rotate(first + to, first + from, first + from + 1);
        endMoveRows();
    }

    /// Brings the row of this place here, and what it shows up to date. Gives the next place.
    int place(int at, std::vector<Row>& wanted, const Ids& astray) {
        Row& next = wanted[static_cast<std::size_t>(at)];
        while (row(at).id != next.id) {
            // What stands in the way of a row that stays goes to the end until its turn comes.
            const auto found =
                std::ranges::find(m_rows.begin() + at, m_rows.end(), next.id, &Row::id);
            if (astray.contains(next.id))
                move(static_cast<int>(found - m_rows.begin()), at);
            else
                move(at, size(m_rows) - 1);
        }
        change(at, std::move(next));
        return at + 1;
    }

    int insertRun(int at, std::vector<Row>& wanted, const Ids& here) {
        int end = at + 1;
        while (end < size(wanted) && !here.contains(wanted[static_cast<std::size_t>(end)].id))
            ++end;
        beginInsertRows({}, at, end - 1);
        m_rows.insert(m_rows.begin() + at, std::make_move_iterator(wanted.begin() + at),
                      std::make_move_iterator(wanted.begin() + end));
        endInsertRows();
        return end;
    }

    std::vector<Row> m_rows;
    Ids m_ids; ///< of all rows where they have been appended to; else none
};

} // namespace wendlow
