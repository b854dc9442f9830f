#include "Search/EditorSearch.h"

#include "Floor/EditorWords.h"
#include "Floor/FlatScopes.h"
#include "LinkStages.h"
#include "Ranking/EditorText.h"
#include "Say.h"

#include <algorithm>
#include <utility>

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

QString resultsFor(const std::string& term) {
    return say("Results for “{}”", RowText::line(term));
}

} // namespace

EditorSearch::EditorSearch(Sources sources, EditorDetails& details, Clocks clocks)
    : m_sources(std::move(sources)), m_details(details), m_clocks(std::move(clocks)) {
    connect(&m_details, &EditorDetails::changed, this, &EditorSearch::rebuild);
    m_notice.setSingleShot(true);
    m_notice.setInterval(m_clocks.noticeable);
    connect(&m_notice, &QTimer::timeout, this, &EditorSearch::showWhatIsHere);
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
    for (const EditorMemoryHit& hit : m_found.memories)
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
    begin();
}

void EditorSearch::begin() {
    end();
    m_unfolded.clear();
    // What the hits before need must not hold up the new ones.
    m_details.abandon(EditorAsker::search);
    if (m_term.empty()) {
        forget();
        Q_EMIT settled();
        return;
    }
    m_busy = true;
    m_notice.start();
    // Runs on by itself, and ends by itself where this goes or another search begins.
    [[maybe_unused]] const auto task = run(m_term, Manner::loud);
}

/// Of what is under way nothing will be shown.
void EditorSearch::end() {
    ++m_task;
    m_notice.stop();
    m_busy = m_slow = m_commits = m_chose = false;
}

void EditorSearch::again() {
    if (!searching() || m_retired)
        return;
    begin();
    Q_EMIT changed();
}

void EditorSearch::forget() {
    m_found = {};
    m_hereTerm.clear();
    m_selection.reset();
    m_sections.clear();
    m_hits.show({}, {}, {});
}

/// The page before stays with what the daemon found for it; what is found here is of this term.
void EditorSearch::showWhatIsHere() {
    m_slow = true;
    m_hereTerm = m_term;
    rebuild();
    Q_EMIT changed();
}

QCoro::Task<> EditorSearch::run(std::string term, Manner manner) {
    const Lifetime::Watch life = m_life.watch();
    const std::uint64_t number = m_task;
    const auto started = m_clocks.steady();
    EditorAsk question = askFor(term, EditorKind::memory, mostMemories);
    EditorAnswer memories = co_await answerTo(std::move(question));
    if (life.expired() || number != m_task)
        co_return;
    const auto halfway = m_clocks.steady();
    question = askFor(term, EditorKind::moment, mostMoments);
    EditorAnswer moments = co_await answerTo(std::move(question));
    if (life.expired() || number != m_task)
        co_return;
    const Millis millis{.memory = LinkStages::wholeMillis(halfway - started),
                        .moment = LinkStages::wholeMillis(m_clocks.steady() - halfway)};
    if (manner == Manner::loud || (memories.ready() && moments.ready()))
        show(memories, std::move(moments), millis, manner);
}

QCoro::Task<EditorAnswer> EditorSearch::answerTo(EditorAsk ask) {
    EditorAnswer answer = co_await m_sources.pages.query(ask, EditorAsker::search);
    // Rows to another question must not pass for hits, nor for there being none.
    if (answer.ask != ask)
        co_return EditorAnswer::failed(
            say("Wendlow answered with something this mod does not understand.").toStdString(),
            std::move(ask));
    co_return answer;
}

