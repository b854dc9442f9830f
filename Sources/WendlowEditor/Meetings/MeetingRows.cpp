#include "Meetings/MeetingRows.h"

#include "Floor/RowText.h"
#include "Meetings/MeetingLabels.h"

#include <algorithm>
#include <utility>

namespace wendlow {

namespace {

std::string under(const EditorMeeting& meeting) {
    const std::string span = MeetingLabels::span(meeting);
    return span + (span.empty() ? "" : " · ") + MeetingLabels::who(meeting.speakers);
}

} // namespace

void MeetingRows::show(const std::vector<EditorMeeting>& meetings) {
    std::vector<MeetingRow> rows;
    rows.reserve(meetings.size());
    for (const EditorMeeting& meeting : meetings)
        rows.push_back({.id = meeting.id, .meeting = meeting});
    take(std::move(rows));
}

int MeetingRows::indexOf(std::string_view id) const {
    const auto found = std::ranges::find(rows(), id, &MeetingRow::id);
    return found == rows().end() ? -1 : static_cast<int>(found - rows().begin());
}

QVariant MeetingRows::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const EditorMeeting& meeting = row(index.row()).meeting;
    switch (role) {
    case Qt::DisplayRole:
    case TitleRole:
        return RowText::line(MeetingLabels::title(meeting));
    case UnderRole:
        return RowText::line(under(meeting));
    case CountRole:
        return RowText::line(MeetingLabels::lines(meeting.lines));
    case TipRole:
        return RowText::tip(MeetingLabels::title(meeting) + " — " + under(meeting));
    default:
        return {};
    }
}

QHash<int, QByteArray> MeetingRows::roleNames() const {
    return {{TitleRole, "title"}, {UnderRole, "under"}, {CountRole, "number"}, {TipRole, "tip"}};
}

} // namespace wendlow

#include "moc_MeetingRows.cpp"
