#include "Shell/EditorRoot.h"

#include "Shell/EditorWords.h"
#include "Shell/FlatScopes.h"

#include <algorithm>
#include <utility>

namespace wendlow {

namespace {

bool sharesScopes(EditorFace face) {
    return face == EditorFace::memory || face == EditorFace::moments;
}

} // namespace

EditorRoot::EditorRoot(EditorStore& store, EditorClocks clocks)
    : m_store(store), m_generation(store.generation()), m_details(store.pages()),
      m_search(store, m_details, std::move(clocks.steady)),
      m_rail({.openMemories =
                  [this](std::optional<std::string> type) {
                      applyFace(EditorFace::memory);
                      applyType(std::move(type));
                      settle();
                  },
              .openFace = [this](EditorFace face) { setFace(face); },
              .moveSearch = [this](int by) -> std::optional<bool> {
                  if (!m_search.searching())
                      return std::nullopt;
                  return m_search.move(by < 0 ? SearchPage::Move::up : SearchPage::Move::down);
              }}),
      m_bar({.pick =
                 [this](std::set<std::string> scopes) {
                     EditorAsk next = m_ask;
                     next.scopes = std::move(scopes);
                     setAsk(std::move(next));
                 },
             .manageScopes = [this] { setFace(EditorFace::scopes); }}),
      m_memories(
          {.ask = [this](EditorAsk ask) { setAsk(std::move(ask)); },
           .open = [this](std::optional<std::string> type) { setOpenType(std::move(type)); },
           .requestDetails = [this](const std::vector<std::string>& ids) { requestDetails(ids); },
           .today = std::move(clocks.today)}) {
    connect(&m_store, &EditorStore::changed, this, &EditorRoot::storeChanged);
    connect(&m_details, &EditorDetails::changed, this, [this] {
        showMemories();
        Q_EMIT changed();
    });
    connect(&m_search, &EditorSearch::changed, this, &EditorRoot::changed);
    // In this order: the link serves one at a time, and the page is what is waited for.
    settle();
    m_store.meetings().loadMeetings();
}

EditorRoot::~EditorRoot() {
    m_life.end();
}

void EditorRoot::retire() {
    disconnect(&m_store, nullptr, this, nullptr);
    m_search.clear();
    m_details.clear();
    ++m_task;
}

EditorQueryKey EditorRoot::queryKey() const {
    return {.world = m_store.world(), .generation = m_store.generation(), .ask = m_ask};
}

void EditorRoot::storeChanged() {
    if (std::exchange(m_generation, m_store.generation()) != m_store.generation()) {
        m_memories.forgetFound();
        m_details.clear();
    }
    settle();
    m_search.rebuild();
}

void EditorRoot::settle() {
    if (m_asked != queryKey())
        requery();
    else
        publish();
}

void EditorRoot::requery() {
    m_asked = queryKey();
    take(m_answer.awaitingRefresh());
    // Runs on by itself, and ends by itself where this goes or another key comes.
    [[maybe_unused]] const auto task = run(*m_asked);
}

QCoro::Task<> EditorRoot::run(EditorQueryKey key) {
    const Lifetime::Watch life = m_life.watch();
    const std::uint64_t number = ++m_task;
    EditorAnswer answer = co_await m_store.pages().query(key.ask, EditorAsker::page);
    if (!life.expired() && number == m_task && queryKey() == key && answer.ask == key.ask)
        take(std::move(answer));
}

void EditorRoot::take(EditorAnswer answer) {
    m_answer = std::move(answer);
    refreshShown();
    publish();
}

void EditorRoot::refreshShown() {
    m_shownError = m_store.storeError();
    EditorAnswer answer = m_answer;
    if (m_shownError && answer.ready())
        answer.state = EditorAnswerStateCase::Failed{*m_shownError};
    m_shown = std::make_shared<const EditorAnswer>(std::move(answer));
}

void EditorRoot::publish() {
    if (m_shownError != m_store.storeError())
        refreshShown();
    const auto scopes = FlatScopes::paths(m_store.scopes().rootScope());
    m_rail.show(railState(std::ssize(scopes)));
    m_bar.show(scopes, m_ask.scopes);
    showMemories();
    Q_EMIT changed();
}

void EditorRoot::showMemories() {
    m_memories.show({.ask = m_ask,
                     .answer = m_shown,
                     .standing = m_store.pages().memoryTypeCounts(),
                     .openType = m_openType,
                     .details = m_details.known()});
}

RailState EditorRoot::railState(std::int64_t scopes) const {
    RailState state{.standing = m_store.pages().memoryTypeCounts(),
                    .answer = {},
                    .face = m_face,
                    .openType = m_openType,
                    .meetings = m_store.meetings().meetingCount(),
                    .moments = m_store.pages().momentCount(),
                    .mods = std::nullopt,
                    .scopes = scopes};
    // The rail needs the counts alone, and not a page of rows.
    state.answer.state = m_answer.state;
    state.answer.narrowed = m_answer.narrowed;
    state.answer.typeCounts = m_answer.typeCounts;
    if (const auto& board = m_store.mods().modsBoard())
        state.mods = std::ssize(board->mods);
    return state;
}

void EditorRoot::setAsk(EditorAsk ask) {
    m_ask = std::move(ask);
    settle();
}

void EditorRoot::setOpenType(std::optional<std::string> type) {
    applyType(std::move(type));
    settle();
}

void EditorRoot::setFace(EditorFace face) {
    applyFace(face);
    settle();
}

void EditorRoot::applyType(std::optional<std::string> type) {
    if (type == m_openType)
        return;
    m_openType = std::move(type);
    m_memories.startAfresh();
    m_ask.type = m_openType;
    m_ask.filters.clear();
    m_ask.limit = EditorAsk::page;
    m_ask.offset = 0;
}

void EditorRoot::applyFace(EditorFace face) {
    const EditorFace before = std::exchange(m_face, face);
    // A place of the rail leads out of the search, the place that is open too.
    if (!m_search.text().isEmpty())
        m_search.clear();
    if (face == before)
        return;
    m_bar.setPickerOpen(false);
    m_ask.kind = face == EditorFace::moments ? EditorKind::moment : EditorKind::memory;
    if (before == EditorFace::memory)
        applyType(std::nullopt);
    if (!sharesScopes(before) || !sharesScopes(face)) {
        m_ask.scopes.clear();
        m_ask.sort.reset();
    }
    m_ask.filters.clear();
    m_ask.limit = EditorAsk::page;
    m_ask.offset = 0;
    m_memories.startAfresh();
}

bool EditorRoot::beginsSearch(const QString& typed) {
    return !typed.isEmpty() && typed.at(0).isPrint() && !typed.at(0).isSpace();
}

void EditorRoot::clearSearch() {
    m_search.clear();
}

void EditorRoot::commitSearchSelection() {
    openHit(m_search.selectionIndex());
}

void EditorRoot::openHit(int index) {
    if (const SearchHit* const hit = m_search.hit(index))
        open(SearchHit(*hit));
}

void EditorRoot::open(const SearchHit& hit) {
    const std::string term = m_search.term();
    const auto found = m_search.memory(SearchPage::memoryOf(hit));
    clearSearch();
    if (const auto* const memory = std::get_if<SearchDestination::Memory>(&hit.destination)) {
        applyFace(EditorFace::memory);
        applyType(memory->type);
        if (found)
            m_memories.reveal(*found, term);
    } else if (const auto* const rule = std::get_if<SearchDestination::Rule>(&hit.destination)) {
        // The change of face clears the scopes, so that the scope comes behind it.
        applyFace(EditorFace::rules);
        m_ask.scopes = {rule->scope};
    } else if (std::holds_alternative<SearchDestination::Moment>(hit.destination)) {
        applyFace(EditorFace::moments);
    } else if (std::holds_alternative<SearchDestination::Meeting>(hit.destination)) {
        applyFace(EditorFace::meetings);
    } else if (std::holds_alternative<SearchDestination::Scope>(hit.destination)) {
        applyFace(EditorFace::scopes);
    } else {
        applyFace(EditorFace::mods);
    }
    settle();
}

bool EditorRoot::back() {
    if (!m_search.text().isEmpty()) {
        clearSearch();
        return true;
    }
    return m_face == EditorFace::memory && m_memories.back();
}

QString EditorRoot::stage() const {
    if (m_search.searching())
        return QStringLiteral("search");
    return m_face == EditorFace::memory ? QStringLiteral("memory") : QStringLiteral("blank");
}

QString EditorRoot::title() const {
    return RowText::plain(EditorFaces::title(m_face));
}

QString EditorRoot::blankStageWords() const {
    // Only the meetings are counted in words; the number of another face's things says nothing
    // here.
    const auto meetings =
        m_face == EditorFace::meetings ? m_store.meetings().meetingCount() : std::nullopt;
    return RowText::plain(EditorWords::blankStage(m_store.storeError(), meetings));
}

std::string EditorRoot::rulesScope(const std::set<std::string>& picked,
                                   const std::vector<EditorScopeRow>& board) {
    constexpr const char* root = "/";
    if (!picked.empty())
        return picked.size() == 1 ? *picked.begin() : root;
    std::optional<std::string> first;
    for (const EditorScopeRow& row : board)
        if (!row.kinds.empty() && (!first || row.path < *first))
            first = row.path;
    return first.value_or(root);
}

} // namespace wendlow
