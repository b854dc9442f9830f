#include "Model/EditorMemory.h"

#include <algorithm>
#include <utility>

namespace wendlow {

namespace {

/// Gathers what `name` puts into a map of counts for each row.
template<class Gather>
std::vector<EditorCount> census(const EditorMemoryHits& hits, const Gather& gather) {
    std::map<std::string, std::int64_t, std::less<>> counts;
    for (const EditorMemoryHit& hit : hits)
        gather(hit, counts);
    std::vector<EditorCount> rows;
    rows.reserve(counts.size());
    for (auto& [name, count] : counts)
        rows.push_back({.name = name, .count = count});
    sortCensus(rows);
    return rows;
}

} // namespace

EditorMemoryHits dayOrdered(EditorMemoryHits hits, DayOrder order) {
    std::ranges::stable_sort(
        hits, [order](const EditorMemoryHit& one, const EditorMemoryHit& other) {
            if (one.memory.day != other.memory.day)
                return (one.memory.day > other.memory.day) == (order == DayOrder::newestFirst);
            return one.memory.id < other.memory.id;
        });
    return hits;
}

std::vector<EditorCount> typeCensus(const EditorMemoryHits& hits) {
    return census(hits,
                  [](const EditorMemoryHit& hit, auto& counts) { ++counts[hit.memory.type]; });
}

std::vector<EditorCount> scopeCensus(const EditorMemoryHits& hits) {
    return census(hits, [](const EditorMemoryHit& hit, auto& counts) { ++counts[hit.scopeID]; });
}

std::vector<EditorCount> filterKeyCensus(const EditorMemoryHits& hits) {
    return census(hits, [](const EditorMemoryHit& hit, auto& counts) {
        for (const auto& [key, value] : hit.memory.filters)
            ++counts[key];
    });
}

std::vector<EditorCount> filterValueCensus(const EditorMemoryHits& hits, std::string_view key) {
    return census(hits, [key = std::string(key)](const EditorMemoryHit& hit, auto& counts) {
        if (const auto found = hit.memory.filters.find(key); found != hit.memory.filters.end())
            ++counts[found->second];
    });
}

} // namespace wendlow
