#include "Ranking/EditorRelevance.h"

#include "Ranking/EditorText.h"

#include <algorithm>

namespace wendlow {

EditorRelevance::EditorRelevance(const EditorMemoryHits& corpus) {
    std::vector<EditorBM25::Tokens> documents;
    documents.reserve(corpus.size());
    m_ids.reserve(corpus.size());
    for (const auto& [memory, scopeID, score] : corpus) {
        auto& tokens = documents.emplace_back();
        for (const std::string* const part : {&memory.title, &memory.why, &memory.body})
            EditorText::tokenize(*part, tokens);
        m_ids.push_back(memory.id);
    }
    m_index = EditorBM25::of(documents);
}

std::map<std::string, double, std::less<>> EditorRelevance::scores(std::string_view term) const {
    std::map<std::string, double, std::less<>> byID;
    if (!m_index)
        return byID;
    const auto scores = m_index->scores(EditorText::tokenize(term));
    for (std::size_t doc = 0; doc < scores.size(); ++doc)
        if (scores[doc] != 0)
            byID.emplace(m_ids[doc], scores[doc]);
    return byID;
}

EditorMemorySort defaulting(std::optional<EditorMemorySort> sort, bool hasQuery) {
    return sort.value_or(hasQuery ? EditorMemorySort::relevance : EditorMemorySort::newest);
}

EditorMemoryHits ordered(EditorMemoryHits hits, EditorMemorySort by, std::string_view term,
                         const EditorRelevance& corpus) {
    const auto day = [](const EditorMemoryHit& hit) { return hit.memory.day; };
    if (by == EditorMemorySort::oldest) {
        std::ranges::stable_sort(hits, std::ranges::less(), day);
        return hits;
    }
    if (by == EditorMemorySort::newest || EditorText::tokenize(term).empty()) {
        std::ranges::stable_sort(hits, std::ranges::greater(), day);
        return hits;
    }
    const auto scores = corpus.scores(term);
    double best = 0;
    for (EditorMemoryHit& hit : hits) {
        const auto found = scores.find(hit.memory.id);
        hit.score = found == scores.end() ? 0 : found->second;
        best = std::max(best, hit.score);
    }
    for (EditorMemoryHit& hit : hits)
        hit.score = best > 0 ? hit.score / best : 0;
    std::ranges::stable_sort(hits, [](const EditorMemoryHit& one, const EditorMemoryHit& other) {
        return one.score != other.score ? one.score > other.score : one.memory.id < other.memory.id;
    });
    return hits;
}

} // namespace wendlow
