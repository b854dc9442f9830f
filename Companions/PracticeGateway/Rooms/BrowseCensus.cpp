#include "BrowseCensus.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "FilterText.h"
#include "RawString.h"
#include "ScopePath.h"

namespace wendlow {
namespace {

/// The census of what was counted at all.
std::vector<NameCount> named(const Names& names, const std::vector<std::int64_t>& counts) {
    std::vector<NameCount> census;
    for (std::uint32_t number = 0; number < counts.size(); ++number)
        if (counts[number] > 0)
            census.push_back({names.text(number), counts[number]});
    std::ranges::sort(census, [](const NameCount& left, const NameCount& right) {
        return std::tie(right.count, left.name) < std::tie(left.count, right.name);
    });
    return census;
}

} // namespace

BrowseCensus::BrowseCensus(const DocumentFacets& facets, const ReadCase::TextBrowse& ask,
                           std::optional<DocumentKind> kind)
    : m_facets(facets), m_kind(kind), m_anyType(!ask.type),
      m_type(facets.types().find(ask.type.value_or(""))), m_verdicts(facets.filterSets(), unknown),
      m_byType(facets.types().size()), m_byScope(facets.scopes().size()),
      m_sets(facets.filterSets()), m_setsLessOne(facets.filterSets()) {
    for (std::uint32_t scope = 0; scope < facets.scopes().size(); ++scope)
        m_scopePasses.push_back(ScopePath::matches(facets.scopes().text(scope), ask.scopes));
    for (const FilterPair& filter : ask.filters) {
        const std::uint32_t key = facets.keys().find(filter.key);
        auto pick = std::ranges::find(m_picks, key, &Pick::key);
        // Every key that no document has is Names::none, and nothing satisfies it.
        if (pick == m_picks.end())
            pick = m_picks.insert(pick, Pick{key, {}});
        pick->pairs.push_back(facets.findPair(filter));
    }
}

BrowseCensus::Verdict BrowseCensus::judge(std::uint32_t set) const {
    Verdict verdict = passes;
    const auto pairs = m_facets.pairsOf(set);
    for (std::size_t number = 0; number < m_picks.size(); ++number) {
        if (std::ranges::find_first_of(pairs, m_picks[number].pairs) != pairs.end())
            continue;
        if (verdict != passes)
            return fails;
        verdict = static_cast<Verdict>(number);
    }
    return verdict;
}

BrowseCensus::Verdict BrowseCensus::verdict(std::uint32_t set) {
    if (m_verdicts[set] == unknown)
        m_verdicts[set] = judge(set);
    return m_verdicts[set];
}

bool BrowseCensus::count(const DocumentFacets::Row& row) {
    const bool inKind = !m_kind || row.kind == *m_kind;
    const bool inType = m_anyType || row.type == m_type;
    const bool inScope = m_scopePasses[row.scope] != 0;
    const Verdict filters = verdict(row.filters);
    if (filters == passes) {
        m_byKind[static_cast<std::size_t>(row.kind)] += inScope ? 1 : 0;
        m_byType[row.type] += inKind && inScope ? 1 : 0;
        m_byScope[row.scope] += inKind && inType ? 1 : 0;
    }
    if (!inKind || !inType || !inScope || filters == fails)
        return false;
    if (filters != passes) {
        ++m_setsLessOne[row.filters];
        return false;
    }
    ++m_sets[row.filters];
    ++m_total;
    return true;
}

std::vector<FilterKeyCensus> BrowseCensus::filters() const {
    Counts keys(m_facets.keys().size());
    Counts pairs(m_facets.pairs().size());
    for (std::uint32_t set = 0; set < m_sets.size(); ++set) {
        if (m_sets[set] == 0 && m_setsLessOne[set] == 0)
            continue;
        for (const std::uint32_t pair : m_facets.pairsOf(set)) {
            const std::uint32_t key = m_facets.pairs()[pair].key;
            const bool leftOut = m_setsLessOne[set] > 0 &&
                                 m_picks[static_cast<std::size_t>(m_verdicts[set])].key == key;
            const std::int64_t count = m_sets[set] + (leftOut ? m_setsLessOne[set] : 0);
            keys[key] += count;
            pairs[pair] += count;
        }
    }
    std::vector<std::size_t> places(keys.size());
    std::vector<FilterKeyCensus> census;
    for (const NameCount& key : named(m_facets.keys(), keys)) {
        places[m_facets.keys().find(key.name)] = census.size();
        census.push_back({key.name, key.count, {}});
    }
    for (std::uint32_t pair = 0; pair < pairs.size(); ++pair)
        if (pairs[pair] > 0)
            census[places[m_facets.pairs()[pair].key]].values.push_back(
                {m_facets.pairs()[pair].value, pairs[pair]});
    for (FilterKeyCensus& key : census)
        std::ranges::sort(key.values, [](const auto& left, const auto& right) {
            return left.count != right.count
                       ? left.count > right.count
                       : FilterText::printed(left.value) < FilterText::printed(right.value);
        });
    return census;
}

void BrowseCensus::report(TextBrowseAnswer& answer) const {
    answer.total = m_total;
    answer.byType = named(m_facets.types(), m_byType);
    answer.byScope = named(m_facets.scopes(), m_byScope);
    answer.byFilter = filters();
    // A kind without a match is told too: a count that is missing would leave the old one standing.
    for (const DocumentKind kind : allCases<DocumentKind>())
        answer.byKind.push_back(
            {std::string(rawString(kind)), m_byKind[static_cast<std::size_t>(kind)]});
    std::ranges::sort(answer.byKind, [](const KindCount& left, const KindCount& right) {
        return std::tie(right.count, left.kind) < std::tie(left.count, right.kind);
    });
}

} // namespace wendlow
