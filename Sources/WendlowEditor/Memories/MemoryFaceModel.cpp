#include "Memories/MemoryFaceModel.h"

#include "Floor/EditorWords.h"
#include "Floor/RowText.h"
#include "Say.h"

#include <algorithm>
#include <utility>

namespace wendlow {

MemoryFaceModel::MemoryFaceModel(PageSource& source, FaceActions actions)
    : m_source(source), m_actions(std::move(actions)),
      m_list(m_actions.ask, m_actions.requestDetails, m_actions.today),
      m_groups(m_actions.requestDetails, m_actions.today) {}

bool MemoryFaceModel::isWorkItem(std::string_view type) {
    return type == "ticket" || type == "focus";
}

QUrl MemoryFaceModel::page() const {
    return QUrl(QStringLiteral("qrc:/qt/qml/WendlowEditorMemories/MemoryFace.qml"));
}

void MemoryFaceModel::show(const FaceView& view) {
    m_ask = view.ask;
    m_answer = view.answer;
    m_counted = view.counted;
    // What was found may be another now, or gone.
    if (std::exchange(m_generation, view.generation) != view.generation)
        m_found.reset();
    keepCensus(view);
    // While another type is being read, what is still here is that of the one before.
    if (m_answer->ask && m_answer->ask->type != m_openType) {
        EditorAnswer nothingYet;
        nothingYet.state = m_answer->state;
        m_answer = std::make_shared<const EditorAnswer>(std::move(nothingYet));
    }
    placeFound();
    m_cards.show(m_source.memoryTypeCounts(), m_census);
    // Only the shape that is shown is kept up to date.
    const std::string& term = m_markedTerm.empty() ? m_ask.term : m_markedTerm;
    if (m_openType && isWorkItem(*m_openType))
        m_groups.show(m_answer, view.details, term);
    else if (m_openType)
        m_list.show(m_ask, m_answer, view.details, term);
    Q_EMIT changed();
    serveReveal();
}

void MemoryFaceModel::keepCensus(const FaceView& view) {
    if (const auto& answered = view.answer->ask; answered && answered->kind == EditorKind::memory) {
        m_census.narrowed = view.answer->narrowed;
        m_census.typeCounts = view.answer->typeCounts;
        m_censusScopes = answered->scopes;
    }
    if (m_censusScopes != view.ask.scopes)
        m_census = {};
}

void MemoryFaceModel::startAfresh() {
    m_list.startAfresh();
    m_groups.startAfresh();
    m_wanted.reset();
    m_found.reset();
    m_revealedID.clear();
    m_markedTerm.clear();
}

void MemoryFaceModel::applyType(std::optional<std::string> type, EditorAsk& ask) {
    if (type == m_openType)
        return;
    m_openType = std::move(type);
    startAfresh();
    ask.type = m_openType;
    ask.filters.clear();
    ask.limit = EditorAsk::page;
    ask.offset = 0;
}

void MemoryFaceModel::open(std::optional<std::string> type) {
    EditorAsk next = m_ask;
    applyType(std::move(type), next);
    m_actions.ask(std::move(next));
}

void MemoryFaceModel::leave(EditorAsk& ask) {
    applyType(std::nullopt, ask);
    startAfresh();
}

void MemoryFaceModel::openPlace(const std::string& place, EditorAsk& ask) {
    applyType(place.empty() ? std::nullopt : std::optional(place), ask);
}

void MemoryFaceModel::reveal(const FoundHit& found, EditorAsk& ask) {
    const auto* const place = std::get_if<SearchDestination::Memory>(&found.hit.destination);
    if (place == nullptr)
        return;
    applyType(place->type, ask);
    if (!found.memory)
        return;
    m_wanted = found.memory;
    m_revealedID = found.memory->memory.id;
    m_markedTerm = found.term;
}

std::optional<std::int64_t> MemoryFaceModel::railCount() const {
    // Before anything has been read, none is not a number of things.
    const auto& standing = m_source.memoryTypeCounts();
    return m_counted || !standing.empty() ? std::optional(RailCounts::memories(standing))
                                          : std::nullopt;
}

std::vector<RailRow> MemoryFaceModel::railRows() const {
    std::vector<EditorCount> ordinary;
    for (const EditorCount& type : m_source.memoryTypeCounts())
        if (!RailCounts::isGoverned(type.name))
            ordinary.push_back(type);
    RailRow all;
    all.kind = RailRow::Kind::heading;
    all.title = say("MEMORIES").toStdString();
    all.spoken = EditorFaces::title(face());
    all.count = railCount();
    std::vector<RailRow> rows{std::move(all)};
    for (const TypeShelfRow& type : TypeShelf::rows(ordinary, m_census)) {
        RailRow row;
        row.place = type.name;
        row.kind = RailRow::Kind::place;
        row.title = TypeWords::pluralized(type.name);
        row.count = type.count;
        row.dimmed = type.matchedNothing;
        row.here = isOpen() && m_openType == type.name;
        rows.push_back(std::move(row));
    }
    // An open type that is not counted is somewhere among them.
    rows.front().here = isOpen() && std::ranges::none_of(rows, &RailRow::here);
    return rows;
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
        open(m_cards.row(index).id);
}

bool MemoryFaceModel::isAsRevealed() const {
    if (!m_openType)
        return true;
    const std::string& open = isWorkItem(*m_openType) ? m_groups.openID() : m_list.openID();
    return (open.empty() || open == m_revealedID) && !m_list.filters().panelOpen();
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

MemoryFaceModel::Shape MemoryFaceModel::shape() const {
    if (!m_openType)
        return Grid;
    return isWorkItem(*m_openType) ? Groups : List;
}

QString MemoryFaceModel::heading() const {
    return m_openType ? RowText::line(TypeWords::pluralized(*m_openType)) : title();
}

QString MemoryFaceModel::emptyWords() const {
    return EditorWords::empty(*m_answer, !m_cards.rows().empty());
}

QString MemoryFaceModel::nextStep() const {
    if (!m_answer->ready() || !m_source.memoryTypeCounts().empty() || m_answer->total > 0)
        return {};
    return say("Connect an AI tool in Settings. What it remembers will be here.");
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

#include "moc_MemoryFaceModel.cpp"
