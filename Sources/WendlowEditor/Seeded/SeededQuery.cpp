#include "Seeded/SeededQuery.h"

#include "Ranking/EditorText.h"
#include "ScopePath.h"

#include <algorithm>
#include <utility>

namespace wendlow {

namespace {

void gather(const EditorScope& scope, EditorMemoryHits& hits) {
    for (const EditorMemory& memory : scope.memories)
        hits.push_back({.memory = memory, .scopeID = scope.id});
    for (const EditorScope& child : scope.children)
        gather(child, hits);
}

EditorMemoryHits walked(const EditorScope& root) {
    EditorMemoryHits hits;
    gather(root, hits);
    return hits;
}

EditorMemoryHits asRows(const std::vector<EditorMoment>& moments) {
    EditorMemoryHits rows;
    for (const EditorMoment& moment : moments)
        rows.push_back({.memory = {.id = moment.id,
                                   .type = "moment",
                                   .title = moment.title,
                                   .body = moment.abstract.value_or(""),
                                   .day = moment.at},
                        .scopeID = "/"});
    return rows;
}

/// Which of an ask's conditions a count leaves out: that of the choice it stands beside.
enum class Except { nothing, type, scopes };

class Conditions {
public:
    explicit Conditions(const EditorAsk& ask)
        : m_ask(ask), m_words(EditorText::tokenize(ask.term)) {}

    bool hold(const EditorMemoryHit& hit, Except except, std::string_view exceptKey = {}) const {
        return (except == Except::type || !m_ask.type || *m_ask.type == hit.memory.type) &&
               (except == Except::scopes || ScopePath::matches(hit.scopeID, m_ask.scopes)) &&
               searched(hit.memory) && chipsMatch(hit.memory, exceptKey);
    }
    EditorMemoryHits cut(const EditorMemoryHits& rows, Except except,
                         std::string_view exceptKey = {}) const {
        EditorMemoryHits kept;
        std::ranges::copy_if(rows, std::back_inserter(kept), [&](const EditorMemoryHit& hit) {
            return hold(hit, except, exceptKey);
        });
        return kept;
    }
    bool hasQuery() const { return !m_words.empty(); }

private:
    bool searched(const EditorMemory& memory) const {
        if (m_ask.term.empty())
            return true;
        std::vector<std::string> words;
        for (const std::string* const text : {&memory.title, &memory.why, &memory.body})
            EditorText::tokenize(*text, words);
        return std::ranges::find_first_of(words, m_words) != words.end();
    }
    bool chipsMatch(const EditorMemory& memory, std::string_view exceptKey) const {
        return std::ranges::all_of(m_ask.filters, [&](const auto& filter) {
            const auto& [key, picks] = filter;
            const auto value = memory.filters.find(key);
            return key == exceptKey || picks.empty() ||
                   (value != memory.filters.end() && names(picks).contains(value->second));
        });
    }

    const EditorAsk& m_ask;
    std::vector<std::string> m_words;
};

/// Keys and values for the filter bar. A key's own picks do not narrow its panel, or the second
/// value could never be picked.
void filterCensus(const EditorMemoryHits& rows, const Conditions& conditions, const EditorAsk& ask,
                  EditorAnswer& answer) {
    const EditorMemoryHits matching = conditions.cut(rows, Except::nothing);
    answer.filterKeyCounts = filterKeyCensus(matching);
    for (const auto& [key, picks] : ask.filters)
        if (std::ranges::find(answer.filterKeyCounts, key, &EditorCount::name) ==
            answer.filterKeyCounts.end())
            answer.filterKeyCounts.push_back({.name = key});
    for (const EditorCount& key : answer.filterKeyCounts)
        answer.filterValueCounts[key.name] =
            ask.filters.contains(key.name)
                ? filterValueCensus(conditions.cut(rows, Except::nothing, key.name), key.name)
                : filterValueCensus(matching, key.name);
}

} // namespace

SeededQuery::SeededQuery(const SeededContents& contents)
    : m_memories(walked(contents.root)), m_momentRows(asRows(contents.moments)),
      m_moments(contents.moments), m_relevance(m_memories), m_momentRelevance(m_momentRows) {}

EditorAnswer SeededQuery::answer(const EditorAsk& ask) const {
    const Conditions conditions(ask);
    const bool ofMoments = ask.kind == EditorKind::moment;
    const EditorMemoryHits none;
    const EditorMemoryHits& all =
        ofMoments ? m_momentRows : (ask.kind == EditorKind::memory ? m_memories : none);
    EditorMemoryHits rows = conditions.cut(all, Except::nothing);

    EditorAnswer made{.ask = ask, .state = EditorAnswerStateCase::Settled{}};
    made.narrowed = conditions.hasQuery() || ask.hasChips();
    made.total = static_cast<std::int64_t>(rows.size());
    made.sliceTotal = std::max<std::int64_t>(
        made.total, std::ranges::count_if(all, [&](const EditorMemoryHit& hit) {
            return !ask.type || *ask.type == hit.memory.type;
        }));
    made.typeCounts = typeCensus(conditions.cut(all, Except::type));
    made.scopeCounts = scopeCensus(conditions.cut(all, Except::scopes));
    filterCensus(all, conditions, ask, made);
    made.kindCounts = {
        {EditorKind::memory, std::ssize(conditions.cut(m_memories, Except::nothing))},
        {EditorKind::moment, std::ssize(conditions.cut(m_momentRows, Except::nothing))}};
    made.order = defaulting(ask.sort, conditions.hasQuery());
    rows =
        ordered(std::move(rows), made.order, ask.term, ofMoments ? m_momentRelevance : m_relevance);

    const auto start = std::clamp<std::int64_t>(ask.offset, 0, made.total);
    const auto end = start + std::clamp<std::int64_t>(
                                 ask.limit, 1, std::max<std::int64_t>(made.total - start, 1));
    rows.resize(static_cast<std::size_t>(std::min(end, made.total)));
    rows.erase(rows.begin(), rows.begin() + start);
    made.rows = std::move(rows);
    if (ofMoments)
        addMoments(made);
    return made;
}

void SeededQuery::addMoments(EditorAnswer& answer) const {
    for (const EditorMemoryHit& row : answer.rows) {
        EditorMoment moment = *std::ranges::find(m_moments, row.memory.id, &EditorMoment::id);
        moment.score = row.score;
        answer.moments.push_back(std::move(moment));
    }
}

} // namespace wendlow
