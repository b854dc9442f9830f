#include "Live/EditorLiveStore.h"

#include "LinkStages.h"
#include "Live/BrowseWire.h"
#include "Live/ScopeTree.h"
#include "LogCategories.h"

#include <algorithm>
#include <utility>

#include <fmt/format.h>

namespace wendlow {

namespace {

using Lane = EditorLink::Lane;

/// "read.textBrowse" and the like.
std::string verb(const GatewayRequest& request) {
    return std::visit(
        [](const auto& kind) {
            return std::visit(
                [&kind](const auto& question) {
                    return fmt::format("{}.{}", kind.wireName, question.wireName);
                },
                static_cast<const typename std::decay_t<decltype(kind._0)>::variant&>(kind._0));
        },
        static_cast<const GatewayRequest::variant&>(request));
}

} // namespace

/// Times the steps of an opening, for the log.
class EditorLiveStore::OpenSteps {
public:
    explicit OpenSteps(LinkLeg::Instant now) : m_start(now), m_last(now) {}

    void done(const char* step, LinkLeg::Instant now) {
        qCInfo(LogCategory::editorOpen, "open leg %s %lldms (t+%lldms)", step,
               static_cast<long long>(LinkStages::wholeMillis(now - m_last)),
               static_cast<long long>(LinkStages::wholeMillis(now - m_start)));
        m_last = now;
    }

private:
    LinkLeg::Instant m_start;
    LinkLeg::Instant m_last;
};

EditorLiveStore::EditorLiveStore(std::shared_ptr<WendlowClient> client, Note note,
                                 EditorLink::Clock clock)
    : m_note(std::move(note)), m_link(std::move(client), std::move(clock)),
      m_browses([this](EditorAsk ask) { return answer(std::move(ask)); }) {}

EditorLiveStore::~EditorLiveStore() {
    m_life.end();
}

void EditorLiveStore::grow() {
    ++m_generation;
    Q_EMIT changed();
}

/// One request over the link; its leg is reported. The store may be gone when it comes back.
QCoro::Task<EditorLink::Reply> EditorLiveStore::send(GatewayRequest request, Lane lane) {
    const Lifetime::Watch life = m_life.watch();
    const std::string name = verb(request);
    EditorLink::Reply reply = co_await m_link.serializedLeg(std::move(request), lane);
    if (!life.expired())
        report(reply.leg, name);
    co_return reply;
}

/// A leg in good time is silent.
void EditorLiveStore::report(const LinkLeg& leg, const std::string& verb,
                             std::optional<LinkLeg::Instant> rendered) {
    constexpr std::chrono::milliseconds slow{100};
    LinkStages stages{.queued = leg.sent - leg.arrived,
                      .wire = leg.replied - leg.sent,
                      .daemon = leg.daemon,
                      .total = rendered.value_or(leg.replied) - leg.arrived};
    if (rendered)
        stages.render = *rendered - leg.replied;
    if (std::max({stages.wire, stages.queued, stages.render.value_or(slow)}) <= slow)
        return;
    const std::string line = stages.line(verb);
    qCInfo(LogCategory::editorOpen, "%s", line.c_str());
    if (m_note)
        m_note(line);
}

QCoro::Task<> EditorLiveStore::load() {
    const Lifetime::Watch life = m_life.watch();
    if (std::exchange(m_reloading, true)) {
        m_reloadAgain = true;
        co_return;
    }
    do {
        m_reloadAgain = false;
        co_await loadOnce();
        if (life.expired())
            co_return;
    } while (m_reloadAgain);
    m_reloading = false;
}

void EditorLiveStore::resetWorld() {
    // Runs on by itself, and ends by itself where the store goes.
    [[maybe_unused]] const auto task = load();
}

QCoro::Task<> EditorLiveStore::loadOnce() {
    const Lifetime::Watch life = m_life.watch();
    OpenSteps steps(m_link.now());
    m_meetingsLoaded = false;
    m_modsLoaded = false;
    m_frameDoorOpen = true;
    Q_EMIT changed();

    ScopeReading scopes = co_await readScopes();
    if (life.expired())
        co_return;
    steps.done("scopeBoard", m_link.now());
    const EditorAnswer whole = co_await baseline();
    if (life.expired())
        co_return;
    steps.done("baselineBrowse", m_link.now());
    settleLoad(whole, std::move(scopes));
    if (m_loaded) {
        co_await readMeetings();
        if (life.expired())
            co_return;
        steps.done("meetingList", m_link.now());
    }
    grow();
}

/// A store that gives up keeps what it showed before and says why.
void EditorLiveStore::settleLoad(const EditorAnswer& baseline, ScopeReading scopes) {
    m_loadError = std::move(scopes.error);
    m_loaded = baseline.ready() && !m_loadError;
    if (m_loaded) {
        m_rootScope = std::move(scopes.tree).value_or(EditorScope::root());
        m_scopeBoard = std::move(scopes.board);
        const auto moments = baseline.kindCounts.find(EditorKind::moment);
        m_momentCount =
            moments == baseline.kindCounts.end() ? std::nullopt : std::optional(moments->second);
        return;
    }
    if (m_loadError)
        return;
    const auto* const failed = std::get_if<EditorAnswerStateCase::Failed>(&baseline.state);
    m_loadError = failed != nullptr ? failed->words : "The search index is still building.";
}

QCoro::Task<EditorLiveStore::ScopeReading> EditorLiveStore::readScopes() {
    const NotesRequest request = NotesCase::ScopeBoard();
    const EditorLink::Reply reply = co_await send(request, Lane::now);
    ScopeReading reading;
    if (const auto* const board = std::get_if<AnswerCase::ScopeBoard>(&reply.response)) {
        reading.tree = ScopeTree::tree(board->_0);
        reading.board = ScopeTree::board(board->_0);
    } else if (const auto* const failure = std::get_if<AnswerCase::Failure>(&reply.response)) {
        reading.error = failure->message;
    } else {
        reading.error =
            "Wendlow answered the scope board with something this mod does not understand.";
    }
    co_return reading;
}

QCoro::Task<> EditorLiveStore::reloadScopeBoard() {
    const Lifetime::Watch life = m_life.watch();
    ScopeReading scopes = co_await readScopes();
    if (life.expired() || !scopes.tree)
        co_return;
    m_rootScope = *std::move(scopes.tree);
    m_scopeBoard = std::move(scopes.board);
    Q_EMIT changed();
}

QCoro::Task<EditorAnswer> EditorLiveStore::query(EditorAsk ask) {
    return m_browses.query(std::move(ask));
}

/// What describes the whole store: its counts, and next to no rows. Where a person's question took
/// its place it goes out beside the browses, so that it takes no place in return.
QCoro::Task<EditorAnswer> EditorLiveStore::baseline() {
    const Lifetime::Watch life = m_life.watch();
    EditorAsk ask{.term = {}};
    ask.limit = 1;
    EditorAnswer whole = co_await query(ask);
    if (!life.expired() && whole.ask != ask)
        whole = co_await answer(std::move(ask));
    co_return whole;
}

QCoro::Task<EditorAnswer> EditorLiveStore::answer(EditorAsk ask) {
    const Lifetime::Watch life = m_life.watch();
    const GatewayRequest request = ReadRequest(BrowseWire::request(ask));
    const EditorLink::Reply reply = co_await m_link.serializedLeg(request, Lane::now);
    if (life.expired())
        co_return EditorAnswer::pending();
    EditorAnswer made =
        EditorAnswer::failed("Wendlow answered with something this mod does not understand.", ask);
    if (const auto* const failure = std::get_if<AnswerCase::Failure>(&reply.response))
        made = EditorAnswer::failed(failure->message, std::move(ask));
    else if (const auto* const page = std::get_if<AnswerCase::TextBrowse>(&reply.response))
        made = page->_0.ready ? settled(page->_0, ask) : EditorAnswer::warming(std::move(ask));
    report(reply.leg, verb(request), m_link.now());
    co_return made;
}

/// The rail counts the whole store, so only an answer that describes all of it moves the rail.
EditorAnswer EditorLiveStore::settled(const TextBrowseAnswer& wire, const EditorAsk& ask) {
    const bool goesOn = m_pageAsk && m_pageAsk->offset == ask.offset && m_pageAsk->sameQuery(ask);
    EditorAnswer made = BrowseWire::settled(wire, ask, goesOn ? m_page : EditorRows());
    // The baseline's one row is nothing to go on from.
    if (made.rows.size() > 1) {
        m_pageAsk = ask;
        m_page = made.rows;
    }
    const bool searched = !ask.term.empty() && wire.narrowed;
    if (!searched && !ask.hasChips()) {
        if (ask.kind == EditorKind::memory) {
            m_memoryTypeCounts = made.typeCounts;
            if (!ask.type)
                m_baselineTotal = wire.total;
        }
        const auto moments = made.kindCounts.find(EditorKind::moment);
        if (moments != made.kindCounts.end())
            m_momentCount = moments->second;
        Q_EMIT changed();
    }
    std::int64_t slice = m_baselineTotal;
    if (ask.type) {
        const auto row = std::ranges::find(m_memoryTypeCounts, *ask.type, &EditorCount::name);
        if (row != m_memoryTypeCounts.end())
            slice = row->count;
    }
    made.sliceTotal = std::max(slice, made.total);
    return made;
}

} // namespace wendlow
