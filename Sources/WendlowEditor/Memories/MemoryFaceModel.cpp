#include "Memories/MemoryFaceModel.h"

#include "Shell/EditorWords.h"
#include "Shell/RowText.h"

#include <algorithm>
#include <utility>

namespace wendlow {

MemoryFaceModel::MemoryFaceModel(Actions actions)
    : m_actions(std::move(actions)),
      m_list(m_actions.ask, m_actions.requestDetails, m_actions.today),
      m_groups(m_actions.requestDetails, m_actions.today) {}

bool MemoryFaceModel::isWorkItem(std::string_view type) {
    return type == "ticket" || type == "focus";
}

void MemoryFaceModel::show(State state) {
    m_openType = state.openType;
    m_answer = std::move(state.answer);
    // While another type is being read, what is still here is that of the one before.
    if (m_answer->ask && m_answer->ask->type != m_openType) {
        EditorAnswer nothingYet;
        nothingYet.state = m_answer->state;
        m_answer = std::make_shared<const EditorAnswer>(std::move(nothingYet));
    }
    placeFound();
    m_cards.show(state.standing, *m_answer);
    // Only the shape that is shown is kept up to date.
    const std::string& term = m_markedTerm.empty() ? state.ask.term : m_markedTerm;
    if (m_openType && isWorkItem(*m_openType))
        m_groups.show(m_answer, state.details, term);
    else if (m_openType)
        m_list.show(state.ask, m_answer, state.details, term);
    Q_EMIT changed();
    serveReveal();
}

void MemoryFaceModel::startAfresh() {
    m_list.startAfresh();
    m_groups.startAfresh();
    m_wanted.reset();
    m_found.reset();
    m_markedTerm.clear();
}

void MemoryFaceModel::reveal(EditorMemoryHit hit, std::string term) {
    m_wanted = std::move(hit);
    m_markedTerm = std::move(term);
}

void MemoryFaceModel::placeFound() {
    if (!m_answer->ask)
        return;
    const auto among = [](const auto& rows, const EditorMemoryHit& hit) {
        return std::ranges::any_of(
            rows, [&hit](const EditorMemoryHit& row) { return row.memory.id == hit.memory.id; });
    };
    if (m_wanted && m_answer->ready() && !among(m_answer->rows, *m_wanted))
        m_found = Found{.hit = *m_wanted, .page = m_answer};
    if (m_found && !m_found->page->ask->sameQuery(*m_answer->ask))
        m_found.reset();
    if (!m_found)
        return;
    if (std::exchange(m_found->under, m_answer) != m_answer) {
        // It keeps its place also when so much has been read that it is there.
        EditorMemoryHits rows{m_found->hit};
        for (const EditorMemoryHit& row : m_answer->rows)
            if (row.memory.id != m_found->hit.memory.id)
                rows.push_back(row);
        EditorAnswer page = *m_answer;
        page.rows = std::move(rows);
        m_found->page = std::make_shared<const EditorAnswer>(std::move(page));
    }
    m_answer = m_found->page;
}

void MemoryFaceModel::serveReveal() {
    if (!m_wanted || !m_openType || !m_answer->ready())
        return;
    // Before it is opened, for opening it may bring us here again.
    const EditorMemoryHit wanted = *std::exchange(m_wanted, std::nullopt);
    if (isWorkItem(*m_openType))
        m_groups.reveal(wanted.memory.id);
    else
        m_list.reveal(wanted.memory.id);
}

void MemoryFaceModel::openCard(int index) {
    if (m_cards.holds(index))
        m_actions.open(m_cards.row(index).id);
}

bool MemoryFaceModel::back() {
    if (!m_openType)
        return false;
    const bool closed = isWorkItem(*m_openType)
                            ? m_groups.closeOpen()
                            : m_list.closeOpen() || m_list.filters()->closePanel();
    if (!closed)
        close();
    return true;
}

QString MemoryFaceModel::shape() const {
    if (!m_openType)
        return QStringLiteral("grid");
    return isWorkItem(*m_openType) ? QStringLiteral("groups") : QStringLiteral("list");
}

QString MemoryFaceModel::title() const {
    return m_openType ? RowText::line(TypeWords::pluralized(*m_openType))
                      : QStringLiteral("Memories");
}

QString MemoryFaceModel::emptyWords() const {
    return EditorWords::empty(*m_answer, !m_cards.rows().empty());
}

bool MemoryFaceModel::reading() const {
    return std::holds_alternative<EditorAnswerStateCase::Pending>(m_answer->state);
}

QString MemoryFaceModel::strip() const {
    return EditorWords::strip(m_answer->state).words;
}

bool MemoryFaceModel::stripWarns() const {
    return EditorWords::strip(m_answer->state).warns;
}

} // namespace wendlow
