#include "Shell/EditorSearch.h"

#include "LinkStages.h"
#include "Ranking/EditorText.h"
#include "Shell/EditorWords.h"
#include "Shell/FlatScopes.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

namespace wendlow {

namespace {

constexpr std::int64_t mostMemories = 24;
constexpr std::int64_t mostMoments = 5;
constexpr std::size_t detailsAsked = 16;

EditorAsk askFor(const std::string& term, EditorKind kind, std::int64_t limit) {
    EditorAsk ask{.term = term};
    ask.kind = kind;
    ask.limit = limit;
    return ask;
}

} // namespace

EditorSearch::EditorSearch(EditorStore& store, EditorDetails& details, Clock clock)
    : m_store(store), m_details(details), m_clock(std::move(clock)) {
    connect(&m_details, &EditorDetails::changed, this, &EditorSearch::rebuild);
}

std::string EditorSearch::reacting(std::string_view text, std::string current) {
    if (text.find_first_not_of(" \t") == std::string_view::npos)
        return {};
    const auto tokens = EditorText::tokenize(text);
    const bool tells =
        std::ranges::any_of(tokens, [](const std::string& token) { return token.size() >= 2; });
    return tells ? std::string(text) : std::move(current);
}

void EditorSearch::setText(const QString& text) {
    std::string typed = text.toStdString();
    if (typed == m_text)
        return;
    m_text = std::move(typed);
    setTerm(m_text.empty() ? std::string() : reacting(m_text, m_term));
    Q_EMIT changed();
}

std::optional<EditorMemoryHit> EditorSearch::memory(std::string_view id) const {
    for (const EditorMemoryHit& hit : m_memories)
        if (hit.memory.id == id)
            return hit;
    return std::nullopt;
}

void EditorSearch::clear() {
    m_text.clear();
    setTerm({});
    Q_EMIT changed();
}

void EditorSearch::setTerm(std::string term) {
    if (term == m_term)
        return;
    m_term = std::move(term);
    ++m_task;
    if (m_term.empty()) {
        forget();
        return;
    }
    m_busy = true;
    // Runs on by itself, and ends by itself where this goes or another term comes.
    [[maybe_unused]] const auto task = run(m_term);
}

void EditorSearch::forget() {
    m_busy = false;
    m_answeredTerm.clear();
    m_memories.clear();
    m_moments.clear();
    m_state = EditorAnswerStateCase::Settled{};
    m_millis.reset();
    m_selection.reset();
    m_sections.clear();
    m_hits.show({}, {});
}

QCoro::Task<> EditorSearch::run(std::string term) {
    const Lifetime::Watch life = m_life.watch();
    const std::uint64_t number = m_task;
    const auto started = m_clock();
    EditorAsk question = askFor(term, EditorKind::memory, mostMemories);
    const EditorAnswer memories = co_await m_store.pages().query(question, EditorAsker::search);
    if (life.expired() || number != m_task || memories.ask != question)
        co_return;
    const auto halfway = m_clock();
    question = askFor(term, EditorKind::moment, mostMoments);
    EditorAnswer moments = co_await m_store.pages().query(question, EditorAsker::search);
    if (life.expired() || number != m_task || moments.ask != question)
        co_return;
    m_millis = Millis{.memory = LinkStages::wholeMillis(halfway - started),
                      .moment = LinkStages::wholeMillis(m_clock() - halfway)};
    show(memories, std::move(moments));
}

void EditorSearch::show(const EditorAnswer& memories, EditorAnswer moments) {
    m_busy = false;
    m_answeredTerm = m_term;
    m_state = memories.state;
    m_memories.clear();
    if (memories.narrowed)
        m_memories.assign(memories.rows.begin(), memories.rows.end());
    m_moments = moments.narrowed ? std::move(moments.moments) : std::vector<EditorMoment>();
    m_selection.reset();
    // Half a page must not pass for the whole.
    if (memories.ready())
        m_state = moments.state;
    rebuild();
    if (!m_hits.rows().empty())
        m_selection = 0;
    Q_EMIT changed();

    std::vector<std::string> ids;
    for (const EditorMemoryHit& hit : m_memories)
        if (ids.size() < detailsAsked)
            ids.push_back(hit.memory.id);
    m_details.request(ids);
}

void EditorSearch::rebuild() {
    if (m_answeredTerm.empty())
        return;
    const SearchHit* const chosen = selected();
    const std::string kept = chosen != nullptr ? chosen->id : std::string();
    const auto& board = m_store.mods().modsBoard();
    const auto paths = FlatScopes::paths(m_store.scopes().rootScope());
    m_sections = SearchPage::build({.term = m_answeredTerm,
                                    .memories = m_memories,
                                    .moments = m_moments,
                                    .meetings = m_store.meetings().meetings(),
                                    .mods = board ? &board->mods : nullptr,
                                    .scopePaths = paths,
                                    .details = m_details.known()});
    m_hits.show(m_sections, m_answeredTerm);
    if (!m_selection)
        return;
    // The selection stays with its hit, whatever came in front of it.
    const auto& rows = m_hits.rows();
    const auto found = std::ranges::find(rows, kept, [](const auto& row) { return row.hit.id; });
    const auto place = found != rows.end() ? static_cast<std::size_t>(found - rows.begin()) : 0;
    const auto now = rows.empty() ? std::nullopt : std::optional(place);
    if (std::exchange(m_selection, now) != now)
        Q_EMIT changed();
}

bool EditorSearch::move(SearchPage::Move move) {
    const auto next = SearchPage::moved(m_selection, move, m_sections);
    if (std::exchange(m_selection, next) != next)
        Q_EMIT changed();
    return true;
}

const SearchHit* EditorSearch::selected() const {
    return hit(selectionIndex());
}

const SearchHit* EditorSearch::hit(int index) const {
    return m_hits.holds(index) ? &m_hits.row(index).hit : nullptr;
}

QString EditorSearch::heading() const {
    return searching() ? QStringLiteral("Results for “%1”").arg(RowText::line(m_term)) : QString();
}

QString EditorSearch::timing() const {
    if (!m_millis)
        return {};
    return QString::fromStdString(
        fmt::format("memories {} ms · moments {} ms", m_millis->memory, m_millis->moment));
}

QString EditorSearch::noMatches() const {
    if (m_busy || m_answeredTerm.empty() || !m_hits.rows().empty() || !trouble().isEmpty())
        return {};
    return QStringLiteral("No matches for “%1”.").arg(RowText::line(m_answeredTerm));
}

QString EditorSearch::trouble() const {
    return m_busy || m_answeredTerm.empty() ? QString() : EditorWords::strip(m_state).words;
}

} // namespace wendlow
