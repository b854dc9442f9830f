#include "Meetings/TranscriptLines.h"

#include "Floor/RowText.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace wendlow {

namespace {

using Line = EditorTranscript::Line;
using Ids = std::vector<std::int64_t>;

Ids idsOf(const std::vector<Line>& lines) {
    Ids ids(lines.size());
    std::ranges::transform(lines, ids.begin(), &Line::id);
    return ids;
}

Ids sorted(Ids ids) {
    std::ranges::sort(ids);
    return ids;
}

/// Of these, in their order, those that are among the others.
Ids among(const Ids& ids, const Ids& sortedOthers) {
    Ids both;
    std::ranges::copy_if(ids, std::back_inserter(both), [&](std::int64_t id) {
        return std::ranges::binary_search(sortedOthers, id);
    });
    return both;
}

bool isUnique(const Ids& sortedIds) {
    return std::ranges::adjacent_find(sortedIds) == sortedIds.end();
}

} // namespace

void TranscriptLines::open(std::vector<Line> lines) {
    beginResetModel();
    m_lines = std::move(lines);
    endResetModel();
}

void TranscriptLines::refresh(std::vector<Line> lines) {
    const Ids before = idsOf(m_lines), now = idsOf(lines);
    const Ids sortedBefore = sorted(before), sortedNow = sorted(now);
    // Rows stand in the order of time and are numbered once; where that does not hold, nobody can
    // say which line is which.
    if (!isUnique(sortedBefore) || !isUnique(sortedNow) ||
        among(before, sortedNow) != among(now, sortedBefore)) {
        open(std::move(lines));
        return;
    }
    removeUnless(sortedNow);
    insertMissing(lines);
    for (std::size_t at = 0; at < lines.size(); ++at) {
        if (m_lines[at] == lines[at])
            continue;
        m_lines[at] = std::move(lines[at]);
        const QModelIndex changed = index(static_cast<int>(at));
        Q_EMIT dataChanged(changed, changed);
    }
}

/// From the end, in runs.
void TranscriptLines::removeUnless(const Ids& sortedIds) {
    const auto stays = [&](int at) { return std::ranges::binary_search(sortedIds, line(at).id); };
    for (int last = rowCount() - 1; last >= 0; --last) {
        int first = last + 1;
        while (first > 0 && !stays(first - 1))
            --first;
        if (first > last)
            continue;
        beginRemoveRows({}, first, last);
        m_lines.erase(m_lines.begin() + first, m_lines.begin() + last + 1);
        endRemoveRows();
        last = first;
    }
}

/// What is here stands among `lines` in the same order.
void TranscriptLines::insertMissing(std::vector<Line>& lines) {
    const int count = static_cast<int>(lines.size());
    for (int at = 0; at < count; ++at) {
        const auto isHere = [&](int next) {
            return holds(at) && line(at).id == lines[static_cast<std::size_t>(next)].id;
        };
        int end = at;
        while (end < count && !isHere(end))
            ++end;
        if (end == at)
            continue;
        beginInsertRows({}, at, end - 1);
        m_lines.insert(m_lines.begin() + at, lines.begin() + at, lines.begin() + end);
        endInsertRows();
        at = end - 1;
    }
}

void TranscriptLines::remove(std::int64_t id) {
    for (int at = rowCount() - 1; at >= 0; --at) {
        if (line(at).id != id)
            continue;
        beginRemoveRows({}, at, at);
        m_lines.erase(m_lines.begin() + at);
        endRemoveRows();
    }
}

void TranscriptLines::setErasing(Rows ids) {
    const Rows before = std::exchange(m_erasing, std::move(ids));
    for (int at = 0; before != m_erasing && at < rowCount(); ++at) {
        const std::int64_t id = line(at).id;
        if (before.contains(id) != m_erasing.contains(id))
            Q_EMIT dataChanged(index(at), index(at), {ErasingRole});
    }
}

int TranscriptLines::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_lines.size());
}

QVariant TranscriptLines::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const Line& here = line(index.row());
    switch (role) {
    case SpeakerRole:
        return RowText::line(here.speaker);
    case Qt::DisplayRole:
    case WordsRole:
        return RowText::plain(here.text);
    case ErasingRole:
        return isErasing(here.id);
    default:
        return {};
    }
}

QHash<int, QByteArray> TranscriptLines::roleNames() const {
    return {{SpeakerRole, "speaker"}, {WordsRole, "words"}, {ErasingRole, "erasing"}};
}

} // namespace wendlow

#include "moc_TranscriptLines.cpp"
