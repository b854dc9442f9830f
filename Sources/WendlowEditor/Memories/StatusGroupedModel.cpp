#include "Memories/StatusGroupedModel.h"

#include "Floor/EditorWords.h"
#include "Say.h"

#include <algorithm>
#include <utility>

namespace wendlow {

namespace {

constexpr const char* archiveID = "a";

std::string headID(const std::string& status) {
    return "g:" + status;
}

} // namespace

StatusGroupedModel::StatusGroupedModel(RequestDetails requestDetails, MemoryLines::Today today)
    : m_requestDetails(std::move(requestDetails)), m_lines(std::move(today)) {}

void StatusGroupedModel::show(const SharedAnswer& answer, const MemoryDetails& details,
                              const std::string& term) {
    m_answer = answer;
    m_details = &details;
    m_term = term;
    rebuild();
    if (!m_openID.empty() && !details.contains(m_openID))
        m_requestDetails({m_openID});
}

void StatusGroupedModel::startAfresh() {
    m_closed.clear();
    m_showArchived = false;
    m_openID.clear();
}

void StatusGroupedModel::add(std::vector<MemoryLine>& lines, const std::string& id,
                             const std::string& title, const EditorMemoryHits& rows,
                             bool open) const {
    lines.push_back(MemoryLine::headOf(id, title, rows.size()));
    lines.back().open = open;
    if (!open)
        return;
    for (const EditorMemoryHit& hit : rows) {
        lines.push_back(MemoryLine::of(hit));
        if (hit.memory.id == m_openID)
            lines.back().unfold(hit, names(m_answer->filterKeyCounts));
        lines.back().lastOfGroup = &hit == &rows.back();
    }
}

void StatusGroupedModel::rebuild() {
    const StatusGrouping grouping = StatusGrouping::group(m_answer->rows);
    std::vector<MemoryLine> lines;
    for (const StatusGrouping::Group& group : grouping.live) {
        const std::string id = headID(group.status);
        const std::string title = group.status == StatusGrouping::none
                                      ? say(StatusGrouping::none).toStdString()
                                      : group.status;
        add(lines, id, title, group.rows, !m_closed.contains(id));
    }
    if (!grouping.archived.empty())
        add(lines, archiveID, say("archived").toStdString(), grouping.archived, m_showArchived);
    m_lines.show(std::move(lines), *m_details, m_term);
    Q_EMIT changed();
}

void StatusGroupedModel::toggle(int index) {
    if (!m_lines.holds(index))
        return;
    const MemoryLine line = m_lines.row(index);
    if (!line.head) {
        m_openID = std::string(line.open ? std::string_view() : line.memoryID());
        if (!m_openID.empty())
            m_requestDetails({m_openID});
    } else if (line.id == archiveID) {
        m_showArchived = !m_showArchived;
    } else if (m_closed.erase(line.id) == 0) {
        m_closed.insert(line.id);
    }
    rebuild();
}

bool StatusGroupedModel::closeOpen() {
    if (std::exchange(m_openID, {}).empty())
        return false;
    rebuild();
    return true;
}

bool StatusGroupedModel::reveal(const std::string& memoryID) {
    const StatusGrouping grouping = StatusGrouping::group(m_answer->rows);
    const auto isIt = [&](const EditorMemoryHit& hit) { return hit.memory.id == memoryID; };
    if (std::ranges::none_of(m_answer->rows, isIt))
        return false;
    if (std::ranges::any_of(grouping.archived, isIt))
        m_showArchived = true;
    for (const StatusGrouping::Group& group : grouping.live)
        if (std::ranges::any_of(group.rows, isIt))
            m_closed.erase(headID(group.status));
    m_openID = memoryID;
    rebuild();
    m_requestDetails({memoryID});
    const auto& rows = m_lines.rows();
    const auto line = std::ranges::find(
        rows, true, [](const MemoryLine& each) { return !each.head && each.open; });
    if (line != rows.end())
        Q_EMIT revealed(static_cast<int>(line - rows.begin()));
    return true;
}

QString StatusGroupedModel::emptyWords() const {
    return EditorWords::empty(*m_answer, !m_answer->rows.empty());
}

bool StatusGroupedModel::reading() const {
    return std::holds_alternative<EditorAnswerStateCase::Pending>(m_answer->state);
}

QString StatusGroupedModel::footer() const {
    if (!m_answer->ready() || std::ssize(m_answer->rows) >= m_answer->total ||
        m_answer->rows.empty())
        return {};
    return say("Showing {} of {} — scroll the flat list for the rest.", m_answer->rows.size(),
               m_answer->total);
}

} // namespace wendlow

#include "moc_StatusGroupedModel.cpp"