void EditorSearch::show(const EditorAnswer& memories, EditorAnswer moments, Millis millis,
                        Manner manner) {
    // Found once more, or chosen while it was to come, a hit stays selected.
    const SearchHit* const chosen = m_chose || m_found.term == m_term ? selected() : nullptr;
    const std::string kept = chosen != nullptr ? chosen->id : std::string();
    const bool commits = m_commits;
    end();
    m_found = {.term = m_term, .memories = {}, .moments = {}, .state = {}, .millis = millis};
    if (memories.narrowed)
        m_found.memories.assign(memories.rows.begin(), memories.rows.end());
    if (moments.narrowed)
        m_found.moments = std::move(moments.moments);
    // Half a page must not pass for the whole.
    m_found.state = memories.ready() ? moments.state : memories.state;
    m_hereTerm = m_term;
    layOut(kept);
    Q_EMIT changed();

    fetchDetails();
    if (manner == Manner::quiet)
        return;
    Q_EMIT settled();
    Q_EMIT told(summary());
    if (commits)
        open(selectionIndex(), true);
}

void EditorSearch::fetchDetails() {
    std::vector<std::string> ids;
    for (const EditorMemoryHit& hit : m_found.memories)
        if (ids.size() < detailsAsked)
            ids.push_back(hit.memory.id);
    m_details.request(ids, EditorAsker::search);
}

/// Those that are fetched anew stand as they were until they come.
void EditorSearch::keepDetails() {
    MemoryDetails now;
    for (const EditorMemoryHit& hit : m_found.memories) {
        const std::string& id = hit.memory.id;
        if (const auto known = m_details.known().find(id); known != m_details.known().end())
            now.insert(*known);
        else if (auto before = m_hitDetails.extract(id); before && before.mapped())
            now.insert(std::move(before));
    }
    m_hitDetails = std::move(now);
}

void EditorSearch::lookAgain() {
    if (m_trail)
        m_trail->stale = true;
    if (!searching() || m_busy || m_retired || m_found.term != m_term)
        return;
    fetchDetails();
    // Runs on by itself, and ends by itself where this goes or another search begins.
    [[maybe_unused]] const auto task = run(m_term, Manner::quiet);
}

void EditorSearch::storeRead() {
    if (m_trail)
        m_trail->stale = true;
    if (trouble().isEmpty())
        fetchDetails();
    else
        again();
}

void EditorSearch::rebuild() {
    if (m_hereTerm.empty())
        return;
    const SearchHit* const chosen = selected();
    const auto before = m_selection;
    layOut(chosen != nullptr ? chosen->id : std::string());
    // What nobody has selected is not selected by what comes to stand there.
    if (!before)
        m_selection.reset();
    if (m_selection != before)
        Q_EMIT changed();
}

/// Lays the page out anew, with this hit selected, or else the first.
void EditorSearch::layOut(const std::string& kept) {
    const auto& board = m_sources.mods.modsBoard();
    const auto paths = FlatScopes::paths(m_sources.scopes.rootScope());
    keepDetails();
    const SearchPage::Found found{.term = m_hereTerm,
                                  .memories = m_found.memories,
                                  .moments = m_found.moments,
                                  .meetings = m_sources.meetings.meetings(),
                                  .mods = board ? &board->mods : nullptr,
                                  .scopePaths = paths,
                                  .details = m_hitDetails};
    m_sections = SearchPage::build(found);
    SearchHitList::Unfolded unfolded{.id = m_unfolded, .words = {}};
    std::optional<std::size_t> place;
    const auto hits = SearchPage::flat(m_sections);
    for (std::size_t at = 0; at < hits.size(); ++at) {
        if (hits[at]->id == m_unfolded)
            unfolded.words = SearchPage::unfolded(*hits[at], found);
        if (!place && hits[at]->id == kept)
            place = at;
    }
    m_hits.show(m_sections, m_hereTerm, unfolded);
    m_selection = place ? place : hits.empty() ? std::nullopt : std::optional<std::size_t>(0);
}

void EditorSearch::moveBy(int by) {
    const auto move = by < 0 ? SearchPage::Move::up : SearchPage::Move::down;
    moveTo(SearchPage::moved(m_selection, move, m_sections));
}

