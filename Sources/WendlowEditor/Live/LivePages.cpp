#include "Live/LivePages.h"

#include "Live/AnswerWords.h"
#include "Live/BrowseWire.h"

#include <algorithm>
#include <utility>

namespace wendlow {

namespace {

using Lane = EditorLink::Lane;

std::optional<std::int64_t> moments(const EditorAnswer& answer) {
    const auto row = answer.kindCounts.find(EditorKind::moment);
    return row == answer.kindCounts.end() ? std::nullopt : std::optional(row->second);
}

} // namespace

LivePages::LivePages(EditorLink& link, LiveTell tell)
    : m_link(link), m_tell(std::move(tell)),
      m_page([this](EditorAsk ask) { return answer(std::move(ask), EditorAsker::page); }),
      m_search([this](EditorAsk ask) { return answer(std::move(ask), EditorAsker::search); }) {}

QCoro::Task<EditorAnswer> LivePages::query(EditorAsk ask, EditorAsker asker) {
    switch (asker) {
    case EditorAsker::page:
        return m_page.query(std::move(ask));
    case EditorAsker::search:
        return m_search.query(std::move(ask));
    case EditorAsker::beside:
        break;
    }
    return answer(std::move(ask), EditorAsker::beside);
}

QCoro::Task<std::optional<EditorMemoryDetail>> LivePages::detail(std::string id) {
    const ReadRequest request = ReadCase::Grab{.id = std::move(id)};
    const EditorLink::Reply reply = co_await m_link.send(request, Lane::now);
    const auto* const thing = std::get_if<AnswerCase::Thing>(&reply.response);
    if (thing == nullptr || !thing->_0)
        co_return std::nullopt;
    const Card& card = *thing->_0;
    co_return EditorMemoryDetail{.id = card.id, .why = card.why, .body = card.snippet.value_or("")};
}

QCoro::Task<EditorAnswer> LivePages::baseline() {
    EditorAsk ask{.term = {}};
    ask.limit = 1;
    return answer(std::move(ask), EditorAsker::beside);
}

bool LivePages::countMoments(const EditorAnswer& baseline) {
    const auto count = moments(baseline);
    return std::exchange(m_momentCount, count) != count;
}

QCoro::Task<EditorAnswer> LivePages::answer(EditorAsk ask, EditorAsker asker) {
    const Lifetime::Watch life = m_life.watch();
    const GatewayRequest request = ReadRequest(BrowseWire::request(ask));
    EditorLink::Reply reply = co_await m_link.serializedLeg(request, Lane::now);
    if (life.expired())
        co_return EditorAnswer::pending();
    const auto page = expect<AnswerCase::TextBrowse>(std::move(reply.response));
    EditorAnswer made;
    if (!page)
        made = EditorAnswer::failed(AnswerWords::of(page.error()), std::move(ask));
    else
        made =
            page->_0.ready ? settled(page->_0, ask, asker) : EditorAnswer::warming(std::move(ask));
    m_link.report(reply.leg, request.caseName(), m_link.now());
    co_return made;
}

EditorAnswer LivePages::settled(const TextBrowseAnswer& wire, const EditorAsk& ask,
                                EditorAsker asker) {
    const bool goesOn = m_heldAsk && m_heldAsk->offset == ask.offset && m_heldAsk->sameQuery(ask);
    EditorAnswer made = goesOn ? BrowseWire::settled(wire, ask, m_held, m_heldMoments)
                               : BrowseWire::settled(wire, ask);
    if (asker == EditorAsker::page) {
        m_heldAsk = ask;
        m_held = made.rows;
        m_heldMoments = made.moments;
    }
    const bool searched = !ask.term.empty() && wire.narrowed;
    if (!searched && !ask.hasChips())
        count(made);
    std::int64_t slice = m_baselineTotal;
    if (ask.type) {
        const auto row = std::ranges::find(m_typeCounts, *ask.type, &EditorCount::name);
        if (row != m_typeCounts.end())
            slice = row->count;
    }
    made.sliceTotal = std::max(slice, made.total);
    return made;
}

/// The rail counts the whole store, so only an answer that describes all of it comes here.
void LivePages::count(const EditorAnswer& whole) {
    bool news = false;
    if (whole.ask->kind == EditorKind::memory) {
        news = m_typeCounts != whole.typeCounts;
        m_typeCounts = whole.typeCounts;
        if (!whole.ask->type)
            m_baselineTotal = whole.total;
    }
    if (const auto count = moments(whole))
        news = std::exchange(m_momentCount, count) != count || news;
    if (news)
        m_tell(EditorChange::counts);
}

} // namespace wendlow

#include "moc_LivePages.cpp"
