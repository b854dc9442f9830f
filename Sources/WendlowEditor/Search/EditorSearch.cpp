#include "Search/EditorSearch.h"

#include "Floor/EditorWords.h"
#include "Floor/FlatScopes.h"
#include "LinkStages.h"
#include "Ranking/EditorText.h"

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

EditorSearch::EditorSearch(Sources sources, EditorDetails& details, Clock clock)
    : m_sources(sources), m_details(details), m_clock(std::move(clock)) {
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

void EditorSearch::retire() {
    m_retired = true;
    clear();
}

void EditorSearch::setTerm(std::string term) {
    if (term == m_term || (m_retired && !term.empty()))
        return;
    m_term = std::move(term);
    ++m_task;
    m_commits = false;
    // What the hits before need must not hold up the new ones.
    m_details.abandon(EditorAsker::search);
    if (m_term.empty()) {
        forget();
        Q_EMIT settled();
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
    EditorAnswer memories = co_await answerTo(std::move(question));
    if (life.expired() || number != m_task)
        co_return;
    const auto halfway = m_clock();
    question = askFor(term, EditorKind::moment, mostMoments);
    EditorAnswer moments = co_await answerTo(std::move(question));
    if (life.expired() || number != m_task)
        co_return;
    m_millis = Millis{.memory = LinkStages::wholeMillis(halfway - started),
                      .moment = LinkStages::wholeMillis(m_clock() - halfway)};
    show(memories, std::move(moments));
}

QCoro::Task<EditorAnswer> EditorSearch::answerTo(EditorAsk ask) {
    EditorAnswer answer = co_await m_sources.pages.query(ask, EditorAsker::search);
    // Rows to another question must not pass for hits, nor for there being none.
    if (answer.ask != ask)
        co_return EditorAnswer::failed(
            "Wendlow answered with something this mod does not understand.", std::move(ask));
    co_return answer;
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

    fetchDetails();
    Q_EMIT settled();
    if (std::exchange(m_commits, false))
        open(selectionIndex(), true);
}

void EditorSearch::fetchDetails() {
    std::vector<std::string> ids;
    for (const EditorMemoryHit& hit : m_memories)
        if (ids.size() < detailsAsked)
            ids.push_back(hit.memory.id);
    m_details.request(ids, EditorAsker::search);
}

void EditorSearch::rebuild() {
    if (m_answeredTerm.empty())
        return;
    const SearchHit* const chosen = selected();
    const std::string kept = chosen != nullptr ? chosen->id : std::string();
    const auto& board = m_sources.mods.modsBoard();
    const auto paths = FlatScopes::paths(m_sources.scopes.rootScope());
    m_sections = SearchPage::build({.term = m_answeredTerm,
                                    .memories = m_memories,
                                    .moments = m_moments,
                                    .meetings = m_sources.meetings.meetings(),
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

void EditorSearch::moveBy(int by) {
    const auto move = by < 0 ? SearchPage::Move::up : SearchPage::Move::down;
    const auto next = SearchPage::moved(m_selection, move, m_sections);
    if (std::exchange(m_selection, next) != next)
        Q_EMIT changed();
}

void EditorSearch::commit() {
    if (m_busy)
        m_commits = true;
    else
        open(selectionIndex(), true);
}

void EditorSearch::openHit(int index) {
    open(index, false);
}

void EditorSearch::open(int index, bool byKey) {
    const SearchHit* const chosen = hit(index);
    if (chosen == nullptr)
        return;
    const FoundHit found{
        .hit = *chosen, .memory = memory(SearchPage::memoryOf(*chosen)), .term = m_answeredTerm};
    clear();
    Q_EMIT opened(found, byKey);
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