void EditorSearch::select(int index) {
    if (const int last = m_hits.rowCount() - 1; last >= 0)
        moveTo(static_cast<std::size_t>(std::clamp(index, 0, last)));
}

void EditorSearch::moveTo(std::optional<std::size_t> place) {
    m_chose = place.has_value();
    if (std::exchange(m_selection, place) == place)
        return;
    Q_EMIT changed();
    if (const SearchHit* const chosen = selected())
        Q_EMIT walked(RowText::line(
            chosen->subtitle.empty() ? chosen->title : chosen->title + ", " + chosen->subtitle));
}

void EditorSearch::commit() {
    const SearchHit* const chosen = selected();
    const bool isOfThisTerm =
        m_chose && m_hereTerm == m_term && chosen != nullptr && SearchPage::isFoundHere(*chosen);
    if (m_busy && !isOfThisTerm)
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
    if (m_sources.opensOn && !m_sources.opensOn(chosen->face())) {
        unfold(index);
        return;
    }
    const FoundHit found{
        .hit = *chosen, .memory = memory(SearchPage::memoryOf(*chosen)), .term = m_found.term};
    Trail trail{.found = std::move(m_found), .hit = chosen->id};
    clear();
    m_trail = std::move(trail);
    Q_EMIT changed();
    Q_EMIT opened(found, byKey);
}

void EditorSearch::unfold(int index) {
    const std::string id = hit(index)->id;
    m_selection = static_cast<std::size_t>(index);
    m_unfolded = m_unfolded == id ? std::string() : id;
    if (!m_unfolded.empty())
        if (const std::string memory = SearchPage::ruleOf(*hit(index)); !memory.empty())
            m_details.request({memory}, EditorAsker::search);
    rebuild();
    Q_EMIT changed();
}

bool EditorSearch::foldUp() {
    if (std::exchange(m_unfolded, {}).empty())
        return false;
    rebuild();
    Q_EMIT changed();
    return true;
}

bool EditorSearch::goBack() {
    if (!m_trail || m_retired)
        return false;
    Trail trail = *std::exchange(m_trail, std::nullopt);
    end();
    m_unfolded.clear();
    m_found = std::move(trail.found);
    m_text = m_term = m_hereTerm = m_found.term;
    layOut(trail.hit);
    Q_EMIT changed();
    if (trail.stale)
        again();
    else
        fetchDetails();
    return true;
}

void EditorSearch::forgetTrail() {
    if (!std::exchange(m_trail, std::nullopt))
        return;
    Q_EMIT changed();
}

const SearchHit* EditorSearch::selected() const {
    return hit(selectionIndex());
}

const SearchHit* EditorSearch::hit(int index) const {
    return m_hits.holds(index) ? &m_hits.row(index).hit : nullptr;
}

QString EditorSearch::heading() const {
    return searching() ? resultsFor(m_term) : QString();
}

QString EditorSearch::trail() const {
    return m_trail ? resultsFor(m_trail->found.term) : QString();
}

QString EditorSearch::summary() const {
    if (const QString why = trouble(); !why.isEmpty())
        return why;
    if (m_hits.rows().empty())
        return noMatches();
    const auto count = std::ssize(m_hits.rows());
    return say.plural(count, "{} result for “{}”", "{} results for “{}”", count,
                      RowText::line(m_found.term));
}

QString EditorSearch::timing() const {
    if (!m_found.millis)
        return {};
    const auto& [memory, moment] = *m_found.millis;
    return say("memories {} ms · moments {} ms", memory, moment);
}

QString EditorSearch::noMatches() const {
    if (m_busy || m_found.term.empty() || !m_hits.rows().empty() || !trouble().isEmpty())
        return {};
    return say("No matches for “{}”.", RowText::line(m_found.term));
}

QString EditorSearch::trouble() const {
    return m_busy || m_found.term.empty() ? QString() : EditorWords::strip(m_found.state).words;
}

} // namespace wendlow

#include "moc_EditorSearch.cpp"
